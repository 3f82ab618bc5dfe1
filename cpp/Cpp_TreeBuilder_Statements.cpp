#include "cpp/Cpp_TreeBuilder.h"

#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

namespace {

bool isControl(int type) { return type >= tkIf && type <= tkSwitch; }

bool startsData(int type) {
    return type == tkConst || type == tkVolatile || type == tkAuto || (type >= tkChar && type <= tkVoid);
}

/// What behind a name shows that the name is that of a type.
bool startsDataBehindName(int type) {
    return type == tkAsterisk || type == tkAmpersand || type == tkLess || type == tkIdentifier;
}

/// What can stand behind the comma of a declaration at the start of the next declarator.
bool startsDeclarator(int type) {
    return type == tkIdentifier || type == tkAsterisk || type == tkAmpersand || type == tkLogicalAnd || type == tkOpenParen;
}

/// Where a label without a colon is given up.
bool endsCase(int type) {
    return type == tkEnd || type == tkInvalid || type == tkSemicolon || type == tkCloseBrace;
}

/// A token behind which an operand is complete, so that a word such as "throw" does not go on with it.
bool endsOperand(int type) {
    switch (type) {
    case tkCloseParen: case tkCloseBracket: case tkCloseBrace: case tkIdentifier: case tkNumber: case tkStringLiteral:
    case tkCharLiteral: case tkIncrement: case tkDecrement: case tkThis: case tkTrue: case tkFalse:
        return true;
    default:
        return false;
    }
}

bool startsDeclaration(int type) {
    return type == tkClass || type == tkStruct || type == tkStatic || type == tkTypedef || type == tkEnum || type == tkUnion;
}

} // namespace

/// Reads one statement or a compound one. Always returns a block with the statement in it.
TreeBuilder::Ptr<BlockNode> TreeBuilder::parseBlock() {
    auto block = make<BlockNode>();
    if (tooDeep(at_)) return block;
    const Depth depth(*this);
    at_ = sig(at_);
    switch (type(at_)) {
    case tkSemicolon:
        block->setStart(t_.start(at_));
        block->setEnd(t_.end(at_));
        ++at_;
        break;
    case tkOpenBrace:
        if (isUnclosed(at_)) break;
        block->setStart(t_.start(at_));
        ++at_;
        parseCompound(*block);
        break;
    case tkCloseBrace:
        break;
    case tkEnd:
        reportEnd(at_);
        break;
    default: {
        const Index first = at_;
        parseSingleStatement(*block);
        takeCode(first, at_);
        break;
    }
    }
    return block;
}

/// The one statement that a control statement has without braces. What only a compound statement can
/// hold, such as a label, is an expression here: its siblings would stand outside of the block.
void TreeBuilder::parseSingleStatement(BlockNode& block) {
    const Index word = skipAttributes(at_);
    const int kind = type(word);
    const int next = nextType(word);
    const bool wordIsData = startsDataBehindName(next);
    if (startsDeclaration(kind)) {
        parseDeclarationStatement(block);
    } else if (isControl(kind)) {
        addUnlessNull(block, parseCtrlStmt());
    } else if (isAsm(at_)) {
        addUnlessNull(block, parseAsm());
    } else if (startsData(kind) || (kind == tkIdentifier && wordIsData)) {
        parseDataStatement(block, Declarators::Together);
        takeBraces(block);
    } else {
        addUnlessNull(block, parseExpressionStatement());
        takeBraces(block);
    }
}

/// Takes the braces in which the one statement of a control statement was left, and what follows them up to
/// the ";": a value, as in "return T{0};", a closure, or the body of a macro that makes a loop. Outside of
/// the block they would end the control statement in front of its "else".
void TreeBuilder::takeBraces(BlockNode& block) {
    while (!block.empty() && type(sig(at_)) == tkOpenBrace && type(lastTaken(at_)) != tkSemicolon) {
        const Index close = t_.mate(sig(at_));
        addUnlessNull(block, parseBlock());
        const Index next = sig(at_);
        if (type(next) == tkSemicolon) at_ = next + 1;
        else if (close != kNone && continuesValue(close, next)) addUnlessNull(block, parseExpressionStatement());
    }
}

/// Whether the token at `next` goes on with a value that ends in the brace at `close`. A "(" must touch it:
/// else it may start a statement.
bool TreeBuilder::continuesValue(Index close, Index next) const {
    const int kind = type(next);
    if (kind == tkOpenParen) return t_.token(next).begin == t_.token(close).end;
    return kind == tkDot || kind == tkArrow || kind == tkComma || kind == tkQuestion || kind == tkColon ||
           (kind >= tkLess && kind <= tkBar) || kind == tkLogicalAnd || kind == tkLogicalOr;
}

void TreeBuilder::parseCompound(BlockNode& block) {
    const Index outerUnterminated = unterminatedFrom_;
    unterminatedFrom_ = kNone;
    for (;;) {
        addNotes(block);
        const Index before = at_;
        if (type(at_) == tkCloseBrace) {
            block.setEnd(t_.end(at_));
            ++at_;
            break;
        }
        if (type(at_) == tkEnd) {
            reportEnd(at_);
            block.setEnd(t_.end(lastTaken(at_)));
            break;
        }
        const Turn turn = beginTurn(block);
        parseStatement(block);
        const bool isRead = endTurn(block, turn);
        if (at_ == before) ++at_;
        if (isRead) takeCode(before, at_);
    }
    unterminatedFrom_ = outerUnterminated;
}

/// One statement of a compound one. An attribute in front of it is a part of it.
void TreeBuilder::parseStatement(BlockNode& block) {
    const Index word = skipAttributes(at_);
    const int kind = type(word);
    const bool attributed = word != at_;
    if (isBehindBody(at_)) parseDataStatement(block, Declarators::Apart);
    else if (startsDeclaration(kind)) parseDeclarationStatement(block);
    else if (startsData(kind) || (attributed && kind == tkIdentifier && startsDataBehindName(nextType(word))))
        parseDataStatement(block, Declarators::Apart);
    else if (isControl(kind)) addUnlessNull(block, parseCtrlStmt());
    else if (kind == tkCase || kind == tkDefault) addUnlessNull(block, parseCase());
    else parseStatementWord(block);
}

/// A declaration that begins with a keyword; what is none is read as a statement.
void TreeBuilder::parseDeclarationStatement(BlockNode& block) {
    const Index first = at_;
    const std::size_t reported = messages_.size();
    NodePtr node = parseDeclaration(false);
    if (!node && messages_.size() == reported) {
        at_ = first;
        node = parseExpressionStatement();
    }
    addUnlessNull(block, std::move(node));
}

void TreeBuilder::parseStatementWord(BlockNode& block) {
    switch (type(at_)) {
    case tkInvalid:
        reportEnd(at_++);
        return;
    case tkSemicolon:
        ++at_;
        return;
    case tkOpenBrace:
        addUnlessNull(block, isValueBrace(at_) ? parseExpressionStatement() : parseBlock());
        return;
    case tkPublic: case tkPrivate: case tkProtected:
        if (inMacroBody_) addUnlessNull(block, parseAccessLabel());
        else report(8, at_++);
        return;
    case tkTemplate:
        if (inMacroBody_) addUnlessNull(block, parseTemplate());
        else report(9, at_++);
        return;
    case tkNamespace:
        if (type(nextSig(at_)) == tkIdentifier && nextType(nextSig(at_)) == tkAssign) skipThroughSemicolon(&block);
        else if (inMacroBody_) addUnlessNull(block, parseNamespace());
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
    else if (next == tkSemicolon || startsDataBehindName(next)) parseDataStatement(block, Declarators::Apart);
    else addUnlessNull(block, parseExpressionStatement());
}

/// A declaration of data. In a compound statement each declarator ends at its comma, and the next one
/// is read as data at once. What is none is read as a statement from the same tokens on.
void TreeBuilder::parseDataStatement(BlockNode& block, Declarators declarators) {
    for (;;) {
        const Index first = at_;
        DataRun run;
        if (unterminatedFrom_ == kNone || first < unterminatedFrom_) run = collectData(first, first, declarators);
        NodePtr node = run.hasTerminator ? parseData(first, run.end, run, false) : nullptr;
        if (!node) {
            at_ = first;
            if (!run.hasTerminator) noteUnterminated(first, run);
            addUnlessNull(block, parseExpressionStatement());
            return;
        }
        block.append(std::move(node));
        if (type(run.end) != tkComma) return;
        addNotes(block);
        if (!startsDeclarator(type(at_))) return;
    }
}

/// Remembers that no ";" follows in this block, so that no other statement of it searches for one.
void TreeBuilder::noteUnterminated(Index first, const DataRun& run) {
    if (run.end == 0 || (type(run.end) != tkCloseBrace && type(run.end) != tkEnd)) return;
    unterminatedFrom_ = first;
    if (run.initialised && startsData(type(first))) reportEnd(run.end);
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
    if (!isControl(type(skipAttributes(at_)))) {
        report(11, at_++);
        return nullptr;
    }
    auto statement = make<CtrlStmtNode>();
    for (int before = tkEnd;;) {
        const int keyword = type(skipAttributes(sig(at_)));
        Ptr<CtrlSubStmtNode> part = parseCtrlSub(before);
        if (!part) return nullptr;
        statement->append(std::move(part));
        const Index next = sig(at_);
        bool directive = false;
        for (Index j = at_; j < next; ++j) directive = directive || type(j) == tkDirective;
        if (!continues(keyword, directive, next)) return statement;
        addNotes(*statement);
        before = keyword;
    }
}

/// One part of a control statement, the one in front of which began with the keyword `before`.
TreeBuilder::Ptr<CtrlSubStmtNode> TreeBuilder::parseCtrlSub(int before) {
    const int keyword = type(skipAttributes(sig(at_)));
    Ptr<CtrlSubStmtHeadNode> head = parseCtrlSubHead();
    if (!head) return nullptr;
    Ptr<BlockNode> block;
    const Index next = sig(at_);
    if (keyword == tkWhile && type(next) == tkSemicolon) {
        head->setEnd(t_.end(next));
        at_ = next + 1;
    } else if (keyword != tkWhile || before != tkDo) { // a macro may end in "while (0)" and leave the ";" out
        const Index body = skipAttributes(next); // "[[likely]] {": as a statement it would be the whole body
        if (type(body) == tkOpenBrace) at_ = body;
        block = parseBlock();
        if (block->start().isNone()) block.reset();
    }
    return make<CtrlSubStmtNode>(head.release(), block.release());
}

TreeBuilder::Ptr<CtrlSubStmtHeadNode> TreeBuilder::parseCtrlSubHead() {
    const Index first = sig(at_);
    const Index keyword = skipAttributes(first);
    const int kind = type(keyword);
    const bool bare = kind == tkElse || kind == tkDo || kind == tkTry;
    const Index last = bare ? keyword : lastOfKeyword(keyword);
    at_ = last + 1;
    auto head = make<CtrlSubStmtHeadNode>(part<KeywordNode>(kind, t_.start(first), t_.end(last)), nullptr);
    if (kind == tkTry) takeTryInits(*head);
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

/// The member initializers of a constructor whose body and handlers are one: as the body of the "try"
/// they would take the place of the braces that follow them.
void TreeBuilder::takeTryInits(CtrlSubStmtHeadNode& head) {
    const Index colon = sig(at_);
    if (type(colon) != tkColon) return;
    const Index brace = findInitBody(colon);
    if (type(brace) != tkOpenBrace) return;
    head.setCondition(part<ExprNode>(joined(colon, brace), t_.start(colon), t_.end(t_.significantBefore(brace))));
    at_ = brace;
}

/// The last token of a keyword that more than one word makes up: "if constexpr", "if not consteval", or
/// a macro in place of "constexpr". As a part of the gap the second word would be glued to the first.
TreeBuilder::Index TreeBuilder::lastOfKeyword(Index keyword) const {
    const Index second = nextSig(keyword);
    const bool negated = type(second) == tkExclamation || isWord(second, "not");
    const Index word = negated ? nextSig(second) : second;
    if (isWord(word, "consteval")) return word;
    return type(second) == tkIdentifier && nextType(second) == tkOpenParen ? second : keyword;
}

/// The bracketed condition at the read point. Its text is left to the source.
TreeBuilder::Ptr<ExprNode> TreeBuilder::parseCondition() {
    const Index open = at_;
    const Index close = t_.mate(open);
    for (Index j = nextSig(open); j != close; j = nextSig(j)) {
        const int kind = type(j);
        const bool label = kind == tkDefault && nextType(j) == tkColon; // of a generic selection
        bool stops = kind == tkEnd || kind == tkCloseBrace || kind == tkNamespace || (kind >= tkIf && kind <= tkReturn && !label);
        if (kind == tkOpenBrace) {
            const Index inner = t_.mate(j);
            const int behind = inner == kNone ? int(tkEnd) : nextType(inner);
            stops = close == kNone || inner == kNone || (!isValueBrace(j) && (behind == tkIdentifier || isControl(behind)));
            if (!stops) j = inner;
        }
        if (stops) {
            at_ = j;
            report(12, j);
            return nullptr;
        }
    }
    at_ = close + 1;
    return make<ExprNode>(std::string(), t_.start(open), t_.end(close));
}

TreeBuilder::NodePtr TreeBuilder::parseCase() {
    const Index keyword = skipAttributes(at_);
    auto word = make<KeywordNode>(type(keyword), t_.start(at_), t_.end(keyword));
    const Index first = nextSig(keyword);
    if (type(keyword) == tkDefault) {
        at_ = keyword + 1;
        if (type(first) != tkColon) {
            report("Expected a : immediately following 'default'. Got: " + t_.spelling(first), first);
            return make<CaseNode>(word.release(), nullptr);
        }
        at_ = first + 1;
        return make<CaseNode>(word.release(), nullptr, t_.end(first));
    }
    Index colon = first;
    while (type(colon) != tkColon && !endsCase(type(colon))) {
        if (type(colon) == tkOpenBrace && !isValueBrace(colon)) break;
        const bool opens = type(colon) == tkOpenParen || type(colon) == tkOpenBrace;
        if (opens && t_.mate(colon) != kNone) colon = t_.mate(colon);
        colon = nextSig(colon);
    }
    Ptr<ExprNode> expr;
    if (first < colon)
        expr = make<ExprNode>(joined(first, colon), t_.start(first), t_.end(t_.significantBefore(colon)));
    const bool closed = type(colon) == tkColon;
    at_ = closed ? colon + 1 : colon;
    return make<CaseNode>(word.release(), expr.release(), closed ? t_.end(colon) : Trn::Position());
}

TreeBuilder::NodePtr TreeBuilder::parseLabel() {
    const Index name = at_;
    const Index colon = nextSig(name);
    at_ = colon + 1;
    return make<LabelNode>(part<IdNode>(spelled(name), t_.start(name), t_.end(name)), t_.end(colon));
}

TreeBuilder::NodePtr TreeBuilder::parseAsm() {
    const Index keyword = at_;
    if (!isAsm(keyword)) {
        report("Expected 'asm'. Got: " + t_.spelling(keyword), keyword);
        return nullptr;
    }
    auto word = make<TextNode>(spelled(keyword), t_.start(keyword), t_.end(keyword));
    const Index first = nextSig(keyword);
    if (type(first) == tkOpenBrace) return parseAsmBlock(std::move(word), first);
    std::int32_t form = AsmNode::kOneLine;
    const Index end = findAsmEnd(keyword, form);
    if (first >= end) {
        at_ = keyword + 1;
        return make<AsmNode>(word.release(), nullptr, form);
    }
    const Index last = t_.significantBefore(end);
    auto body = make<BlockNode>();
    body->append(make<TextNode>(joined(first, end), t_.start(first), t_.end(last)));
    body->setStart(t_.start(first));
    body->setEnd(t_.end(last));
    at_ = last + 1;
    return make<AsmNode>(word.release(), body.release(), form);
}

TreeBuilder::NodePtr TreeBuilder::parseAsmBlock(Ptr<TextNode> word, Index brace) {
    const Index close = t_.mate(brace);
    if (close == kNone) {
        reportEnd(t_.size());
        at_ = brace + 1;
        return nullptr;
    }
    auto body = make<BlockNode>();
    body->setStart(t_.start(brace));
    body->setEnd(t_.end(close));
    const Index first = nextSig(brace);
    if (first < close) {
        const Index last = t_.significantBefore(close);
        body->append(make<TextNode>(joined(first, close), t_.start(first), t_.end(last)));
    }
    at_ = close + 1;
    return make<AsmNode>(word.release(), body.release(), AsmNode::kBraced);
}

/// Where assembler without braces ends: at the ";" or the end of the line, but never in a bracket.
TreeBuilder::Index TreeBuilder::findAsmEnd(Index keyword, std::int32_t& form) const {
    const std::uint32_t line = t_.token(keyword).line;
    bool bracketed = false; // until then a "(" on a later line opens the operands
    Index j = nextSig(keyword);
    for (; type(j) != tkEnd && type(j) != tkSemicolon && type(j) != tkCloseBrace; j = nextSig(j)) {
        if (t_.end(j).line > line && !bracketed && type(j) != tkOpenParen && type(j) != tkVolatile) break;
        if (type(j) != tkOpenParen) continue;
        form = AsmNode::kOneLineWithParen;
        if (t_.mate(j) != kNone) {
            bracketed = true;
            j = t_.mate(j);
        }
        const Index next = nextSig(j);
        if (type(next) != tkSemicolon && t_.token(next).line > line) return next;
    }
    return j;
}

/// Whether the token at `j` shows that the statement in front of it has lost its ";". `prev` is the
/// token before.
bool TreeBuilder::beginsStatement(Index j, Index prev, bool isTemplate) const {
    const int kind = type(j);
    if (kind == tkClass || kind == tkStruct) return !isTemplate;
    if (kind == tkThrow) return endsOperand(type(prev));
    if (kind == tkOpenBrace) return !isValueBrace(j);
    return (kind >= tkIf && kind <= tkDefault) || kind == tkCloseBrace || kind == tkReturn;
}

/// Reads up to and with the ";", or to where another statement or a directive shows that it is
/// missing. A brace inside parentheses belongs to the text with all that it holds.
TreeBuilder::NodePtr TreeBuilder::parseExpressionStatement() {
    const Index first = sig(at_);
    const bool isTemplate = type(first) == tkTemplate || nextType(first) == tkTemplate;
    int parens = 0;
    Index last = kNone;
    for (Index j = first;; ++j) {
        const int kind = type(j);
        if (isComment(kind)) continue;
        if (kind == tkDirective) break;
        const bool blockEnds = kind == tkCloseBrace && (t_.mate(j) == kNone || t_.mate(j) < first);
        if (kind == tkEnd || kind == tkInvalid || (blockEnds && parens > 0)) {
            reportEnd(j);
            break;
        }
        if (blockEnds || (kind == tkOpenBrace && parens == 0 && !isValueBrace(j))) break;
        if (last != kNone && parens == 0 && beginsStatement(j, last, isTemplate)) break;
        last = j;
        if (kind == tkSemicolon && parens == 0) break;
        if (kind == tkOpenParen) ++parens;
        if (kind == tkCloseParen && parens > 0) --parens;
        if ((kind == tkOpenBrace || kind == tkLess) && t_.mate(j) != kNone) last = j = t_.mate(j);
    }
    if (last == kNone) {
        at_ = first;
        return nullptr;
    }
    at_ = last + 1;
    return make<ExprNode>(NodeText::statement(t_, first, last + 1), t_.start(first), t_.end(last));
}

} // namespace Cpp
