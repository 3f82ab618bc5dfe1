#include "src/wrap/Norvane_CppExprLineWrapper.h"

#include "cpp/Cpp_Tokens.h"
#include "src/wrap/Norvane_WrapFinders.h"
#include "src/wrap/Norvane_WrapLayout.h"

#include <algorithm>

namespace Norvane {

using namespace Cpp;

namespace {

// A comment behind an operator stays with it, and so does a directive, which has a line of its own
// anyway; the line is broken behind them. With nothing behind them there is nothing to break.
std::size_t headOf(const WrapText& text, const WrapRange& piece) {
    return !piece.empty() && isCommentOrDirective(text.kind(piece.begin)) ? piece.begin + 1 : piece.begin;
}

// What follows the last piece can't leave it; any other piece is followed by a place to break.
bool isPieceOver(const WrapLayout& layout, const WrapRange& piece, const WrapRange& range) {
    return piece.end < range.end ? layout.isOverAlone(piece) : layout.isOver(piece);
}

WrapRange pieceThrough(const WrapText& text, const WrapRange& rest, FirstWrapToken& finder) {
    return {rest.begin, std::min(finder.find(text, rest) + 1, rest.end)};
}

/// The operators of a range in order, as they start new lines.
///
/// A "+" or "-" is a break only with an operand in front of it. A search that starts at one finds
/// the next, so such operators come in twos: the second stays behind the operand of the first.
class LeadingOperators {
public:
    LeadingOperators(const WrapText& text, const WrapRange& range, FirstWrapToken& finder)
        : text_(text), range_(range), finder_(finder), at_(finder.find(text, range)) {
        second_ = at_ == range.end ? at_ : find(at_);
        // A text that starts with the operator has no line to end in front of it.
        if (at_ == range.begin) advance();
    }

    bool atEnd() const { return at_ >= range_.end; }
    std::size_t at() const { return at_; }
    /// The second of two, or the end of the range.
    std::size_t second() const { return second_ > at_ ? second_ : range_.end; }
    std::size_t pieceEnd() const { return find(std::min(second_ + 1, range_.end)); }

    void advance() {
        at_ = pieceEnd();
        // An operator right behind the other has no operand between them: the two are one.
        if (at_ < range_.end && at_ == second_ + 1) at_ = find(at_ + 1);
        second_ = atEnd() ? range_.end : find(at_);
    }

private:
    std::size_t find(std::size_t from) const { return finder_.find(text_, {from, range_.end}); }

    const WrapText& text_;
    WrapRange range_;
    FirstWrapToken& finder_;
    std::size_t at_;
    std::size_t second_ = 0;
};

} // namespace

void CppExprLineWrapper::wrapAt(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                                bool afterOperator, const std::string& indent) const {
    if (afterOperator) {
        breakBehind(layout, range, finder, indent);
    } else {
        breakInFront(layout, range, finder, indent);
    }
}

void CppExprLineWrapper::breakBehind(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                                     const std::string& indent) const {
    const WrapText& text = layout.text();
    WrapRange piece = pieceThrough(text, range, finder);
    if (piece.end == range.end) return;
    const std::string newLine = newLineAt(layout, indent, layout.column(headOf(text, piece)));
    while (piece.end < range.end) {
        piece = pieceThrough(text, {piece.end, range.end}, finder);
        const std::size_t head = headOf(text, piece);
        // An operator that follows another one stays with it.
        const bool doubled = head + 1 < piece.end && finder.matches(text.kind(head));
        if (head < piece.end && !doubled) layout.breakBefore(head, newLine);
    }
}

void CppExprLineWrapper::hangInFront(WrapLayout& layout, std::size_t index, const std::string& indent,
                                     int column) const {
    layout.breakBefore(index, newLineAt(layout, indent, std::max(column - layout.leadWidth(index), 0)));
}

void CppExprLineWrapper::breakInFront(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                                      const std::string& indent) const {
    const WrapText& text = layout.text();
    const int column = range.empty() ? 0 : layout.column(range.begin);
    for (LeadingOperators operators(text, range, finder); !operators.atEnd(); operators.advance()) {
        hangInFront(layout, operators.at(), indent, column);
        const WrapRange piece{operators.at(), operators.pieceEnd()};
        const bool over = isPieceOver(layout, piece, range);
        const std::size_t second = operators.second();
        if (over && second < piece.end) hangInFront(layout, second, indent, column);
    }
}

// The first operator stays with what stands before it; the column of the others is its own.
void CppExprLineWrapper::wrapShifts(WrapLayout& layout, const WrapRange& range,
                                    const std::string& indent) const {
    if (rules().shiftBreak != BreakStyle::kFirst && rules().shiftBreak != BreakStyle::kLast) return;
    static constexpr WrapKinds kShifts{tkShiftLeft, tkShiftRight};
    FindFirstElem shifts(kShifts);
    const WrapText& text = layout.text();
    std::size_t at = shifts.find(text, range);
    if (at == range.end) return;
    const std::string newLine = newLineAt(layout, indent, layout.column(at));
    if (rules().shiftBreak == BreakStyle::kLast) return fillBehind(layout, range, shifts, newLine);
    while ((at = shifts.find(text, {at + 1, range.end})) < range.end) {
        const std::size_t end = shifts.find(text, {at + 1, range.end});
        if (isPieceOver(layout, {at, end}, range)) layout.breakBefore(at, newLine);
    }
}

void CppExprLineWrapper::fillBehind(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                                    const std::string& newLine) const {
    const WrapText& text = layout.text();
    WrapRange piece = pieceThrough(text, range, finder);
    while (piece.end < range.end) {
        piece = pieceThrough(text, {piece.end, range.end}, finder);
        const bool over = isPieceOver(layout, piece, range);
        const std::size_t head = headOf(text, piece);
        // A piece with a line of its own gains nothing by a new one, and would lose blank lines in front.
        const bool gains = head < piece.end && !layout.startsLine(head);
        if (over && gains) layout.breakBefore(head, newLine);
    }
}

void CppExprLineWrapper::wrapListElements(WrapLayout& layout) const {
    static constexpr WrapKinds kCommas{tkComma};
    const WrapText& text = layout.text();
    const WrapRange range = text.all();
    if (range.empty()) return;
    FindFirstElem commas(kCommas);
    const std::string& indent = layout.state().indent;
    const int column = layout.column(std::min(headOf(text, range), range.end - 1));
    if (rules().commaBreak == BreakStyle::kLast) {
        return fillBehind(layout, range, commas, newLineAt(layout, indent, column));
    }
    if (rules().commaBreak != BreakStyle::kFirst) return;
    std::size_t at = commas.find(text, range);
    while (at < range.end) {
        const std::size_t end = commas.find(text, {at + 1, range.end});
        if (isPieceOver(layout, {at, end}, range)) hangInFront(layout, at, indent, column);
        at = end;
    }
}

void CppExprLineWrapper::breakStrings(WrapLayout& layout, const WrapRange& range) const {
    const WrapText& text = layout.text();
    for (std::size_t i = range.begin; i + 1 < range.end; ++i) {
        if (text.kind(i) != tkStringLiteral || text.kind(i + 1) != tkStringLiteral) continue;
        const std::string indent = indentTo(layout, layout.state().indent, layout.column(i));
        const std::string newLine = converted(layout, indent);
        while (i + 1 < range.end && text.kind(i + 1) == tkStringLiteral) layout.breakBefore(++i, newLine);
    }
}

} // namespace Norvane
