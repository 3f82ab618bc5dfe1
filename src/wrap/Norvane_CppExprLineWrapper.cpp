#include "src/wrap/Norvane_CppExprLineWrapper.h"

#include "cpp/Cpp_Tokens.h"
#include "src/wrap/Norvane_WrapFinders.h"
#include "src/wrap/Norvane_WrapLayout.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Norvane {

using namespace Cpp;

namespace {

constexpr WrapKinds kLogicalOperators{tkLogicalAnd, tkLogicalOr};
// A "&&" in front of one of these is no operator but marks a reference.
constexpr WrapKinds kNoOperand{tkComma,        tkGreater,    tkCloseParen, tkCloseBracket,
                               tkCloseBrace, tkSemicolon, tkDot};
constexpr WrapKinds kComma{tkComma};
constexpr WrapKinds kSemicolon{tkSemicolon};
constexpr WrapKinds kExpressionOperators{tkColon,      tkSlash, tkPlus,    tkMinus, tkPercent,
                                         tkShiftLeft,  tkShiftRight, tkLess, tkGreater, tkEqual,
                                         tkNotEqual,   tkBar, tkQuestion};
// "<=" and ">=" are in it, so that a comparison breaks behind its left side as an assignment does.
constexpr WrapKinds kAssignmentOperators{tkAssign,       tkAndAssign,      tkMulAssign,  tkXorAssign,
                                         tkGreaterEqual, tkShiftLeftAssign, tkLessEqual, tkSubAssign,
                                         tkModAssign,    tkOrAssign,       tkAddAssign,  tkShiftRightAssign};

bool isBlankText(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

// Two literals have four quotes; fewer can't be a run of them.
bool mayHoldStringRun(std::string_view text) {
    int quotes = 0;
    for (std::size_t at = text.find('"'); at != std::string_view::npos; at = text.find('"', at + 1)) {
        if (++quotes == 4) return true;
    }
    return false;
}

class FlagGuard {
public:
    FlagGuard(bool& flag, bool value) : flag_(flag), saved_(flag) { flag_ = value; }
    ~FlagGuard() { flag_ = saved_; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& flag_;
    bool saved_;
};

std::size_t behindReturn(const WrapText& text, const WrapRange& range) {
    std::size_t first = range.begin;
    while (first < range.end && isCommentOrDirective(text.kind(first))) ++first;
    return first < range.end && text.kind(first) == tkReturn ? first + 1 : range.begin;
}

// The left side of an assignment is never broken, so what is wrapped starts behind the operator. A
// left side with operators of its own is an operand like any other.
std::size_t behindAssignment(const WrapText& text, const WrapRange& range) {
    int depth = 0;
    for (std::size_t i = range.begin; i < range.end; ++i) {
        const int kind = text.kind(i);
        if (kExpressionOperators.has(kind) || kLogicalOperators.has(kind)) return range.begin;
        if (depth == 0 && kAssignmentOperators.has(kind)) return i + 1;
        if (kind == tkOpenParen || kind == tkOpenBrace || kind == tkOpenBracket) ++depth;
        if (kind == tkCloseParen || kind == tkCloseBrace || kind == tkCloseBracket) --depth;
    }
    return range.begin;
}

WrapRange bodyOf(const WrapText& text, const WrapRange& range) {
    const WrapRange behindKeyword{behindReturn(text, range), range.end};
    return {behindAssignment(text, behindKeyword), range.end};
}

} // namespace

std::string CppExprLineWrapper::wrap(const std::string& text, const Zelmar::IndentStreamState& state, bool,
                                     bool noWrapIndent, std::string_view follower) {
    if (!isOn() || (fits(text, state, follower) && !mayHoldStringRun(text))) return text;
    const FlagGuard guard(noWrapIndent_, noWrapIndent);
    WrapLayout layout(text, state, rules().rightMargin, follower);
    wrapRange(layout, layout.text().all());
    return layout.result();
}

std::string CppExprLineWrapper::wrapList(const std::string& text, const Zelmar::IndentStreamState& state,
                                         bool noWrapIndent, std::string_view follower) {
    if (!isOn()) return text;
    const bool over = rules().listStrategy != ListStrategy::kKeepLines && !fits(text, state, follower);
    if (over && rules().listStrategy == ListStrategy::kOneToALine) return wrap(text, state, true, noWrapIndent, follower);
    if (!over && !mayHoldStringRun(text)) return text;
    const FlagGuard guard(noWrapIndent_, noWrapIndent);
    WrapLayout layout(text, state, rules().rightMargin, follower);
    if (over) wrapListElements(layout);
    breakStrings(layout, layout.text().all());
    return layout.result();
}

std::string CppExprLineWrapper::wrapRows(const std::string& text, const Zelmar::IndentStreamState& state,
                                         std::string_view follower) {
    const FlagGuard guard(startsAtIndent_, true);
    return wrapList(text, state, true, follower);
}

std::string CppExprLineWrapper::wrapStatementParts(const std::string& text,
                                                   const Zelmar::IndentStreamState& state,
                                                   std::string_view follower) {
    if (!isOn() || fits(text, state, follower)) return text;
    const FlagGuard guard(noWrapIndent_, false);
    WrapLayout layout(text, state, rules().rightMargin, follower);
    const WrapRange all = layout.text().all();
    FindFirstElem semicolons(kSemicolon);
    wrapAt(layout, all, semicolons, true, state.indent);
    for (WrapRange part{0, 0}; part.end < all.end; part.begin = part.end) {
        part.end = std::min(semicolons.find(layout.text(), {part.begin, all.end}) + 1, all.end);
        if (layout.isOver(part)) wrapRange(layout, part);
    }
    return layout.result();
}

bool CppExprLineWrapper::fits(std::string_view text, const Zelmar::IndentStreamState& state,
                              std::string_view follower) const {
    const int tab = std::max(state.tabSize, 1);
    int column = state.column;
    while (true) {
        const std::size_t feed = text.find('\n');
        const std::string_view line = text.substr(0, feed);
        column = Zelmar::textColumn(line, column, tab);
        if (feed == std::string_view::npos) break;
        if (column > rules().rightMargin && !isBlankText(line)) return false;
        text.remove_prefix(feed + 1);
        column = 0;
    }
    return Zelmar::textColumn(follower.substr(0, follower.find('\n')), column, tab) <= rules().rightMargin;
}

void CppExprLineWrapper::wrapRange(WrapLayout& layout, const WrapRange& range) const {
    if (!layout.isOver(range)) return breakStrings(layout, range);
    const WrapRange body = bodyOf(layout.text(), range);
    wrapCalls(layout, body, 1);
    wrapExpression(layout, body, layout.state().indent);
    wrapBraces(layout, body);
    wrapNested(layout, body);
    wrapTails(layout, body);
    breakStrings(layout, body);
}

void CppExprLineWrapper::wrapExpression(WrapLayout& layout, const WrapRange& range,
                                        const std::string& indent) const {
    if (!layout.isOver(range)) return;
    FindFirstElem commas(kComma);
    wrapAt(layout, range, commas, rules().commaBreak == BreakStyle::kLast, indent);
    if (!layout.isOver(range)) return;
    wrapShifts(layout, range, indent);
    if (!layout.isOver(range)) return;
    FindFirstElem logicals(kLogicalOperators, kNoOperand);
    wrapAt(layout, range, logicals, rules().exprBreak == BreakStyle::kLast, indent);
    if (!layout.isOver(range)) return;
    FindFirstBinaryOp operators;
    wrapAt(layout, range, operators, rules().exprBreak == BreakStyle::kLast, indent);
    if (layout.isOver(range)) wrapCasts(layout, range, indent);
}

void CppExprLineWrapper::wrapCasts(WrapLayout& layout, const WrapRange& range,
                                   const std::string& indent) const {
    FindFirstCast casts;
    wrapAt(layout, range, casts, true, indent);
    FindFirstOldCast oldCasts;
    wrapAt(layout, range, oldCasts, true, indent);
}

// Arguments go under the name of their function, before the expression around it is touched.
std::string CppExprLineWrapper::groupIndent(const WrapLayout& layout, const GroupFinder& group) const {
    if (!group.precedingIsName()) return layout.state().indent;
    return indentTo(layout, layout.state().indent, layout.column(group.preceding()));
}

void CppExprLineWrapper::wrapGroup(WrapLayout& layout, const GroupFinder& group) const {
    if (layout.isOver(group.inner())) wrapExpression(layout, group.inner(), groupIndent(layout, group));
}

void CppExprLineWrapper::wrapCalls(WrapLayout& layout, const WrapRange& range, std::size_t depth) const {
    GroupFinder groups(layout.text(), GroupFinder::Brackets::kParens, range, depth);
    while (groups.findNext()) {
        if (groups.precedingIsName()) wrapGroup(layout, groups);
    }
}

void CppExprLineWrapper::wrapGroups(WrapLayout& layout, const WrapRange& range, std::size_t depth) const {
    GroupFinder groups(layout.text(), GroupFinder::Brackets::kParens, range, depth);
    while (groups.findNext()) wrapGroup(layout, groups);
}

void CppExprLineWrapper::wrapBraces(WrapLayout& layout, const WrapRange& range) const {
    for (std::size_t depth = 1; depth <= layout.text().braceDepth() && layout.isOver(range); ++depth) {
        GroupFinder groups(layout.text(), GroupFinder::Brackets::kBraces, range, depth);
        while (groups.findNext()) wrapExpression(layout, groups.inner(), layout.state().indent);
    }
}

void CppExprLineWrapper::wrapNested(WrapLayout& layout, const WrapRange& range) const {
    const std::size_t deepest = layout.text().parenDepth();
    for (std::size_t depth = 1; depth <= deepest && layout.isOver(range); ++depth) {
        wrapCalls(layout, range, depth + 1);
        if (layout.isOver(range)) wrapGroups(layout, range, depth);
    }
}

// What is in parentheses may fit and yet be the only thing on its line that can be broken:
//
//     total = compute(first, second).scaled() * factor;
void CppExprLineWrapper::wrapTails(WrapLayout& layout, const WrapRange& range) const {
    layout.setTail(WrapLayout::Tail::kLine);
    const std::size_t deepest = layout.text().parenDepth();
    for (std::size_t depth = 1; depth <= deepest && layout.isOver(range); ++depth) {
        GroupFinder groups(layout.text(), GroupFinder::Brackets::kParens, range, depth);
        while (groups.findNext()) {
            if (mayGain(layout, groups)) wrapGroup(layout, groups);
        }
    }
    layout.setTail(WrapLayout::Tail::kStuck);
}

// A break is worth while if what follows the parentheses would fit on a new line. An operator that ends
// the line alone is not worth it.
bool CppExprLineWrapper::mayGain(const WrapLayout& layout, const GroupFinder& group) const {
    if (group.inner().empty() || layout.countLooseBehind(group.close()) < 2) return false;
    const int column = layout.column(group.inner().begin);
    const std::string newLine = newLineAt(layout, groupIndent(layout, group), column);
    const int behind = layout.lineEndColumn(group.close()) - layout.column(group.inner().end - 1);
    return Zelmar::textColumn(newLine, 0, std::max(layout.state().tabSize, 1)) + behind <= rules().rightMargin;
}

std::string CppExprLineWrapper::indentTo(const WrapLayout& layout, const std::string& indent,
                                         int column) const {
    const Zelmar::IndentStreamState& state = layout.state();
    return Zelmar::makeIndent(indent, state.wsMode, state.tabSize, std::min(column, rules().rightMargin));
}

std::string CppExprLineWrapper::newLineAt(const WrapLayout& layout, const std::string& indent,
                                          int column) const {
    const WrapStyle style = startsAtIndent_ ? WrapStyle::kIndented : rules().style;
    if (style == WrapStyle::kAligned) return converted(layout, indentTo(layout, indent, column));
    if (style != WrapStyle::kIndented) return std::string();
    const std::string wrapped = noWrapIndent_ ? indent : indent + rules().indent.value;
    const int width = Zelmar::textColumn(wrapped, 0, std::max(layout.state().tabSize, 1));
    return converted(layout, width > rules().rightMargin ? indentTo(layout, std::string(), width) : wrapped);
}

// The text was converted before it came here, and its new lines must look as if they had been too.
std::string CppExprLineWrapper::converted(const WrapLayout& layout, const std::string& indent) {
    const Zelmar::IndentStreamState& state = layout.state();
    if (state.wsMode == Zelmar::kWsKeep) return indent;
    const int width = Zelmar::textColumn(indent, 0, std::max(state.tabSize, 1));
    return Zelmar::makeIndent(std::string_view(), state.wsMode, state.tabSize, width);
}

} // namespace Norvane
