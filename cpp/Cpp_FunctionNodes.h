#ifndef KERFLINE_CPP_FUNCTIONNODES_H
#define KERFLINE_CPP_FUNCTIONNODES_H

#include "cpp/Cpp_InteriorNodes.h"
#include "cpp/Cpp_LeafNodes.h"
#include "cpp/Cpp_VisitedNode.h"

namespace Cpp {

/// A function from its return type up to its body or semicolon.
class FunctionHeadNode : public EndedNode<FunctionHeadNode, SyntaxNode> {
public:
    FunctionHeadNode() = default;
    FunctionHeadNode(FunctionReturnNode* returnType, IdNode* name, ParameterListNode* params,
                     TextNode* qualifiers, ExprNode* throwSpec, ExprNode* pureSpec,
                     const Trn::Position& endPosition = {})
        : EndedNode(endPosition), returnType_(returnType), name_(name), params_(params),
          qualifiers_(qualifiers), throwSpec_(throwSpec), pureSpec_(pureSpec) {}

    FunctionReturnNode* returnType() const { return returnType_.get(); }
    void setReturnType(FunctionReturnNode* node) { returnType_.reset(node); }
    FunctionReturnNode* releaseReturnType() { return returnType_.release(); }

    IdNode* name() const { return name_.get(); }
    void setName(IdNode* node) { name_.reset(node); }
    IdNode* releaseName() { return name_.release(); }

    ParameterListNode* params() const { return params_.get(); }
    void setParams(ParameterListNode* node) { params_.reset(node); }
    ParameterListNode* releaseParams() { return params_.release(); }

    TextNode* qualifiers() const { return qualifiers_.get(); }
    void setQualifiers(TextNode* node) { qualifiers_.reset(node); }
    TextNode* releaseQualifiers() { return qualifiers_.release(); }

    ExprNode* throwSpec() const { return throwSpec_.get(); }
    void setThrowSpec(ExprNode* node) { throwSpec_.reset(node); }
    ExprNode* releaseThrowSpec() { return throwSpec_.release(); }

    ExprNode* pureSpec() const { return pureSpec_.get(); }
    void setPureSpec(ExprNode* node) { pureSpec_.reset(node); }
    ExprNode* releasePureSpec() { return pureSpec_.release(); }

    SyntaxNode* firstChild() const {
        return firstPresent({returnType(), name(), params(), qualifiers(), throwSpec(), pureSpec()});
    }
    SyntaxNode* lastChild() const {
        return lastPresent({returnType(), name(), params(), qualifiers(), throwSpec(), pureSpec()});
    }

private:
    NodePtr<FunctionReturnNode> returnType_;
    NodePtr<IdNode> name_;
    NodePtr<ParameterListNode> params_;
    NodePtr<TextNode> qualifiers_;
    NodePtr<ExprNode> throwSpec_;
    NodePtr<ExprNode> pureSpec_;
};

/// One member initializer.
class InitializerNode : public PartsNode<InitializerNode, SyntaxNode> {
public:
    InitializerNode() = default;
    InitializerNode(IdNode* name, ArgListNode* args) : name_(name), args_(args) {}

    IdNode* name() const { return name_.get(); }
    void setName(IdNode* node) { name_.reset(node); }
    IdNode* releaseName() { return name_.release(); }

    ArgListNode* args() const { return args_.get(); }
    void setArgs(ArgListNode* node) { args_.reset(node); }
    ArgListNode* releaseArgs() { return args_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({name(), args()}); }
    SyntaxNode* lastChild() const { return lastPresent({name(), args()}); }

private:
    NodePtr<IdNode> name_;
    NodePtr<ArgListNode> args_;
};

/// A function. The block is missing from a mere prototype.
class FunctionDeclNode : public PartsNode<FunctionDeclNode, DeclNode> {
public:
    FunctionDeclNode() = default;
    FunctionDeclNode(FunctionHeadNode* head, BlockNode* block) : head_(head), block_(block) {}

    /// Exchanges head and block with `other`.
    virtual void swap(FunctionDeclNode& other);
    virtual void setHead(FunctionHeadNode* node);

    FunctionHeadNode* head() const { return head_.get(); }
    FunctionHeadNode* releaseHead() { return head_.release(); }

    BlockNode* block() const { return block_.get(); }
    void setBlock(BlockNode* node) { block_.reset(node); }
    BlockNode* releaseBlock() { return block_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({head(), block()}); }
    SyntaxNode* lastChild() const { return lastPresent({head(), block()}); }

private:
    NodePtr<FunctionHeadNode> head_;
    NodePtr<BlockNode> block_;
};

/// A function with a ":" and member initializers.
class CtorDeclNode : public VisitedNode<CtorDeclNode, FunctionDeclNode> {
public:
    CtorDeclNode() = default;
    CtorDeclNode(FunctionHeadNode* head, BlockNode* block, InitializerListNode* initializers)
        : VisitedNode(head, block), initializers_(initializers) {}

    InitializerListNode* initializers() const { return initializers_.get(); }
    void setInitializers(InitializerListNode* node) { initializers_.reset(node); }
    InitializerListNode* releaseInitializers() { return initializers_.release(); }

    // The list stands in front of the block in the source, so it is at an edge of the extent only
    // where the block, or both other parts, are missing.
    void setStart(const Trn::Position& position) override;
    Trn::Position start() const override;
    void setEnd(const Trn::Position& position) override;
    Trn::Position end() const override;

private:
    SyntaxNode* firstPart() const { return firstPresent({head(), initializers(), block()}); }
    SyntaxNode* lastPart() const { return lastPresent({head(), initializers(), block()}); }

    NodePtr<InitializerListNode> initializers_;
};

/// The declaration of a pointer to a function.
class FunctionPtrDeclNode : public EndedNode<FunctionPtrDeclNode, DeclNode> {
public:
    FunctionPtrDeclNode() = default;
    FunctionPtrDeclNode(FunctionReturnNode* returnType, IdNode* name, ParameterListNode* params,
                        TextNode* suffix, const Trn::Position& endPosition = {})
        : EndedNode(endPosition), returnType_(returnType), name_(name), params_(params), suffix_(suffix) {}

    FunctionReturnNode* returnType() const { return returnType_.get(); }
    void setReturnType(FunctionReturnNode* node) { returnType_.reset(node); }
    FunctionReturnNode* releaseReturnType() { return returnType_.release(); }

    IdNode* name() const { return name_.get(); }
    void setName(IdNode* node) { name_.reset(node); }
    IdNode* releaseName() { return name_.release(); }

    ParameterListNode* params() const { return params_.get(); }
    void setParams(ParameterListNode* node) { params_.reset(node); }
    ParameterListNode* releaseParams() { return params_.release(); }

    TextNode* suffix() const { return suffix_.get(); }
    void setSuffix(TextNode* node) { suffix_.reset(node); }
    TextNode* releaseSuffix() { return suffix_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({returnType(), name(), params(), suffix()}); }
    SyntaxNode* lastChild() const { return lastPresent({returnType(), name(), params(), suffix()}); }

private:
    NodePtr<FunctionReturnNode> returnType_;
    NodePtr<IdNode> name_;
    NodePtr<ParameterListNode> params_;
    NodePtr<TextNode> suffix_;
};

} // namespace Cpp

#endif
