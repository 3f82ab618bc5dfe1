#include "src/wrap/Norvane_WrapFinders.h"

#include "cpp/Cpp_Tokens.h"

#include <algorithm>

namespace Norvane {

using namespace Cpp;

namespace {

constexpr WrapKinds kPlainBinary{tkColon, tkSlash,        tkPercent, tkShiftLeft, tkShiftRight, tkLess,
                                 tkGreater, tkEqual, tkNotEqual, tkBar,       tkQuestion};
constexpr WrapKinds kShifts{tkShiftLeft, tkShiftRight};
constexpr WrapKinds kAdditive{tkPlus, tkMinus};
// What can stand last in an operand; a "+" or "-" behind anything else is a sign.
constexpr WrapKinds kOperandEnd{tkIdentifier,   tkNumber,     tkCharLiteral, tkStringLiteral, tkThis, tkTrue,
                                tkFalse,        tkCloseParen, tkCloseBracket, tkCloseBrace,   tkGreater,
                                tkIncrement,  tkDecrement};
constexpr WrapKinds kNamedCasts{tkStaticCast, tkDynamicCast, tkConstCast, tkReinterpretCast};
constexpr WrapKinds kCastOperandStart{tkCharLiteral, tkNumber, tkStringLiteral, tkOpenParen, tkIdentifier};

int kindIn(const WrapText& text, std::size_t index, const WrapRange& range) {
    return index < range.end ? text.kind(index) : tkEnd;
}

bool counts(const WrapText& text, std::size_t index) {
    return !isCommentOrDirective(text.kind(index)) && !text.isJunk(index);
}

// A ">>" that closes two brackets is no shift.
int kindAsNeighbour(const WrapText& text, std::size_t index) {
    return text.closes(index) && text.kind(index) == tkShiftRight ? tkGreater : text.kind(index);
}

} // namespace

std::size_t FirstWrapToken::find(const WrapText& text, const WrapRange& range) {
    lastKind_ = -1;
    for (std::size_t i = range.begin; i < range.end; ++i) {
        const std::size_t found = breakAt(text, i, range);
        if (found < range.end) return found;
        if (text.opens(i)) {
            i = text.mate(i);
            if (i >= range.end) break;
        } else if (text.closes(i)) {
            break;
        }
        if (counts(text, i)) lastKind_ = kindAsNeighbour(text, i);
    }
    return range.end;
}

std::size_t FindFirstElem::breakAt(const WrapText& text, std::size_t index, const WrapRange& range) {
    const bool isElem = matches(text.kind(index)) && !text.closes(index);
    const int next = kindIn(text, index + 1, range);
    return isElem && !matches(next) && !excluded_.has(next) && !matches(lastKind_) ? index : range.end;
}

bool FindFirstBinaryOp::matches(int kind) const {
    return kPlainBinary.has(kind) || kAdditive.has(kind);
}

std::size_t FindFirstBinaryOp::breakAt(const WrapText& text, std::size_t index, const WrapRange& range) {
    const int kind = text.kind(index);
    if (text.opens(index) || text.closes(index)) return range.end;
    if (kPlainBinary.has(kind) && !kShifts.has(kind)) return index;
    return kAdditive.has(kind) && kOperandEnd.has(lastKind_) ? index : range.end;
}

std::size_t FindFirstCast::breakAt(const WrapText& text, std::size_t index, const WrapRange& range) {
    if (!kNamedCasts.has(text.kind(index))) return range.end;
    while (index < range.end && text.kind(index) != tkLess) ++index;
    return index < range.end ? std::min(text.mate(index), range.end) : range.end;
}

// The parenthesis that opened last decides, so "(f(x)) y" is taken for a call and "((int)) y" isn't.
std::size_t FindFirstOldCast::breakAt(const WrapText& text, std::size_t index, const WrapRange& range) {
    if (text.kind(index) != tkOpenParen) return range.end;
    const std::size_t close = text.mate(index);
    if (close >= range.end || !kCastOperandStart.has(kindIn(text, close + 1, range))) return range.end;
    const std::size_t paren = text.lastParenBefore(close);
    const int before = paren > range.begin ? text.kind(paren - 1) : tkEnd;
    return before == tkIdentifier || before == tkGreater ? range.end : close;
}

GroupFinder::GroupFinder(const WrapText& text, Brackets brackets, const WrapRange& range, std::size_t depth)
    : text_(text), range_(range),
      opens_(brackets == Brackets::kParens ? text.parens(depth) : text.braces(depth)) {
    const auto first = std::lower_bound(opens_.begin(), opens_.end(), range.begin);
    next_ = static_cast<std::size_t>(first - opens_.begin());
}

bool GroupFinder::findNext() {
    if (next_ >= opens_.size() || opens_[next_] >= range_.end) return false;
    open_ = opens_[next_++];
    return close() < range_.end;
}

bool GroupFinder::precedingIsName() const {
    return open_ > range_.begin && text_.kind(open_ - 1) == tkIdentifier && !text_.isJunk(open_ - 1);
}

} // namespace Norvane
