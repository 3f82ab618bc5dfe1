#ifndef KERFLINE_CPP_INTERIORNODES_H
#define KERFLINE_CPP_INTERIORNODES_H

#include "cpp/Cpp_InteriorNode.h"
#include "cpp/Cpp_VisitedNode.h"

#include <memory>
#include <utility>
#include <vector>

namespace Cpp {

class ParsedText;

/// The base classes of a class head, and the comments and directives among them.
class BaseClauseListNode : public VisitedNode<BaseClauseListNode, InteriorNode> {};

/// The member initializers of a constructor, and the comments and directives among them.
class InitializerListNode : public VisitedNode<InitializerListNode, InteriorNode> {};

/// The parts of one control statement in order, "if" and "else", "try" and each "catch", and the
/// comments between them.
class CtrlStmtNode : public VisitedNode<CtrlStmtNode, InteriorNode> {};

/// A list between brackets: it stores their places as its extent.
class BracketedNode : public InteriorNode {
public:
    BracketedNode() = default;
    BracketedNode(const Trn::Position& start, const Trn::Position& end) : start_(start), end_(end) {}

    void setStart(const Trn::Position& position) override { start_ = position; }
    Trn::Position start() const override { return start_; }
    void setEnd(const Trn::Position& position) override { end_ = position; }
    Trn::Position end() const override { return end_; }

private:
    Trn::Position start_;
    Trn::Position end_;
};

class ClassBodyNode : public VisitedNode<ClassBodyNode, BracketedNode> {
public:
    using VisitedNode::VisitedNode;
};

/// The enumerators as text, and the comments and directives among them.
class EnumBodyNode : public VisitedNode<EnumBodyNode, BracketedNode> {
public:
    using VisitedNode::VisitedNode;
};

class NamespaceBodyNode : public VisitedNode<NamespaceBodyNode, BracketedNode> {
public:
    using VisitedNode::VisitedNode;
};

class ParameterListNode : public VisitedNode<ParameterListNode, BracketedNode> {
public:
    using VisitedNode::VisitedNode;
};

/// The arguments of a member initializer. Has no visit of its own.
class ArgListNode : public BracketedNode {
public:
    using BracketedNode::BracketedNode;
    SyntaxNode* clone() const override { return new ArgListNode(*this); }
};

/// A list whose brackets may be missing: the extent of its children stands in for them.
class OptionallyBracketedNode : public BracketedNode {
public:
    using BracketedNode::BracketedNode;

    Trn::Position start() const override {
        const Trn::Position own = BracketedNode::start();
        return own.isNone() ? InteriorNode::start() : own;
    }
    Trn::Position end() const override {
        const Trn::Position own = BracketedNode::end();
        return own.isNone() ? InteriorNode::end() : own;
    }
};

/// Statements between braces, or the one statement that a control statement has without any.
class BlockNode : public VisitedNode<BlockNode, OptionallyBracketedNode> {
public:
    using VisitedNode::VisitedNode;
};

/// Statements in the middle of an expression: the body of a closure, of "requires" or of a statement
/// expression, or code among the arguments of a macro.
struct CodeInExpression {
    /// The first character of what the braces belong to, such as the "[" of a closure.
    Trn::Position head;
    NodePtr<BlockNode> block;
    /// Some of it is not to be formatted: a stretch between two comments of the block.
    bool hasRegion = false;
};

/// The whole of a text: its top-level nodes in source order. An expression is a leaf; the code in
/// expressions, however deep, stands beside the nodes in a list by its place in the text.
class RootNode : public VisitedNode<RootNode, InteriorNode> {
public:
    RootNode() = default;
    RootNode(const RootNode& other) : VisitedNode(other), code_(other.code_) {}
    RootNode(RootNode&& other) noexcept { swap(other); }
    RootNode& operator=(RootNode other) noexcept {
        swap(other);
        return *this;
    }
    ~RootNode() override { erase(childBegin(), childEnd()); }

    /// Exchanges the children and the code, without a copy, and what they live on.
    void swap(RootNode& other) noexcept {
        swapChildren(other);
        parsed_.swap(other.parsed_);
        code_.swap(other.code_);
    }

    /// What the nodes below were made from and live on: it stays as long as they do. Null in a tree
    /// that no parser made.
    const std::shared_ptr<const ParsedText>& parsed() const { return parsed_; }
    void setParsed(std::shared_ptr<const ParsedText> parsed) { parsed_ = std::move(parsed); }

    std::vector<CodeInExpression>& code() { return code_; }
    const std::vector<CodeInExpression>& code() const { return code_; }

private:
    std::shared_ptr<const ParsedText> parsed_;
    std::vector<CodeInExpression> code_; // goes before what its nodes live on
};

class LinkageBlockBodyNode : public VisitedNode<LinkageBlockBodyNode, OptionallyBracketedNode> {
public:
    using VisitedNode::VisitedNode;
};

} // namespace Cpp

#endif
