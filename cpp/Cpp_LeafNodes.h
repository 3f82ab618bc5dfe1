#ifndef KERFLINE_CPP_LEAFNODES_H
#define KERFLINE_CPP_LEAFNODES_H

#include "cpp/Cpp_NodeText.h"
#include "cpp/Cpp_VisitedNode.h"
#include "trn/Trn_Exception.h"

#include <cstdint>
#include <string>
#include <utility>

namespace Cpp {

/// A keyword node was given the number of a token that is none of its keywords.
class InvalidKeyword : public Trn::Exception {
public:
    InvalidKeyword() : Trn::Exception("Not a keyword") {}
};

/// A name was built from an empty text.
class InvalidId : public Trn::Exception {
public:
    InvalidId() : Trn::Exception("Invalid name for an Identifier") {}
};

/// A verbatim piece of source.
class TextNode : public VisitedNode<TextNode, LeafNode> {
public:
    TextNode() = default;
    TextNode(NodeText text, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), text_(std::move(text)) {}

    std::string text() const { return text_.str(); }
    void setText(const std::string& text) { text_ = NodeText(text); }

protected:
    const NodeText& nodeText() const { return text_; }

private:
    NodeText text_;
};

/// A directive line, or a whole region that "#if 0" disables; the text of a region is empty, and it
/// is copied from the source by its extent.
class PreprocDirectiveNode : public VisitedNode<PreprocDirectiveNode, TextNode> {
public:
    using VisitedNode::VisitedNode;
};

/// A comment with its delimiters.
class CommentNode : public VisitedNode<CommentNode, TextNode> {
public:
    using VisitedNode::VisitedNode;

    /// True if this stands for a whole region that is copied from the source by its extent. The
    /// text is empty then.
    bool verbatim() const { return verbatim_; }
    void setVerbatim(bool verbatim) { verbatim_ = verbatim; }

    /// The text without its delimiters, and without white space in front of them. A block comment
    /// that is not closed keeps them, so that its text equals no marker.
    std::string markerText() const;

private:
    bool verbatim_ = false;
};

/// A name, with any "::" qualification.
class IdNode : public VisitedNode<IdNode, TextNode> {
public:
    IdNode() = default;
    /// Throws InvalidId for an empty text.
    IdNode(NodeText text, const Trn::Position& start, const Trn::Position& end);
};

/// An expression or statement. Its extent is the truth, and passes read its characters by that. The
/// text is what was at hand when it was built: it may be empty, or lack brackets.
class ExprNode : public VisitedNode<ExprNode, LeafNode> {
public:
    ExprNode() = default;
    ExprNode(NodeText text, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), text_(std::move(text)) {}

    virtual void setText(const std::string& text) { text_ = NodeText(text); }
    virtual std::string text() const { return text_.str(); }

private:
    NodeText text_;
};

/// The flat text of a type.
class TypeNode : public VisitedNode<TypeNode, LeafNode> {
public:
    TypeNode() = default;
    TypeNode(NodeText text, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), text_(std::move(text)) {}

    virtual void setText(const std::string& text) { text_ = NodeText(text); }
    virtual std::string text() const { return text_.str(); }

private:
    NodeText text_;
};

/// The return type and decl specifiers of a function.
class FunctionReturnNode : public VisitedNode<FunctionReturnNode, TypeNode> {
public:
    using VisitedNode::VisitedNode;
};

/// A keyword from "class" to "default" in the order of the token numbers, 53 up to 103. All others
/// are refused with InvalidKeyword.
class KeywordNode : public VisitedNode<KeywordNode, LeafNode> {
public:
    KeywordNode(std::int32_t keyword, const Trn::Position& start, const Trn::Position& end);

    std::int32_t keyword() const { return keyword_; }
    void setKeyword(std::int32_t keyword);

private:
    std::int32_t keyword_;
};

/// An access label with its colon.
class AccessSpecNode : public VisitedNode<AccessSpecNode, LeafNode> {
public:
    AccessSpecNode() = default;
    AccessSpecNode(std::int32_t access, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), access_(access) {}

    /// Token number of "public", "private" or "protected".
    std::int32_t access() const { return access_; }
    void setAccess(std::int32_t access) { access_ = access; }

private:
    std::int32_t access_ = 0;
};

/// One base class.
class BaseClauseNode : public VisitedNode<BaseClauseNode, LeafNode> {
public:
    BaseClauseNode() = default;
    BaseClauseNode(std::int32_t access, bool isVirtual, NodeText name, const Trn::Position& start,
                   const Trn::Position& end)
        : VisitedNode(start, end), access_(access), isVirtual_(isVirtual), name_(std::move(name)) {}

    /// Token number of the access keyword, or 0 if none was written.
    std::int32_t access() const { return access_; }
    void setAccess(std::int32_t access) { access_ = access; }
    bool isVirtual() const { return isVirtual_; }
    void setIsVirtual(bool isVirtual) { isVirtual_ = isVirtual; }
    std::string name() const { return name_.str(); }
    void setName(const std::string& name) { name_ = NodeText(name); }

private:
    std::int32_t access_ = 0;
    bool isVirtual_ = false;
    NodeText name_;
};

/// The class key and the name of a class head. The name may be empty.
class ClassNameNode : public VisitedNode<ClassNameNode, LeafNode> {
public:
    ClassNameNode() = default;
    ClassNameNode(std::int32_t classKey, NodeText name, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), classKey_(classKey), name_(std::move(name)) {}

    /// Token number of "class", "struct" or "union".
    std::int32_t classKey() const { return classKey_; }
    void setClassKey(std::int32_t classKey) { classKey_ = classKey; }
    std::string name() const { return name_.str(); }
    void setName(const std::string& name) { name_ = NodeText(name); }

private:
    std::int32_t classKey_ = 0;
    NodeText name_;
};

/// The keyword "enum" with what stands in front of the "{". The name may be empty.
class EnumHeadNode : public VisitedNode<EnumHeadNode, LeafNode> {
public:
    EnumHeadNode() = default;
    EnumHeadNode(NodeText name, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), name_(std::move(name)) {}

    std::string name() const { return name_.str(); }
    void setName(const std::string& name) { name_ = NodeText(name); }

private:
    NodeText name_;
};

/// The keyword "namespace" and the name behind it, which may be empty.
class NamespaceHeadNode : public VisitedNode<NamespaceHeadNode, LeafNode> {
public:
    NamespaceHeadNode() = default;
    NamespaceHeadNode(NodeText name, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), name_(std::move(name)) {}

    std::string name() const { return name_.str(); }
    void setName(const std::string& name) { name_ = NodeText(name); }

private:
    NodeText name_;
};

/// One argument of a member initializer. Has no visit of its own.
class ArgNode : public LeafNode {
public:
    ArgNode() = default;
    ArgNode(NodeText text, const Trn::Position& start, const Trn::Position& end)
        : LeafNode(start, end), text_(std::move(text)) {}

    void accept(Emitter& emitter) override { emitter.visit(static_cast<SyntaxNode&>(*this)); }
    SyntaxNode* clone() const override { return new ArgNode(*this); }

    std::string text() const { return text_.str(); }
    void setText(const std::string& text) { text_ = NodeText(text); }

private:
    NodeText text_;
};

/// One parameter of a function or template, as flat text.
class ParameterNode : public VisitedNode<ParameterNode, LeafNode> {
public:
    ParameterNode() = default;
    ParameterNode(NodeText text, const Trn::Position& start, const Trn::Position& end)
        : VisitedNode(start, end), text_(std::move(text)) {}

    std::string text() const { return text_.str(); }
    void setText(const std::string& text) { text_ = NodeText(text); }

private:
    NodeText text_;
};

} // namespace Cpp

#endif
