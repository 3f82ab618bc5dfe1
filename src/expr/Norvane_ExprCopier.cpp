#include "src/expr/Norvane_ExprCopier.h"

#include "src/expr/Norvane_Gap.h"
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
    const std::vector<ExprTokens::CodePlace>& places = tokens_.codePlaces();
    while (nextCode_ < places.size() && places[nextCode_].offset < offset) takeCode(places[nextCode_++]);
    copyTokens(offset);
}

/// Only behind the first character of a head its line has begun.
void ExprCopier::takeCode(const ExprTokens::CodePlace& place) {
    copyTokens(place.end == 0 ? place.offset + 1 : place.offset);
    if (place.end == 0) return code_->noteHead(place.number);
    code_->writeCode(place.number);
    skipTo(place.end);
}

int ExprCopier::codeColumn(std::size_t index) const {
    const auto& places = tokens_.codePlaces();
    const bool isNext = nextCode_ < places.size() && places[nextCode_].offset == tokens_.begin(index);
    return isNext ? code_->headColumn(places[nextCode_].number) : -1;
}

void ExprCopier::copyTokens(std::size_t offset) {
    const std::vector<std::size_t>& multiLine = tokens_.multiLineTokens();
    while (nextMultiLine_ < multiLine.size() && tokens_.begin(multiLine[nextMultiLine_]) < offset) {
        const std::size_t index = multiLine[nextMultiLine_];
        if (tokens_.kind(index) != Cpp::tkBlockComment) {
            copyAsItIs(index, offset);
        } else if (at_ < tokens_.end(index)) {
            copyMoved(index);
        }
        if (at_ < tokens_.end(index)) return;
        ++nextMultiLine_;
    }
    copyPlain(offset);
}

/// The first character still goes by the rules: the token can stand at the start of a line.
void ExprCopier::copyAsItIs(std::size_t index, std::size_t offset) {
    const std::size_t end = std::min(offset, tokens_.end(index));
    copyPlain(tokens_.begin(index) + 1);
    if (end <= at_) return;
    output_.writeVerbatim(tokens_.text().substr(at_, end - at_));
    at_ = end;
}

void ExprCopier::copyPlain(std::size_t offset) {
    const std::string_view text = tokens_.text();
    while (keepsShape() && at_ < offset) {
        const std::size_t stop = std::min(offset, shape_.end);
        const std::size_t feed = text.substr(0, stop).find('\n', at_);
        const std::size_t end = feed == std::string_view::npos ? stop : feed + 1;
        output_.write(text.substr(at_, end - at_));
        at_ = end;
        if (feed != std::string_view::npos) indentLine(at_);
    }
    if (shape_.end > 0 && !keepsShape()) leaveShape();
    if (nextAnchor_ < anchors_.size()) copyAnchored(offset);
    if (offset <= at_) return;
    output_.write(text.substr(at_, offset - at_));
    at_ = offset;
}

/// Copies as far as the last line in front of `offset` that is to stand at the indent.
void ExprCopier::copyAnchored(std::size_t offset) {
    const std::string_view text = tokens_.text();
    for (; nextAnchor_ < anchors_.size() && anchors_[nextAnchor_] < offset; ++nextAnchor_) {
        const std::size_t anchor = anchors_[nextAnchor_];
        if (anchor < at_) continue;
        output_.write(text.substr(at_, anchor - at_));
        at_ = anchor;
        const std::string_view before = text.substr(0, anchor);
        const std::size_t lineBegin = before.rfind('\n') + 1;
        output_.anchorShape(Zelmar::textColumn(before.substr(lineBegin), 0, output_.tabSize()));
    }
}

void ExprCopier::keepShapeUpTo(std::size_t close) {
    if (output_.keepLeadingWs() || output_.shape().kept || keepsShape()) return;
    std::string_view before = tokens_.gap(close);
    const std::size_t feed = before.rfind('\n');
    if (feed == std::string_view::npos && !tokens_.endsLine(close - 1)) return;
    if (feed != std::string_view::npos) before.remove_prefix(feed + 1);
    if (!isBlank(before)) return;
    shape_ = {tokens_.begin(close), Zelmar::textColumn(before, 0, output_.tabSize()), output_.indent()};
}

void ExprCopier::leaveShape() {
    output_.setIndent(shape_.indent);
    shape_.end = 0;
}

/// Sets the indent of a line inside braces that keep their shape.
void ExprCopier::indentLine(std::size_t lineBegin) {
    const std::string_view text = tokens_.text();
    std::size_t first = lineBegin;
    while (first < shape_.end && (text[first] == ' ' || text[first] == '\t')) ++first;
    const int tabSize = output_.tabSize();
    const int column = Zelmar::textColumn(text.substr(lineBegin, first - lineBegin), 0, tabSize);
    const int distance = first < shape_.end ? std::max(column - shape_.column, 0) : 0;
    const int width = Zelmar::textColumn(shape_.indent, 0, tabSize) + distance;
    output_.setIndent(distance > 0 ? Zelmar::makeIndent(shape_.indent, output_.wsMode(), tabSize, width)
                                   : shape_.indent);
}

bool ExprCopier::isReplaceable(std::size_t index) const {
    if (index > 0 && tokens_.endsLine(index - 1)) return false;
    if (index < tokens_.size() && tokens_.kind(index) == Cpp::tkDirective) return false;
    if (index < tokens_.size() && tokens_.endsSpaceship(index)) return false;
    if (index > 0 && index < tokens_.size() && tokens_.gap(index).empty() &&
        Cpp::isOneWord(tokens_.token(index - 1), tokens_.token(index))) {
        return false;
    }
    return isBlank(tokens_.gap(index));
}

bool ExprCopier::staysBroken(std::size_t index, std::string_view ws) const {
    return keepsBreaks_ && !hasLineFeed(ws) && hasLineFeed(tokens_.gap(index));
}

bool ExprCopier::staysInColumn(std::size_t index, std::string_view ws) const {
    return !hasLineFeed(ws) && isKeptColumn(tokens_.gap(index), columns_);
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

/// The gap holds the value already: it comes out with what is in front of it. At the start of the text,
/// and where lines end, more counts than the characters.
bool ExprCopier::isSettled(std::size_t index, std::string_view ws) const {
    if (index == 0 || keepsShape() || at_ > tokens_.gapBegin(index)) return false;
    return ws.size() <= 1 && tokens_.gap(index) == ws && (ws.empty() || ws.front() != '\n');
}

void ExprCopier::replaceGap(std::size_t index, std::string_view ws, bool exact) {
    if (isSettled(index, ws)) return copyTo(tokens_.gapEnd(index));
    copyTo(tokens_.gapBegin(index));
    if (at_ > tokens_.gapBegin(index) || !isReplaceable(index) || staysBroken(index, ws) || staysInColumn(index, ws)) return;
    if (keepsShape() && tokens_.gapEnd(index) >= shape_.end) leaveShape();
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
    const std::size_t feed = gap.rfind('\n');
    if (keepsShape() && feed != std::string_view::npos) indentLine(at_ + feed + 1);
    writeDirective(gap, tokens_.token(index), sourceColumn(index), place, output_);
    at_ = std::max(at_, tokens_.end(index));
    if (keepsShape() && tokens_.endsLine(index)) indentLine(at_);
}

void ExprCopier::copyMoved(std::size_t index) {
    copyPlain(tokens_.begin(index));
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
