#include "cpp/Cpp_TreeBuilder.h"

#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

namespace {

bool isControl(int type) { return type >= tkIf && type <= tkSwitch; }

bool startsData(int type) {
    return type == tkConst || type == tkVolatile || type == tkAuto || (type >= tkChar && type <= tkVoid) ||
           type == tkSigned || type == tkUnsigned || type == tkRegister;
}

bool startsDeclaration(int type) {
    return type == tkClass || type == tkStruct || type == tkStatic || type == tkTypedef || type == tkEnum || type == tkUnion;
}

} // namespace

/// Reads one statement or a compound one. Always returns a block with the statement in it.
TreeBuilder::Ptr<BlockNode> TreeBuilder::parseBlock() {
    auto block = std::make_unique<BlockNode>();
    if (tooDeep(at_)) return block;
    const Depth depth(*this);
    at_ = sig(at_);
    if (type(at_) == tkSemicolon) {
        block->setStart(t_.start(at_));
        block->setEnd(t_.end(at_));
        ++at_;
    } else if (type(at_) == tkOpenBrace) {
        block->setStart(t_.start(at_));
        ++at_;
        parseCompound(*block);
    } else if (type(at_) == tkCase || type(at_) == tkDefault) {
        ++at_;
        addUnlessNull(*block, parseExpressionStatement());
    } else if (type(at_) != tkEnd && type(at_) != tkCloseBrace) {
        parseStatement(*block);
    }
    return block;
}

void TreeBuilder::parseCompound(BlockNode& block) {
    for (;;) {
        addNotes(block);
        const Index before = at_;
        if (type(at_) == tkCloseBrace) {
            block.setEnd(t_.end(at_));
            ++at_;
            return;
        }
        if (type(at_) == tkEnd) {
            reportEnd(at_);
            return;
        }
        parseStatement(block);
        if (at_ == before) ++at_;
    }
}

/// One statement of a block.
bool TreeBuilder::parseStatement(BlockNode& block) {
    const int kind = type(at_);
    if (startsDeclaration(kind)) {
        const Index first = at_;
        const std::size_t reported = messages_.size();
        NodePtr node = parseDeclaration(false);
        if (!node && messages_.size() == reported) {
            at_ = first;
            node = parseExpressionStatement();
        }
        addUnlessNull(block, std::move(node));
    } else if (startsData(kind)) {
        addUnlessNull(block, parseDataStatement());
    } else if (isControl(kind)) {
        addUnlessNull(block, parseCtrlStmt());
    } else {
        parseStatementWord(block);
    }
    return true;
}

void TreeBuilder::parseStatementWord(BlockNode& block) {
    switch (type(at_)) {
    case tkInvalid: case tkSemicolon:
        ++at_;
        return;
    case tkOpenBrace:
        addUnlessNull(block, parseBlock());
        return;
    case tkPublic: case tkPrivate: case tkProtected:
        report(8, at_++);
        return;
    case tkTemplate:
        report(9, at_++);
        return;
    case tkNamespace:
        if (type(nextSig(at_)) == tkIdentifier && nextType(nextSig(at_)) == tkAssign) skipThroughSemicolon(&block);
        else report(10, at_++);
        return;
    case tkUsing:
        skipThroughSemicolon(&block);
        return;
    case tkExtern:
        ++at_;
        addNotes(block);
        if (type(at_) == tkStringLiteral) ++at_;
        return;
    case tkCase: case tkDefault:
        addUnlessNull(block, parseCase());
        return;
    case tkAsm:
        addUnlessNull(block, parseAsm());
        return;
    case tkIdentifier:
        break;
    default:
        addUnlessNull(block, parseExpressionStatement());
        return;
    }
    const int next = nextType(at_);
    if (isAsm(at_)) addUnlessNull(block, parseAsm());
    else if (next == tkColon) addUnlessNull(block, parseLabel());
    else if (next == tkSemicolon || next == tkAsterisk || next == tkAmpersand || next == tkLess || next == tkIdentifier)
        addUnlessNull(block, parseDataStatement());
    else addUnlessNull(block, parseExpressionStatement());
}

/// A declaration of data, each declarator of which ends at its comma; the next one is read as data,
/// too. What is none is read as a statement.
TreeBuilder::NodePtr TreeBuilder::parseDataStatement() {
    const Index first = at_;
    const std::size_t reported = messages_.size();
    const DataRun run = collectData(first, first);
    NodePtr node = parseData(first, run.end, run, false);
    if (node || messages_.size() != reported) return node;
    at_ = first;
    return parseExpressionStatement();
}

/// Whether the part of a control statement with the given keyword goes on with the part at `next`.
bool TreeBuilder::continues(int keyword, bool directiveBetween, Index next) const {
    const int kind = type(next);
    if (keyword == tkIf) return kind == tkElse;
    if (keyword == tkElse) return kind == tkElse && directiveBetween;
    if (keyword == tkDo) return kind == tkWhile;
    if (keyword == tkTry || keyword == tkCatch) return kind == tkCatch;
    return false;
}

TreeBuilder::NodePtr TreeBuilder::parseCtrlStmt() {
    at_ = sig(at_);
    if (!isControl(type(at_))) {
        report(11, at_++);
        return nullptr;
    }
    if (tooDeep(at_)) return nullptr;
    const Depth depth(*this);
    auto statement = std::make_unique<CtrlStmtNode>();
    for (;;) {
        const int keyword = type(at_);
        Ptr<CtrlSubStmtNode> part = parseCtrlSub();
        if (!part) return nullptr;
        statement->append(std::move(part));
        const Index next = sig(at_);
        bool directive = false;
        for (Index j = at_; j < next; ++j) directive = directive || type(j) == tkDirective;
        if (!continues(keyword, directive, next)) return statement;
        addNotes(*statement);
    }
}

TreeBuilder::Ptr<CtrlSubStmtNode> TreeBuilder::parseCtrlSub() {
    const int keyword = type(sig(at_));
    Ptr<CtrlSubStmtHeadNode> head = parseCtrlSubHead();
    if (!head) return nullptr;
    Ptr<BlockNode> block;
    const Index next = sig(at_);
    if (keyword == tkWhile && type(next) == tkSemicolon) {
        head->setEnd(t_.end(next));
        at_ = next + 1;
    } else {
        block = parseBlock();
    }
    return std::make_unique<CtrlSubStmtNode>(head.release(), block.release());
}

TreeBuilder::Ptr<CtrlSubStmtHeadNode> TreeBuilder::parseCtrlSubHead() {
    at_ = sig(at_);
    const Index keyword = at_;
    const int kind = type(keyword);
    Index last = keyword;
    at_ = keyword + 1;
    const bool bare = kind == tkElse || kind == tkDo || kind == tkTry;
    // "if constexpr (", or a macro in its place: the two words are one keyword here. As a part of the
    // gap the second would be glued to the first.
    const Index second = sig(at_);
    if (!bare && type(second) == tkIdentifier && (nextType(second) == tkOpenParen || isWord(second, "consteval"))) {
        last = second;
        at_ = last + 1;
    }
    auto head = std::make_unique<CtrlSubStmtHeadNode>(new KeywordNode(kind, t_.start(keyword), t_.end(last)), nullptr);
    if (bare) return head;
    const Index open = sig(at_);
    if (type(open) != tkOpenParen) {
        if (last == keyword) report(13, open);
        return head;
    }
    at_ = open;
    Ptr<ExprNode> condition = parseCondition();
    if (!condition) return nullptr;
    head->setCondition(condition.release());
    return head;
}

/// The bracketed condition at the read point. Its text is left to the source.
TreeBuilder::Ptr<ExprNode> TreeBuilder::parseCondition() {
    const Index open = at_;
    const Index close = t_.mate(open);
    for (Index j = nextSig(open); j != close; j = nextSig(j)) {
        const int kind = type(j);
        bool stops = kind == tkEnd || kind == tkCloseBrace || kind == tkNamespace || (kind >= tkIf && kind <= tkReturn);
        if (kind == tkOpenBrace) {
            const Index inner = t_.mate(j);
            const int behind = inner == kNone ? int(tkEnd) : nextType(inner);
            stops = close == kNone || inner == kNone || behind == tkIdentifier || isControl(behind);
            if (!stops) j = inner;
        }
        if (stops) {
            at_ = j;
            report(12, j);
            return nullptr;
        }
    }
    at_ = close + 1;
    return std::make_unique<ExprNode>(std::string(), t_.start(open), t_.end(close));
}

TreeBuilder::NodePtr TreeBuilder::parseCase() {
    const Index keyword = at_;
    auto word = std::make_unique<KeywordNode>(type(keyword), t_.start(keyword), t_.end(keyword));
    const Index first = nextSig(keyword);
    if (type(keyword) == tkDefault) {
        at_ = keyword + 1;
        if (type(first) != tkColon) {
            report("Expected a : immediately following 'default'. Got: " + t_.spelling(first), first);
            return std::make_unique<CaseNode>(word.release(), nullptr);
        }
        at_ = first + 1;
        return std::make_unique<CaseNode>(word.release(), nullptr, t_.end(first));
    }
    Index colon = first;
    while (type(colon) != tkColon && type(colon) != tkEnd && type(colon) != tkInvalid) {
        if (type(colon) == tkOpenParen && t_.mate(colon) != kNone) colon = t_.mate(colon);
        colon = nextSig(colon);
    }
    Ptr<ExprNode> expr;
    if (first < colon)
        expr = std::make_unique<ExprNode>(joined(first, colon), t_.start(first), t_.end(t_.significantBefore(colon)));
    const bool closed = type(colon) == tkColon;
    at_ = closed ? colon + 1 : colon;
    return std::make_unique<CaseNode>(word.release(), expr.release(), closed ? t_.end(colon) : Trn::Position());
}

TreeBuilder::NodePtr TreeBuilder::parseLabel() {
    const Index name = at_;
    const Index colon = nextSig(name);
    at_ = colon + 1;
    return std::make_unique<LabelNode>(new IdNode(t_.spelling(name), t_.start(name), t_.end(name)), t_.end(colon));
}

TreeBuilder::NodePtr TreeBuilder::parseAsm() {
    const Index keyword = at_;
    if (!isAsm(keyword)) {
        report("Expected 'asm'. Got: " + t_.spelling(keyword), keyword);
        return nullptr;
    }
    auto word = std::make_unique<TextNode>(t_.spelling(keyword), t_.start(keyword), t_.end(keyword));
    auto body = std::make_unique<BlockNode>();
    Index first = nextSig(keyword);
    if (type(first) == tkOpenBrace) {
        const Index close = t_.mate(first);
        if (close == kNone) {
            reportEnd(t_.size());
            at_ = first + 1;
            return nullptr;
        }
        body->setStart(t_.start(first));
        body->setEnd(t_.end(close));
        if (nextSig(first) < close)
            body->append(std::make_unique<TextNode>(joined(first + 1, close), t_.start(nextSig(first)), t_.end(t_.significantBefore(close))));
        at_ = close + 1;
        return std::make_unique<AsmNode>(word.release(), body.release(), AsmNode::kBraced);
    }
    // Up to the end of the line or the ";", but never into the middle of a bracket.
    const std::uint32_t line = t_.token(keyword).line;
    std::int32_t form = AsmNode::kOneLine;
    Index j = first;
    bool bracketed = false; // only qualifiers so far, so that a "(" opens the operands
    for (; type(j) != tkEnd && type(j) != tkSemicolon && type(j) != tkCloseBrace; j = nextSig(j)) {
        if (t_.end(j).line > line && !bracketed && type(j) != tkOpenParen && type(j) != tkVolatile) break;
        if (type(j) == tkOpenParen) {
            form = AsmNode::kOneLineWithParen;
            if (t_.mate(j) != kNone) bracketed = true, j = t_.mate(j);
            if (nextType(j) != tkSemicolon && t_.token(nextSig(j)).line > line) {
                j = nextSig(j);
                break;
            }
        }
    }
    if (first < j) {
        const Index last = t_.significantBefore(j);
        body->append(std::make_unique<TextNode>(joined(first, j), t_.start(first), t_.end(last)));
        body->setStart(t_.start(first));
        body->setEnd(t_.end(last));
        at_ = last + 1;
    } else {
        at_ = keyword + 1;
        body = nullptr;
    }
    return std::make_unique<AsmNode>(word.release(), body.release(), form);
}

/// Reads up to and with the ";", or to where another statement or a directive shows that it is
/// missing. A brace inside parentheses belongs to the text with all that it holds.
TreeBuilder::NodePtr TreeBuilder::parseExpressionStatement() {
    const Index first = sig(at_);
    int parens = 0;
    bool isTemplate = false;
    Index last = kNone;
    for (Index j = first;; ++j) {
        const int kind = type(j);
        if (isComment(kind)) continue;
        if (kind == tkDirective) {
            if (last != kNone) break;
            continue;
        }
        if (kind == tkEnd || kind == tkInvalid) {
            reportEnd(j);
            if (last == kNone) {
                at_ = j;
                return nullptr;
            }
            break;
        }
        if (kind == tkSemicolon && parens == 0) {
            last = j;
            break;
        }
        const bool begins = (kind >= tkIf && kind <= tkDefault) || kind == tkOpenBrace || kind == tkCloseBrace ||
                            kind == tkReturn || (kind == tkThrow && last != kNone && type(last) == tkCloseParen) ||
                            ((kind == tkClass || kind == tkStruct) && !isTemplate);
        if (begins && parens == 0 && last != kNone) break;
        if (begins && parens == 0 && (kind == tkOpenBrace || kind == tkCloseBrace)) break;
        if (kind == tkCloseBrace && t_.mate(j) != kNone && t_.mate(j) < first) break; // the end of the block around
        if (kind == tkTemplate) isTemplate = true;
        if (kind == tkOpenParen) ++parens;
        if (kind == tkCloseParen && parens > 0) --parens;
        last = j;
        if (kind == tkOpenBrace && t_.mate(j) != kNone) last = j = t_.mate(j);
        if (kind == tkLess && t_.mate(j) != kNone && isTemplate) last = j = t_.mate(j);
    }
    if (last == kNone) {
        at_ = first;
        return nullptr;
    }
    at_ = last + 1;
    return std::make_unique<ExprNode>(joined(first, last + 1), t_.start(first), t_.end(last));
}

} // namespace Cpp
