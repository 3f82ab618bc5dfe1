#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

namespace Norvane {

namespace {

int keywordOf(const Cpp::CtrlSubStmtHeadNode* head) {
    return head != nullptr && head->keyword() != nullptr ? head->keyword()->keyword() : Cpp::tkInvalid;
}

/// The "else" part holds nothing but an "if" that follows it directly.
bool isElseIf(const Cpp::CtrlSubStmtNode& node) {
    if (keywordOf(node.head()) != Cpp::tkElse || node.block() == nullptr || node.block()->size() != 1) return false;
    const auto* nested = dynamic_cast<const Cpp::CtrlStmtNode*>(node.block()->child(0));
    if (nested == nullptr || nested->empty()) return false;
    const auto* first = dynamic_cast<const Cpp::CtrlSubStmtNode*>(nested->child(0));
    return first != nullptr && first->start() == node.block()->start() && keywordOf(first->head()) == Cpp::tkIf;
}

struct Semicolons {
    std::size_t first = std::string_view::npos;
    std::size_t last = std::string_view::npos;
};

/// The semicolons that part the clauses of a "for" head. Those in literals, comments and the bodies
/// of closures do not.
Semicolons findSemicolons(std::string_view text) {
    Semicolons found;
    Cpp::Scanner scanner(text);
    int depth = 0;
    for (Cpp::RawToken token; scanner.next(token);) {
        depth += bracketStep(token.type);
        if (token.type != Cpp::tkSemicolon || depth != 0) continue;
        if (found.first == std::string_view::npos) found.first = token.begin;
        found.last = token.begin;
    }
    return found;
}

} // namespace

void CppFormatter::visit(Cpp::BlockNode& node) {
    const PendingScope pending(*this);
    const BaseScope scope(*this, beginBlock(node));
    writeBody(node, {options_.globalIndentContent, options_.globalWsAfterOpenBrace, options_.globalWsBeforeCloseBrace});
}

CppFormatter::Base CppFormatter::beginBlock(const Cpp::BlockNode& node) {
    const Position start = node.start();
    const bool oneLine = isOneLiner(node) && !hasLineFeed(input_.peekUpTo(start));
    const OptionalString& option = onOneLine(options_.globalWsBeforeOpenBrace, oneLine);
    if (option.set && output_.column() == 0 && isBlank(input_.peekUpTo(start))) {
        writeBlockOnNewLine(node);
    } else if (option.set) {
        const Base line = lineBase();
        const GapEnd end = splitGapEnd(readGapBefore(node, option.value), option.value);
        writeSource(end.kept);
        if (sourceOwnsEdge() && hasLineFeed(end.value) && !leavesIndent(node, option.value)) {
            writeAtBase(end.value, line);
        } else {
            output_.writeExact(end.value);
        }
    }
    copyUpTo(start);
    return keepsShape() ? constructHere() : lineBase();
}

// The line of the brace has begun: one line feed of the value is there already, and blanks alone
// part the brace from nothing. It is no further line of the statement in front.
void CppFormatter::writeBlockOnNewLine(const Cpp::BlockNode& node) {
    output_.setShape({});
    readUpTo(sourceOwnsEdge() ? lineOrStart(node) : node.start());
    std::string_view value = options_.globalWsBeforeOpenBrace.value;
    value = value.substr(value.starts_with('\n') ? 1 : value.size());
    output_.writeExact(sourceOwnsEdge() ? value.substr(0, value.rfind('\n') + 1) : value);
}

// A block has the indentation of the line on which it opens.
CppFormatter::Base CppFormatter::lineBase() {
    Base base = baseHere();
    base.column = ownsShape() ? output_.lineIndent() : output_.indentWidth();
    if (base.ofSource) {
        const std::string_view indent = output_.text().substr(base.lineBegin, base.indentSize);
        base.column = Zelmar::textColumn(indent, 0, output_.tabSize());
    }
    return base;
}

void CppFormatter::visit(Cpp::CtrlStmtNode& node) {
    if (node.empty()) return;
    Base column = base();
    if (inElseIf_) {
        joinElseIf(node.start());
    } else {
        column = constructAt(node.start());
        if (isFunctionTry(node)) column = lineBase();
    }
    const BaseScope scope(*this, column);
    const bool oneLine = isOneLiner(node);
    if (!oneLine && options_.keepOneLiners && node.start().line == node.end().line) breakParts(node);
    const OneLine line(*this, node.start(), oneLine && separatorOf(node).breaksLine());
    const OptionalString& separator = onOneLine(separatorOf(node), oneLine);
    bool previousNoted = false;
    for (auto it = node.childBegin(); it != node.childEnd(); ++it) {
        const bool noted = isNote(**it);
        if (it != node.childBegin() && separator.set && !noted && !previousNoted) {
            moveGapEnd(readUpTo((*it)->start()), separator.value, base());
        }
        if (it != node.childBegin()) armShape(**it);
        (*it)->accept(*this);
        previousNoted = noted;
    }
}

// Of a statement that is too long for its line no part stays on one either.
void CppFormatter::breakParts(const Cpp::CtrlStmtNode& node) {
    for (std::size_t i = 0; i < node.size(); ++i) {
        const auto* part = dynamic_cast<const Cpp::CtrlSubStmtNode*>(node.child(i));
        if (part != nullptr && part->block() != nullptr) broken_.insert(source_.offsetOf(part->block()->start()));
    }
}

// A "try" behind the parameters of a function is the start of its body.
bool CppFormatter::isFunctionTry(const Cpp::CtrlStmtNode& node) const {
    const auto* part = dynamic_cast<const Cpp::CtrlSubStmtNode*>(node.child(0));
    if (part == nullptr || keywordOf(part->head()) != Cpp::tkTry || startsLine(node.start())) return false;
    return trimmedRight(sourceText().substr(0, source_.offsetOf(node.start()))).ends_with(')');
}

// The "if" of an "else if" stands behind its "else". A comment between them keeps its distance.
void CppFormatter::joinElseIf(const Position& start) {
    const std::string_view gap = readUpTo(start);
    if (sourceOwnsEdge() || startsInLineComment(gap) || endsInLineComment(gap)) return writeSource(gap);
    const std::string_view inner = trimmedBoth(gap);
    if (!inner.empty()) {
        output_.writeExact(" ");
        writeSource(inner);
    }
    output_.writeExact(" ");
}

// Where the first part has no braces, the next one would read as part of its statement.
const OptionalString& CppFormatter::separatorOf(const Cpp::CtrlStmtNode& node) const {
    if (!options_.wsBetweenCs.set || node.size() < 2) return noWs();
    const auto* first = dynamic_cast<const Cpp::CtrlSubStmtNode*>(node.child(0));
    const bool braced = first != nullptr && first->block() != nullptr && hasBrace(*first->block());
    return braced ? options_.wsBetweenCs : lineFeedWs();
}

void CppFormatter::visit(Cpp::CtrlSubStmtNode& node) {
    inElseIf_ = !inElseIf_ && isElseIf(node);
    if (node.head() != nullptr) node.head()->accept(*this);
    if (node.block() != nullptr) writeCtrlBody(*node.block(), node.head());
}

// An "if" behind an "else" is not indented against it.
void CppFormatter::writeCtrlBody(Cpp::BlockNode& body, const Cpp::CtrlSubStmtHeadNode* head) {
    static const OptionalString atBase{true, ""};
    const OptionalString& after = options_.wsAfterCsOpenBrace;
    const OptionalString& before = options_.wsBeforeCsCloseBrace;
    const PendingScope pending(*this);
    if (inElseIf_) {
        writeBody(body, {sourceOwnsEdge() ? noWs() : atBase, after, before});
        inElseIf_ = false;
        return;
    }
    if (head != nullptr) pushPending(hasBrace(body) ? options_.wsBeforeCsOpenBrace : after);
    const bool isSwitch = keywordOf(head) == Cpp::tkSwitch;
    writeBody(body, {isSwitch ? options_.indentCsCaseContent : options_.indentCsContent, after, before});
}

void CppFormatter::visit(Cpp::CtrlSubStmtHeadNode& node) {
    if (node.keyword() != nullptr) node.keyword()->accept(*this);
    if (node.condition() == nullptr) return;
    const Position start = node.condition()->start();
    const bool sourceEdge = sourceOwnsEdge();
    const bool shaped = output_.shape().kept;
    const Edge edge(*this, shaped ? output_.indent() : std::string(), !shaped);
    if (options_.wsAfterCsKey.set) {
        const std::string_view source = readUpTo(start);
        if (staysBroken(source, options_.wsAfterCsKey.value)) {
            writeSource(source);
        } else {
            std::string gap(source);
            replaceGapEnds(gap, {}, {});
            output_.write(gap);
            // Behind a line comment or a joined line blanks part the parenthesis from nothing.
            const bool parts = output_.column() != 0 && !endsInLineComment(gap);
            writeAtBase(parts ? std::string_view(options_.wsAfterCsKey.value) : std::string_view(), base());
        }
    }
    copyUpTo(start);
    writeCondition(keywordOf(&node), readThrough(node.condition()->end()), sourceEdge);
}

void CppFormatter::writeCondition(int keyword, std::string_view text, bool sourceEdge) {
    if (text.size() < 2 || text.front() != '(' || text.back() != ')') return formatCondition(keyword, text);
    output_.put('(');
    Base paren = baseHere();
    paren.ofSource = sourceEdge;
    const bool clauses = keyword == Cpp::tkFor && (options_.alignForClausesLeft || options_.wsBetweenCsForClauses.set);
    const bool placed = clauses || options_.wsAfterCsOpenParen.set || options_.wsBeforeCsCloseParen.set;
    writeInParens(keyword, text.substr(1, text.size() - 2), paren);
    if (output_.shape().kept) return output_.put(')');
    --paren.column;
    const Edge edge(*this, placed ? baseIndent(paren) : std::string(), true);
    output_.put(')');
}

void CppFormatter::writeInParens(int keyword, std::string_view inner, const Base& paren) {
    const std::string_view front = inner.substr(0, inner.size() - trimmedLeft(inner).size());
    const bool keepsOpen = options_.keepLineBreaks && hasLineFeed(front) && !options_.wsAfterCsOpenParen.breaksLine();
    const OptionalString& open = keepsOpen ? noWs() : options_.wsAfterCsOpenParen;
    const OptionalString& close = staysBroken(inner, options_.wsBeforeCsCloseParen.value) ? noWs() : options_.wsBeforeCsCloseParen;
    if (keyword == Cpp::tkFor && writeForClauses(inner, paren)) return;
    if (!open.set && !close.set) return formatCondition(keyword, inner);
    const Edge edge(*this, baseIndent(paren), false);
    if (isBlank(inner) || startsInLineComment(inner) || endsInLineComment(inner)) {
        std::string text(inner);
        if (open.set) replaceGapStart(text, open.value);
        if (close.set) replaceGapEnd(text, close.value);
        return formatCondition(keyword, text);
    }
    const std::string_view text = trimmedBoth(inner);
    output_.write(open.set ? std::string_view(open.value) : front);
    formatCondition(keyword, text);
    output_.write(close.set ? std::string_view(close.value) : inner.substr(front.size() + text.size()));
}

// Only the first clause of a "for" can declare anything: in the others "*" and "&" are operators.
void CppFormatter::formatCondition(int keyword, std::string_view text) {
    if (keyword == Cpp::tkCatch) {
        exprFormatter_.formatDeclarationTo(text, output_, options_.wsAfterParamTypeId);
    } else if (keyword == Cpp::tkFor) {
        const std::size_t first = findSemicolons(text).first;
        const std::size_t declared = first == std::string_view::npos ? text.size() : first + 1;
        exprFormatter_.formatDeclarationTo(text.substr(0, declared), output_, noWs());
        exprFormatter_.formatTo(text.substr(declared), output_);
    } else {
        exprFormatter_.formatTo(text, output_);
    }
}

// Returns false where no option asks for it, or where the head has no clauses.
bool CppFormatter::writeForClauses(std::string_view inner, const Base& paren) {
    const bool aligned = options_.alignForClausesLeft;
    if (!aligned && !options_.wsBetweenCsForClauses.set) return false;
    const Semicolons at = findSemicolons(inner);
    if (at.first == std::string_view::npos) return false;
    const std::string_view front = inner.substr(0, inner.size() - trimmedLeft(inner).size());
    const bool opensLine = options_.keepLineBreaks && hasLineFeed(front);
    if (opensLine) {
        writeSource(front);
    } else {
        output_.writeExact(options_.wsAfterCsOpenParen.value);
    }
    Base clause = baseHere();
    clause.ofSource = paren.ofSource;
    const Edge edge(*this, baseIndent(aligned ? clause : paren), false);
    writeForClause(trimmedLeft(inner.substr(0, at.first + 1)), noWs(), true);
    static const OptionalString feed = lineFeedWs();
    const OptionalString& between = aligned && !options_.keepLineBreaks ? feed : options_.wsBetweenCsForClauses;
    if (at.last != at.first) writeForClause(inner.substr(at.first + 1, at.last - at.first), between, false);
    writeForClause(inner.substr(at.last + 1), between, at.last == at.first);
    const std::string_view behind = inner.substr(trimmedRight(inner).size());
    if (options_.keepLineBreaks && hasLineFeed(behind)) {
        writeSource(behind);
    } else if (output_.column() != 0) {
        output_.writeExact(options_.wsBeforeCsCloseParen.value);
    }
    return true;
}

// The white space in front of a clause. A comment behind a semicolon stays on its line, and a clause
// that is left out gets nothing.
void CppFormatter::writeForGap(std::string_view gap, std::string_view clause, const OptionalString& wsBefore) {
    const bool noteOnLine = startsInLineComment(clause) && !hasLineFeed(gap);
    const bool breaks = options_.keepLineBreaks && hasLineFeed(gap);
    if (noteOnLine || (clause == ";" && !breaks && !wsBefore.breaksLine())) return output_.writeExact(gap);
    if (breaks && options_.alignForClausesLeft) return output_.writeExact("\n");
    if (breaks && !wsBefore.breaksLine()) return writeSource(gap);
    if (options_.keepLineBreaks && !wsBefore.set) return output_.writeExact(gap);
    output_.writeExact(wsBefore.value);
}

void CppFormatter::writeForClause(std::string_view clause, const OptionalString& wsBefore, bool isDeclaration) {
    const std::string_view visible = trimmedLeft(clause);
    const std::string_view gap = clause.substr(0, clause.size() - visible.size());
    const std::string_view text = endsInLineComment(visible) ? visible : trimmedRight(visible);
    if (text.empty()) return;
    writeForGap(gap, text, wsBefore);
    if (Cpp::meaningAt(visible, 0) == '#' && output_.column() != 0) output_.put('\n');
    if (isDeclaration) {
        exprFormatter_.formatDeclarationTo(text, output_, noWs());
    } else {
        exprFormatter_.formatTo(text, output_);
    }
}

// Counted from the construct in whose block it stands, as that of a case label is.
void CppFormatter::visit(Cpp::LabelNode& node) {
    copyUpTo(node.start());
    if (!options_.indentLabels.set || output_.column() != 0) return copyThrough(node.end());
    const Edge edge(*this, baseIndent(scopeBase()) + options_.indentLabels.value, false);
    output_.setShape({});
    copyThrough(node.end());
}

void CppFormatter::visit(Cpp::CaseNode& node) {
    const std::string_view gap = readUpTo(node.start());
    const std::size_t line = gap.rfind('\n') + 1;
    writeSource(gap.substr(0, line));
    const OptionalString& spec = options_.indentCsCaseLabels;
    afterCaseLabel_ = true;
    if (!spec.set && sourceOwnsEdge()) {
        writeSource(gap.substr(line));
        return copyThrough(node.end());
    }
    const Edge edge(*this, spec.set ? baseIndent(scopeBase()) + spec.value : baseIndent(scopeBase()), false);
    writeSource(gap.substr(line));
    copyThrough(node.end());
}

} // namespace Norvane
