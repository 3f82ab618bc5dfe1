#ifndef KERFLINE_CPP_DECLNODES_H
#define KERFLINE_CPP_DECLNODES_H

#include "cpp/Cpp_InteriorNodes.h"
#include "cpp/Cpp_LeafNodes.h"
#include "cpp/Cpp_VisitedNode.h"

namespace Cpp {

/// The head of a template. What it belongs to is a sibling behind it.
class TemplateNode : public PartsNode<TemplateNode, SyntaxNode> {
public:
    TemplateNode() = default;
    TemplateNode(KeywordNode* keyword, ParameterListNode* params) : keyword_(keyword), params_(params) {}

    KeywordNode* keyword() const { return keyword_.get(); }
    void setKeyword(KeywordNode* node) { keyword_.reset(node); }
    KeywordNode* releaseKeyword() { return keyword_.release(); }

    ParameterListNode* params() const { return params_.get(); }
    void setParams(ParameterListNode* node) { params_.reset(node); }
    ParameterListNode* releaseParams() { return params_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({keyword(), params()}); }
    SyntaxNode* lastChild() const { return lastPresent({keyword(), params()}); }

private:
    NodePtr<KeywordNode> keyword_;
    NodePtr<ParameterListNode> params_;
};

class ClassHeadNode : public PartsNode<ClassHeadNode, SyntaxNode> {
public:
    ClassHeadNode() = default;
    ClassHeadNode(ClassNameNode* name, BaseClauseListNode* bases) : name_(name), bases_(bases) {}

    ClassNameNode* name() const { return name_.get(); }
    void setName(ClassNameNode* node) { name_.reset(node); }
    ClassNameNode* releaseName() { return name_.release(); }

    BaseClauseListNode* bases() const { return bases_.get(); }
    void setBases(BaseClauseListNode* node) { bases_.reset(node); }
    BaseClauseListNode* releaseBases() { return bases_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({name(), bases()}); }
    SyntaxNode* lastChild() const { return lastPresent({name(), bases()}); }

private:
    NodePtr<ClassNameNode> name_;
    NodePtr<BaseClauseListNode> bases_;
};

/// A class with its body. The end position takes in what follows the body up to a semicolon.
class ClassDeclNode : public EndedNode<ClassDeclNode, DeclNode> {
public:
    ClassDeclNode() = default;
    ClassDeclNode(ClassHeadNode* head, ClassBodyNode* body, const Trn::Position& endPosition = {})
        : EndedNode(endPosition), head_(head), body_(body) {}

    ClassHeadNode* head() const { return head_.get(); }
    void setHead(ClassHeadNode* node) { head_.reset(node); }
    ClassHeadNode* releaseHead() { return head_.release(); }

    ClassBodyNode* body() const { return body_.get(); }
    void setBody(ClassBodyNode* node) { body_.reset(node); }
    ClassBodyNode* releaseBody() { return body_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({head(), body()}); }
    SyntaxNode* lastChild() const { return lastPresent({head(), body()}); }

private:
    NodePtr<ClassHeadNode> head_;
    NodePtr<ClassBodyNode> body_;
};

/// An enumeration with its body; ends as a class does.
class EnumDeclNode : public EndedNode<EnumDeclNode, DeclNode> {
public:
    EnumDeclNode() = default;
    EnumDeclNode(EnumHeadNode* head, EnumBodyNode* body, const Trn::Position& endPosition = {})
        : EndedNode(endPosition), head_(head), body_(body) {}

    EnumHeadNode* head() const { return head_.get(); }
    void setHead(EnumHeadNode* node) { head_.reset(node); }
    EnumHeadNode* releaseHead() { return head_.release(); }

    EnumBodyNode* body() const { return body_.get(); }
    void setBody(EnumBodyNode* node) { body_.reset(node); }
    EnumBodyNode* releaseBody() { return body_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({head(), body()}); }
    SyntaxNode* lastChild() const { return lastPresent({head(), body()}); }

private:
    NodePtr<EnumHeadNode> head_;
    NodePtr<EnumBodyNode> body_;
};

class NamespaceDeclNode : public PartsNode<NamespaceDeclNode, SyntaxNode> {
public:
    NamespaceDeclNode() = default;
    NamespaceDeclNode(NamespaceHeadNode* head, NamespaceBodyNode* body) : head_(head), body_(body) {}

    NamespaceHeadNode* head() const { return head_.get(); }
    void setHead(NamespaceHeadNode* node) { head_.reset(node); }
    NamespaceHeadNode* releaseHead() { return head_.release(); }

    NamespaceBodyNode* body() const { return body_.get(); }
    void setBody(NamespaceBodyNode* node) { body_.reset(node); }
    NamespaceBodyNode* releaseBody() { return body_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({head(), body()}); }
    SyntaxNode* lastChild() const { return lastPresent({head(), body()}); }

private:
    NodePtr<NamespaceHeadNode> head_;
    NodePtr<NamespaceBodyNode> body_;
};

/// A braced linkage specification: "extern" and the string, and what it applies to.
class LinkageBlockNode : public PartsNode<LinkageBlockNode, DeclNode> {
public:
    LinkageBlockNode() = default;
    LinkageBlockNode(ExprNode* linkage, LinkageBlockBodyNode* body) : linkage_(linkage), body_(body) {}

    ExprNode* linkage() const { return linkage_.get(); }
    void setLinkage(ExprNode* node) { linkage_.reset(node); }
    ExprNode* releaseLinkage() { return linkage_.release(); }

    LinkageBlockBodyNode* body() const { return body_.get(); }
    void setBody(LinkageBlockBodyNode* node) { body_.reset(node); }
    LinkageBlockBodyNode* releaseBody() { return body_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({linkage(), body()}); }
    SyntaxNode* lastChild() const { return lastPresent({linkage(), body()}); }

private:
    NodePtr<ExprNode> linkage_;
    NodePtr<LinkageBlockBodyNode> body_;
};

/// A declaration of data. `init` is what stands behind the name: an initializer, or the rest of a
/// bit field. The end position is that of the semicolon, or of the comma that stands in for it.
class DataDeclNode : public EndedNode<DataDeclNode, DeclNode> {
public:
    DataDeclNode() = default;
    DataDeclNode(TypeNode* type, IdNode* name, ExprNode* init, const Trn::Position& endPosition = {})
        : EndedNode(endPosition), type_(type), name_(name), init_(init) {}

    TypeNode* type() const { return type_.get(); }
    void setType(TypeNode* node) { type_.reset(node); }
    TypeNode* releaseType() { return type_.release(); }

    IdNode* name() const { return name_.get(); }
    void setName(IdNode* node) { name_.reset(node); }
    IdNode* releaseName() { return name_.release(); }

    ExprNode* init() const { return init_.get(); }
    void setInit(ExprNode* node) { init_.reset(node); }
    ExprNode* releaseInit() { return init_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({type(), name(), init()}); }
    SyntaxNode* lastChild() const { return lastPresent({type(), name(), init()}); }

private:
    NodePtr<TypeNode> type_;
    NodePtr<IdNode> name_;
    NodePtr<ExprNode> init_;
};

} // namespace Cpp

#endif
