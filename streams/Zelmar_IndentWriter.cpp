#include "streams/Zelmar_IndentWriter.h"

#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <array>

namespace Zelmar {

namespace {

// The characters that conversion has to look at one by one; runs of all others are copied whole.
constexpr std::array<bool, 256> makeConvertible() {
    std::array<bool, 256> table{};
    for (const unsigned char c : {' ', '\t', '\n', '"', '\''}) table[c] = true;
    return table;
}
constexpr std::array<bool, 256> kConvertible = makeConvertible();

std::size_t plainRun(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && !kConvertible[static_cast<unsigned char>(text[length])]) ++length;
    return length;
}

std::string_view dropBlanks(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && isSpace(text[count]) && text[count] != '\n') ++count;
    return text.substr(count);
}

} // namespace

IndentWriter::IndentWriter(const IndentStreamState& state)
    : indent_(state.indent), keepLeadingWs_(state.keepLeadingWs), wsMode_(state.wsMode),
      tabSize_(std::max(state.tabSize, 1)), line_(std::max(state.line, 1)), column_(std::max(state.column, 0)) {}

IndentStreamState IndentWriter::state() const {
    return {indent_, keepLeadingWs_, wsMode_, tabSize_, line_, column_};
}

void IndentWriter::setTabSize(int tabSize) {
    sync();
    tabSize_ = tabSize;
}

void IndentWriter::setWsMode(int wsMode) {
    sync();
    wsMode_ = wsMode;
}

void IndentWriter::write(std::string_view text) {
    writeUnder(text, indent_, keepLeadingWs_);
}

void IndentWriter::writeExact(std::string_view text) {
    writeUnder(text, indent_, true);
}

void IndentWriter::writeRaw(std::string_view text) {
    writeUnder(text, std::string_view(), true);
}

void IndentWriter::sync() {
    flushHeldSpaces();
}

int IndentWriter::indentWidth() const {
    return textColumn(indent_, 0, tabSize_);
}

std::string IndentWriter::makeIndent(int width) const {
    return Zelmar::makeIndent(indent_, wsMode_, tabSize_, width);
}

std::string IndentWriter::takeText() {
    sync();
    std::string taken;
    taken.swap(text_);
    return taken;
}

void IndentWriter::setPlace(int line, int column) {
    line_ = line;
    column_ = column;
}

void IndentWriter::writeUnder(std::string_view text, std::string_view indent, bool keepLeadingWs) {
    if (!isWsMode(wsMode_)) {
        failed_ = failed_ || !text.empty();
        return;
    }
    while (true) {
        if (column_ == 0 && !keepLeadingWs) text = dropBlanks(text);
        if (text.empty()) return;
        if (column_ == 0 && text.front() != '\n') writeSegment(indent);
        const std::size_t feed = text.find('\n');
        const std::size_t length = feed == std::string_view::npos ? text.size() : feed + 1;
        writeSegment(text.substr(0, length));
        text.remove_prefix(length);
    }
}

void IndentWriter::writeSegment(std::string_view segment) {
    if (wsMode_ == kWsKeep) {
        copySegment(segment);
    } else {
        convertSegment(segment);
    }
}

void IndentWriter::copySegment(std::string_view segment) {
    text_.append(segment);
    for (const char c : segment) advance(c);
}

void IndentWriter::convertSegment(std::string_view segment) {
    while (!segment.empty()) {
        const std::size_t run = plainRun(segment);
        if (run > 0) {
            flushHeldSpaces();
            text_.append(segment.substr(0, run));
            column_ += static_cast<int>(run);
            prevChar_ = static_cast<unsigned char>(segment[run - 1]);
            segment.remove_prefix(run);
            continue;
        }
        convert(segment.front());
        segment.remove_prefix(1);
    }
}

void IndentWriter::convert(char c) {
    trackLiteral(c);
    const bool inLiteral = quote_ >= 0;
    if (wsMode_ == kWsTabsToSpaces && c == '\t' && !inLiteral) {
        const int width = tab() - column_ % tab();
        text_.append(static_cast<std::size_t>(width), ' ');
        column_ += width;
        return;
    }
    if (wsMode_ == kWsSpacesToTabs && c == ' ' && !inLiteral && holdBack()) return;
    flushHeldSpaces();
    append(c);
}

// Knows nothing of comments: an apostrophe in one keeps the rest of its line from being converted,
// which is harmless, while losing track of a real literal would change a program.
void IndentWriter::trackLiteral(char c) {
    const bool escaped = prevChar_ == '\\';
    const int ch = static_cast<unsigned char>(c);
    if (quote_ >= 0) {
        if (c == '\n' || (ch == quote_ && !escaped)) quote_ = -1;
    } else if ((c == '"' || c == '\'') && !escaped) {
        quote_ = ch;
    }
    prevChar_ = ch;
}

// Only runs of spaces that start on a tab stop become tabs. A held space counts in the column at
// once, so a full run already stands on the tab stop when its tab goes out.
bool IndentWriter::holdBack() {
    if (pendingSpaces_ < 1) {
        if (column_ % tab() != 0) return false;
        pendingSpaces_ = 1;
        ++column_;
        return true;
    }
    ++pendingSpaces_;
    ++column_;
    if (pendingSpaces_ == tab()) {
        pendingSpaces_ = 0;
        text_.push_back('\t');
    }
    return true;
}

void IndentWriter::flushHeldSpaces() {
    if (pendingSpaces_ < 1) return;
    text_.append(static_cast<std::size_t>(pendingSpaces_), ' ');
    pendingSpaces_ = 0;
}

void IndentWriter::append(char c) {
    text_.push_back(c);
    advance(c);
}

void IndentWriter::advance(char c) {
    if (c == '\n') {
        ++line_;
        column_ = 0;
    } else {
        column_ += c == '\t' ? tab() - column_ % tab() : 1;
    }
}

} // namespace Zelmar
