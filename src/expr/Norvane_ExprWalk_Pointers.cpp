#include "src/expr/Norvane_ExprWalk.h"

#include "src/expr/Norvane_Gap.h"
#include "streams/Zelmar_Columns.h"

#include <utility>

namespace Norvane {

namespace {

/// Whether `a` is wider than `b` at `column`. A line feed is wider than any blanks, so that the two
/// do not change places with each run.
bool isWider(std::string_view a, std::string_view b, int column, int tabSize) {
    if (hasLineFeed(a) != hasLineFeed(b)) return hasLineFeed(a);
    return Zelmar::textColumn(a, column, tabSize) > Zelmar::textColumn(b, column, tabSize);
}

} // namespace

const PointerStyle& ExprWalk::pointerStyle(std::size_t mark) const {
    return tokens_.kind(mark) == Cpp::tkAsterisk ? options_.asterisk : options_.ampersand;
}

/// The end of a run of marks.
std::size_t ExprWalk::lastMark(std::size_t first) const {
    while (CppExprFormatterBase::isPointerOperator(kindAt(first + 1))) ++first;
    return first;
}

/// A declaration in the middle of an expression, as the body of a lambda has it, if the style of
/// the marks says where they go: the current token is a keyword of a type, and a name follows.
bool ExprWalk::declaresPointer() const {
    if (!CppExprFormatterBase::isPointerOperator(next()) || !endsType(tokens_.kind(at_))) return false;
    if (pointerStyle(at_ + 1).anchor == PointerAnchor::kAsInSource) return false;
    return kindAt(lastMark(at_ + 1) + 1) == Cpp::tkIdentifier;
}

/// A run of marks behind the current token, which ends a type.
void ExprWalk::writePointer() {
    const std::size_t first = at_ + 1;
    const std::size_t last = lastMark(first);
    const PointerStyle& style = pointerStyle(first);
    const bool atComment = Cpp::isComment(tokens_.kind(at_));
    at_ = last + 1;
    if (style.anchor == PointerAnchor::kAsInSource || atComment) return;
    // A closing bracket behind the marks leaves no name that they could stay with or leave.
    const bool endsText = at_ == frame().end && frame().group == ExprGroup::kText;
    if (endsText || kindAt(at_) == Cpp::tkIdentifier) return anchorPointer(style, first, last);
    for (std::size_t i = first + 1; i <= last; ++i) decide(i, std::string_view());
}

/// Puts the marks from `first` to `last` next to the type or next to the name.
void ExprWalk::anchorPointer(const PointerStyle& style, std::size_t first, std::size_t last) {
    const std::string_view before = tokens_.gap(first);
    const std::string_view after = tokens_.gap(last + 1);
    if (!isBlank(before) || !isBlank(after)) return;
    if (options_.keepsBreaks && (hasLineFeed(before) || hasLineFeed(after))) return;
    if (isKeptColumn(before, options_.columns) || isKeptColumn(after, options_.columns)) return;
    settle();
    copier_.copyTo(tokens_.gapBegin(first));
    const int column = output_.column();
    const OptionalString* const separator = frame().separator;
    // A line that breaks behind the type breaks behind its marks.
    const bool breaksBehind = separator ? separator->breaksLine() : hasLineFeed(after);
    const bool atType = style.anchor == PointerAnchor::kAtType || breaksBehind;
    std::string_view narrow = atType ? before : after;
    std::string_view wide = atType ? after : before;
    if (isWider(narrow, wide, column, output_.tabSize())) std::swap(narrow, wide);
    if (style.ws.set) {
        // Once the marks stand where they belong the other gap is the one to keep.
        const std::string_view other = atType ? after : before;
        if ((atType ? before : after) == style.ws.value) wide = other;
        narrow = style.ws.value;
        if (separator) wide = separator->value;
    }
    // A declarator on a line of its own stays there: that gap stands between two names.
    const bool startsLine = tokens_.kind(first - 1) == Cpp::tkComma && hasLineFeed(before);
    if (!startsLine) decide(first, atType ? narrow : wide);
    for (std::size_t i = first + 1; i <= last; ++i) decide(i, std::string_view());
    decide(last + 1, atType ? wide : narrow);
}

} // namespace Norvane
