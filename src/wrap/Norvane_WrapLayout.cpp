#include "src/wrap/Norvane_WrapLayout.h"

#include "cpp/Cpp_Tokens.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Norvane {

using namespace Cpp;

namespace {

constexpr std::size_t npos = std::string_view::npos;

std::string_view firstLine(std::string_view text) {
    return text.substr(0, text.find('\n'));
}

std::string_view behindLastFeed(std::string_view text) {
    const std::size_t feed = text.rfind('\n');
    return feed == npos ? text : text.substr(feed + 1);
}

bool holdsTab(std::string_view text) {
    return text.find('\t') != npos;
}

bool endsLine(std::string_view token) {
    return !token.empty() && token.back() == '\n';
}

bool spansLines(std::string_view token) {
    return token.find('\n') != npos;
}

} // namespace

WrapLayout::WrapLayout(std::string_view text, const Zelmar::IndentStreamState& state, int rightMargin,
                       std::string_view follower)
    : text_(text), state_(state), rightMargin_(rightMargin), follower_(firstLine(follower)),
      places_(text_.size() + 1), elastic_(text_.size() + 1), lineStarts_(text_.size() + 1),
      overLines_(text_.size() + 1) {
    placeTokens();
    startLines();
}

int WrapLayout::spanWidth(std::string_view span, int column) const {
    return Zelmar::textColumn(span, column, std::max(state_.tabSize, 1)) - column;
}

// Offsets run on over the lines as if the text were a single one. Behind a tab a column is a multiple
// of the tab size here as well as on the real line, so from there on the two differ by a constant.
void WrapLayout::placeTokens() {
    int offset = 0;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        const std::string_view gap = text_.gap(i);
        const std::string_view line = lineOf(i);
        if (holdsTab(gap) || holdsTab(line)) elastic_.insert(i);
        offset += spanWidth(gap, offset);
        places_[i].offset = offset;
        places_[i].width = static_cast<int>(line.size());
        places_[i].innerOver = i < text_.size() && innerLinesOver(text_.token(i));
        offset += spanWidth(line, offset);
    }
    for (std::size_t i = places_.size(); i-- > 0;) places_[i].tailEnd = isStuck(i) ? tailOf(i + 1) : i;
}

// The lines between the first and the last of a token, which no break can move.
bool WrapLayout::innerLinesOver(std::string_view token) const {
    for (std::size_t feed = token.find('\n'); feed != npos; feed = token.find('\n')) {
        token.remove_prefix(feed + 1);
        if (spansLines(token) && spanWidth(firstLine(token), 0) > rightMargin_) return true;
    }
    return false;
}

std::string_view WrapLayout::lineOf(std::size_t index) const {
    return index < text_.size() ? firstLine(text_.token(index)) : follower_;
}

void WrapLayout::startLines() {
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (startsLineInText(i)) lineStarts_.insert(i);
    }
    for (std::size_t i = lineStarts_.next(0); i != WrapIndexSet::npos; i = lineStarts_.next(i + 1)) {
        places_[i].startColumn = sourceColumn(i);
        measureLine(i);
    }
}

bool WrapLayout::startsLineInText(std::size_t index) const {
    return index == 0 || spansLines(text_.token(index - 1)) || spansLines(text_.gap(index));
}

int WrapLayout::sourceColumn(std::size_t index) const {
    const std::string_view gap = text_.gap(index);
    if (spansLines(gap)) return spanWidth(behindLastFeed(gap), 0);
    if (index == 0) return state_.column + spanWidth(gap, state_.column);
    const int column = spanWidth(behindLastFeed(text_.token(index - 1)), 0);
    return column + spanWidth(gap, column);
}

std::size_t WrapLayout::lineEnd(std::size_t start) const {
    return std::min(lineStarts_.next(start + 1), places_.size());
}

int WrapLayout::widthAt(std::size_t index, int column) const {
    return elastic_.contains(index) ? spanWidth(lineOf(index), column) : places_[index].width;
}

// From the start of token `from`, which stands at `column`, to the start of token `to` on its line.
int WrapLayout::advance(std::size_t from, int column, std::size_t to) const {
    bool behindTab = elastic_.empty();
    while (from < to) {
        if (behindTab) return column + places_[to].offset - places_[from].offset;
        if (elastic_.contains(from) || elastic_.contains(from + 1)) {
            behindTab = holdsTab(lineOf(from)) || holdsTab(text_.gap(from + 1));
            column += widthAt(from, column);
            column += spanWidth(text_.gap(++from), column);
            continue;
        }
        const std::size_t stop = std::min(to, elastic_.next(from + 1) - 1);
        column += places_[stop].offset - places_[from].offset;
        from = stop;
    }
    return column;
}

int WrapLayout::column(std::size_t index) const {
    const std::size_t start = lineStart(index);
    return advance(start, places_[start].startColumn, index);
}

int WrapLayout::endColumn(std::size_t index) const {
    const int start = column(index);
    return start + widthAt(index, start);
}

int WrapLayout::leadWidth(std::size_t index) const {
    const int start = column(index);
    const int end = start + widthAt(index, start);
    if (index + 1 >= text_.size() || lineStarts_.contains(index + 1)) return end - start;
    return column(index + 1) - start;
}

int WrapLayout::trailingBlanks(std::size_t nextStart) const {
    if (nextStart >= places_.size() || places_[nextStart].indent != kNoBreak) return 0;
    const std::string_view gap = text_.gap(nextStart);
    return spansLines(gap) ? static_cast<int>(gap.find('\n')) : 0;
}

std::size_t WrapLayout::countLooseBehind(std::size_t index) const {
    const std::size_t end = std::min(lineEnd(lineStart(index)), text_.size());
    return end - std::min(tailOf(index + 1), end);
}

void WrapLayout::measureLine(std::size_t start) {
    const std::size_t end = lineEnd(start);
    const bool over = endColumn(end - 1) + trailingBlanks(end) > rightMargin_ || places_[end - 1].innerOver;
    if (over) {
        overLines_.insert(start);
    } else {
        overLines_.erase(start);
    }
}

// An open brace belongs to the head of the lambda that it follows, but behind a comma it is an element.
bool WrapLayout::isStuck(std::size_t index) const {
    const std::string_view gap = text_.gap(index);
    switch (text_.kind(index)) {
    case tkEnd:
    case tkCloseParen:
    case tkCloseBracket:
    case tkCloseBrace:
    case tkSemicolon:
    case tkComma: return gap.empty();
    case tkOpenBrace: return gap.size() <= 1 && index > 0 && text_.closes(index - 1);
    default: return false;
    }
}

std::size_t WrapLayout::tailOf(std::size_t end) const {
    return end < places_.size() ? places_[end].tailEnd : end;
}

std::size_t WrapLayout::tailBehind(std::size_t end) const {
    if (end >= text_.size()) return places_.size();
    if (tail_ == Tail::kLine) return lineEnd(lineStart(end));
    return tailOf(text_.closes(end) ? end + 1 : end);
}

bool WrapLayout::isOver(const WrapRange& range, std::size_t tail) const {
    if (range.empty()) return false;
    const std::size_t over = overLines_.next(lineStart(range.begin));
    if (over == WrapIndexSet::npos || over >= range.end) return false;
    const std::size_t end = lineEnd(over);
    if (end <= range.end) return true;
    // This line runs on behind the range: it is the last one, and counts only as far as told.
    return endColumn(std::min(end, std::max(tail, range.end)) - 1) > rightMargin_;
}

namespace {

/// Two tokens that are one mark where they touch: "<=>", and "<<<" and ">>>" around what starts a
/// function on a graphics processor.
bool isSecondHalf(int before, int kind) {
    return (before == tkLessEqual && kind == tkGreater) || (before == tkShiftLeft && kind == tkLess) ||
           (before == tkShiftRight && kind == tkGreater);
}

} // namespace

// A directive must keep its own line, and so must a comment on that line, or the rest of it would
// become code.
bool WrapLayout::mayBreakBefore(std::size_t index) const {
    if (index == 0 || index >= text_.size() || text_.kind(index) == tkDirective) return false;
    if (text_.inCode(index)) return false;
    if (text_.kind(index - 1) == tkDirective) return endsLine(text_.token(index - 1));
    return !isSecondHalf(text_.kind(index - 1), text_.kind(index)) || !text_.gap(index).empty();
}

void WrapLayout::breakBefore(std::size_t index, std::string_view indent) {
    if (!mayBreakBefore(index)) return;
    if (indents_.empty() || indents_.back() != indent) indents_.emplace_back(indent);
    places_[index].indent = static_cast<std::uint32_t>(indents_.size() - 1);
    places_[index].startColumn = spanWidth(indent, 0);
    lineStarts_.insert(index);
    measureLine(lineStart(index - 1));
    measureLine(index);
}

// A comment of several lines on a line that a break has moved takes its further lines along: left where
// they are, they would drift with every run.
void WrapLayout::addToken(std::size_t index, std::string& result) const {
    const std::string_view token = text_.token(index);
    const bool takesLinesAlong = text_.kind(index) == tkBlockComment && spansLines(token);
    const int to = takesLinesAlong ? columnBehind(result) : 0;
    const int from = takesLinesAlong ? columnBehind(text_.before(index)) : 0;
    const std::size_t feed = from == to ? npos : token.find('\n');
    result += token.substr(0, feed);
    if (feed == npos) return;
    for (std::string_view rest = token.substr(feed); !rest.empty();) {
        const std::size_t next = rest.find('\n', 1);
        addMovedLine(rest.substr(1, next == npos ? npos : next - 1), from, to, result);
        rest.remove_prefix(std::min(next, rest.size()));
    }
}

void WrapLayout::addMovedLine(std::string_view line, int from, int to, std::string& result) const {
    const std::size_t text = line.find_first_not_of(" \t");
    const std::size_t last = result.find_last_not_of(" \t");
    // White space would tear the delimiter of the comment apart, if a backslash joins its lines there.
    const bool isJoined = text == 0 && last != npos && result[last] == '\\';
    result += '\n';
    if (text == npos || isJoined) {
        result += line;
        return;
    }
    const int width = std::max(spanWidth(line.substr(0, text), 0) - from, 0) + to;
    result += Zelmar::makeIndent(std::string_view(), state_.wsMode, state_.tabSize, width);
    result += line.substr(text);
}

int WrapLayout::columnBehind(std::string_view text) const {
    const int start = spansLines(text) ? 0 : state_.column;
    return start + spanWidth(behindLastFeed(text), start);
}

// The "[" of the closure whose body opens at `open`, the brace itself elsewhere.
std::size_t WrapLayout::headOfCode(std::size_t open) const {
    static constexpr int kMostTokens = 64;
    std::size_t at = open;
    for (int left = kMostTokens; left > 0 && at > 0; --left) {
        --at;
        // A bracket that nothing opens is the end of what is known.
        if (text_.closes(at) && text_.mate(at) == WrapText::npos) break;
        if (text_.closes(at)) at = text_.mate(at);
        const int kind = text_.kind(at);
        if (kind == tkOpenBracket) return at;
        if (kind == tkComma || kind == tkSemicolon || kind == tkAssign || (text_.opens(at) && text_.mate(at) > open)) break;
    }
    return open;
}

// Code is indented from the line in which its head stands, which is also where its closing brace stands.
// Left where it is when a break moves that line, it would move with the next run.
int WrapLayout::shiftOfCode(std::size_t open) const {
    const std::size_t close = text_.mate(open);
    if (close == WrapText::npos) return 0;
    const std::size_t line = lineStart(headOfCode(open));
    const bool isMoved = places_[line].indent != kNoBreak && startsLineInText(close);
    return isMoved ? places_[line].startColumn - sourceColumn(close) : 0;
}

void WrapLayout::addGap(std::size_t index, int shift, std::string& result) const {
    const std::string_view gap = text_.gap(index);
    const std::string_view indent = behindLastFeed(gap);
    if (shift == 0 || !startsLineInText(index) || text_.kind(index) == tkDirective) {
        result += gap;
        return;
    }
    result += gap.substr(0, gap.size() - indent.size());
    const int width = std::max(spanWidth(indent, 0) + shift, 0);
    result += Zelmar::makeIndent(std::string_view(), state_.wsMode, state_.tabSize, width);
}

std::string WrapLayout::result() const {
    std::string result;
    int shift = 0;
    for (std::size_t i = 0; i < text_.size(); ++i) {
        if (!text_.inCode(i)) shift = i + 1 < text_.size() && text_.inCode(i + 1) ? shiftOfCode(i) : 0;
        if (places_[i].indent == kNoBreak) {
            addGap(i, shift, result);
        } else {
            if (!endsLine(text_.token(i - 1))) result += '\n';
            result += indents_[places_[i].indent];
        }
        addToken(i, result);
    }
    result += text_.gap(text_.size());
    return result;
}

} // namespace Norvane
