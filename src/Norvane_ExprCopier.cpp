#include "src/Norvane_ExprCopier.h"

#include "src/Norvane_Gap.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <string>

namespace Norvane {

int hangingColumn(const OptionalString& wsBefore, std::string_view hanging, int column, int tabSize) {
    if (!wsBefore.breaksLine()) return column;
    std::string left = wsBefore.value;
    const std::size_t feed = left.rfind('\n');
    left.erase(0, feed == 0 ? 1 : feed - 1);
    left.append(hanging);
    return Zelmar::textColumnBack(left, column, tabSize);
}

void ExprCopier::copyTo(std::size_t offset) {
    const std::string_view text = tokens_.text();
    const std::vector<std::size_t>& raw = tokens_.rawTokens();
    while (nextRaw_ < raw.size() && tokens_.begin(raw[nextRaw_]) < offset) {
        // The first character still goes by the rules: the token can stand at the start of a line.
        const std::size_t first = std::max(at_, tokens_.begin(raw[nextRaw_]) + 1);
        const std::size_t end = std::min(offset, tokens_.end(raw[nextRaw_]));
        if (first > at_) output_.write(text.substr(at_, first - at_));
        if (end > first) output_.writeVerbatim(text.substr(first, end - first));
        at_ = std::max(at_, std::max(first, end));
        if (at_ < tokens_.end(raw[nextRaw_])) return;
        ++nextRaw_;
    }
    if (offset <= at_) return;
    output_.write(text.substr(at_, offset - at_));
    at_ = offset;
}

bool ExprCopier::isReplaceable(std::size_t index) const {
    if (index > 0 && tokens_.endsLine(index - 1)) return false;
    if (index < tokens_.size() && tokens_.kind(index) == Cpp::tkDirective) return false;
    // "<=>" is one operator, though it comes as two tokens.
    const bool inOperator = index > 0 && index < tokens_.size() && tokens_.kind(index - 1) == Cpp::tkLessEqual &&
                            tokens_.kind(index) == Cpp::tkGreater && tokens_.gap(index).empty();
    if (inOperator) return false;
    return isBlank(tokens_.gap(index));
}

std::string_view ExprCopier::safeValue(std::size_t index, std::string_view ws) const {
    if (!ws.empty() || index == 0 || index >= tokens_.size()) return ws;
    const std::size_t left = tokens_.gapBegin(index);
    const std::size_t right = tokens_.gapEnd(index);
    if (left == right || left == 0 || right >= tokens_.text().size()) return ws;
    const std::string_view last = tokens_.token(index - 1);
    const std::string_view next = tokens_.text().substr(right);
    const bool makesMemberPointer = last == "->" && next.front() == '*';
    return makesMemberPointer || Cpp::needsBlank(last, next) ? " " : ws;
}

void ExprCopier::replaceGap(std::size_t index, std::string_view ws, bool exact) {
    copyTo(tokens_.gapBegin(index));
    if (at_ > tokens_.gapBegin(index) || !isReplaceable(index)) return;
    const std::string_view value = safeValue(index, ws);
    if (exact) {
        output_.writeExact(value);
    } else {
        output_.write(value);
    }
    skipTo(tokens_.gapEnd(index));
}

void ExprCopier::copyDirective(std::size_t index, const DirectivePlace& place) {
    copyTo(tokens_.gapBegin(index));
    const std::string_view gap = tokens_.text().substr(at_, std::max(tokens_.begin(index), at_) - at_);
    writeDirective(gap, tokens_.token(index), sourceColumn(index), place, output_);
    at_ = std::max(at_, tokens_.end(index));
}

void ExprCopier::copyMoved(std::size_t index) {
    copyTo(tokens_.begin(index));
    writeMovedToken(tokens_.token(index), sourceColumn(index), output_);
    at_ = std::max(at_, tokens_.end(index));
}

/// Column of a token in its line, from 0; -1 on the first line of the text, of which nobody knows
/// where in the source it began.
int ExprCopier::sourceColumn(std::size_t index) const {
    const std::string_view before = tokens_.text().substr(0, tokens_.begin(index));
    const std::size_t feed = before.rfind('\n');
    if (feed == std::string_view::npos) return -1;
    return Zelmar::textColumn(before.substr(feed + 1), 0, output_.tabSize());
}

} // namespace Norvane
