#ifndef KERFLINE_CPP_STATEMENTNODES_H
#define KERFLINE_CPP_STATEMENTNODES_H

#include "cpp/Cpp_InteriorNodes.h"
#include "cpp/Cpp_LeafNodes.h"
#include "cpp/Cpp_VisitedNode.h"

#include <cstdint>

namespace Cpp {

/// The keyword of one part of a control statement, and its condition with the parentheses. May end
/// in front of the end of the condition, or behind it: the stored end decides.
class CtrlSubStmtHeadNode : public EndedNode<CtrlSubStmtHeadNode, SyntaxNode> {
public:
    CtrlSubStmtHeadNode() = default;
    CtrlSubStmtHeadNode(KeywordNode* keyword, ExprNode* condition, const Trn::Position& endPosition = {})
        : EndedNode(endPosition), keyword_(keyword), condition_(condition) {}

    KeywordNode* keyword() const { return keyword_.get(); }
    void setKeyword(KeywordNode* node) { keyword_.reset(node); }
    KeywordNode* releaseKeyword() { return keyword_.release(); }

    ExprNode* condition() const { return condition_.get(); }
    void setCondition(ExprNode* node) { condition_.reset(node); }
    ExprNode* releaseCondition() { return condition_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({keyword(), condition()}); }
    SyntaxNode* lastChild() const { return lastPresent({keyword(), condition()}); }

private:
    NodePtr<KeywordNode> keyword_;
    NodePtr<ExprNode> condition_;
};

/// One part of a control statement. A statement that is not a compound one stands in a block with
/// no extent of its own.
class CtrlSubStmtNode : public PartsNode<CtrlSubStmtNode, SyntaxNode> {
public:
    CtrlSubStmtNode() = default;
    CtrlSubStmtNode(CtrlSubStmtHeadNode* head, BlockNode* block) : head_(head), block_(block) {}

    CtrlSubStmtHeadNode* head() const { return head_.get(); }
    void setHead(CtrlSubStmtHeadNode* node) { head_.reset(node); }
    CtrlSubStmtHeadNode* releaseHead() { return head_.release(); }

    BlockNode* block() const { return block_.get(); }
    void setBlock(BlockNode* node) { block_.reset(node); }
    BlockNode* releaseBlock() { return block_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({head(), block()}); }
    SyntaxNode* lastChild() const { return lastPresent({head(), block()}); }

private:
    NodePtr<CtrlSubStmtHeadNode> head_;
    NodePtr<BlockNode> block_;
};

/// "case" with its expression, or "default"; the end position is that of the colon.
class CaseNode : public EndedNode<CaseNode, SyntaxNode> {
public:
    CaseNode() = default;
    CaseNode(KeywordNode* keyword, ExprNode* expr, const Trn::Position& endPosition = {})
        : EndedNode(endPosition), keyword_(keyword), expr_(expr) {}

    KeywordNode* keyword() const { return keyword_.get(); }
    void setKeyword(KeywordNode* node) { keyword_.reset(node); }
    KeywordNode* releaseKeyword() { return keyword_.release(); }

    ExprNode* expr() const { return expr_.get(); }
    void setExpr(ExprNode* node) { expr_.reset(node); }
    ExprNode* releaseExpr() { return expr_.release(); }

    SyntaxNode* firstChild() const { return firstPresent({keyword(), expr()}); }
    SyntaxNode* lastChild() const { return lastPresent({keyword(), expr()}); }

private:
    NodePtr<KeywordNode> keyword_;
    NodePtr<ExprNode> expr_;
};

/// The name of a label, and the place of its colon, at which it ends if there is one.
class LabelNode : public PartsNode<LabelNode, SyntaxNode> {
public:
    LabelNode() = default;
    explicit LabelNode(IdNode* name, const Trn::Position& colon = {}) : name_(name), colon_(colon) {}

    IdNode* name() const { return name_.get(); }
    void setName(IdNode* node) { name_.reset(node); }
    IdNode* releaseName() { return name_.release(); }

    Trn::Position colon() const { return colon_; }
    void setColon(const Trn::Position& colon) { colon_ = colon; }

    Trn::Position end() const override { return colon_.isNone() ? PartsNode::end() : colon_; }

    SyntaxNode* firstChild() const { return name(); }
    SyntaxNode* lastChild() const { return name(); }

private:
    NodePtr<IdNode> name_;
    Trn::Position colon_;
};

/// An assembler statement: the keyword as spelled, and a body as one piece of text in a block, if
/// there is one.
class AsmNode : public PartsNode<AsmNode, SyntaxNode> {
public:
    /// How the statement is written.
    enum Form : std::int32_t { kOneLine = 0, kOneLineWithParen = 1, kBraced = 2 };

    AsmNode() = default;
    AsmNode(TextNode* text, BlockNode* block, std::int32_t form) : text_(text), block_(block), form_(form) {}

    TextNode* text() const { return text_.get(); }
    void setText(TextNode* node) { text_.reset(node); }
    TextNode* releaseText() { return text_.release(); }

    BlockNode* block() const { return block_.get(); }
    void setBlock(BlockNode* node) { block_.reset(node); }
    BlockNode* releaseBlock() { return block_.release(); }

    std::int32_t form() const { return form_; }
    void setForm(std::int32_t form) { form_ = form; }

    SyntaxNode* firstChild() const { return firstPresent({text(), block()}); }
    SyntaxNode* lastChild() const { return lastPresent({text(), block()}); }

private:
    NodePtr<TextNode> text_;
    NodePtr<BlockNode> block_;
    std::int32_t form_ = kOneLine;
};

} // namespace Cpp

#endif
