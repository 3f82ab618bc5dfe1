#include "streams/Zelmar_IndentWriter.h"

#include <algorithm>

namespace Zelmar {

namespace {

std::size_t plainRun(std::string_view text, const WsStops& stops) {
    std::size_t length = 0;
    while (length < text.size() && !stops.has(text[length])) ++length;
    return length;
}

std::string_view dropBlanks(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && isSpace(text[count]) && text[count] != '\n') ++count;
    return text.substr(count);
}

/// The last character in front of the joined line ends that `written` ends in. A line feed if it ends
/// in none, or if white space stands in front.
char joinedChar(std::string_view written) {
    std::size_t end = written.size();
    while (end > 0 && written[end - 1] == '\n') {
        for (--end; end > 0 && isSpace(written[end - 1]) && written[end - 1] != '\n';) --end;
        if (end == 0 || written[end - 1] != '\\') return '\n';
        --end;
    }
    return end == 0 || end == written.size() || isSpace(written[end - 1]) ? '\n' : written[end - 1];
}

constexpr bool isOfWord(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c >= 0x80 ||
           std::string_view("_$.\"'").find(static_cast<char>(c)) != std::string_view::npos;
}
constexpr bool isOfOperator(char c) {
    return std::string_view("+-*/%<>=&|^!:#.").find(c) != std::string_view::npos;
}

/// Whether a token that has come to `left` may go on with `right`. A backslash may join a further line.
bool mayGoOn(char left, char right) {
    if (left == '\n') return false;
    if (right == '\\') return true;
    const auto isWord = [](char c) { return isOfWord(static_cast<unsigned char>(c)); };
    return (isWord(left) && isWord(right)) || (isOfOperator(left) && isOfOperator(right));
}

} // namespace

IndentWriter::IndentWriter(const IndentStreamState& state)
    : indent_(state.indent), keepLeadingWs_(state.keepLeadingWs), wsMode_(state.wsMode),
      tabSize_(std::max(state.tabSize, 1)), line_(std::max(state.line, 1)),
      column_(std::max(state.column, 0)), shape_(state.shape), copiedFeed_(state.copiedFeed),
      shapeWs_(state.shapeWs), firstIndent_(state.lineIndent) {}

IndentStreamState IndentWriter::state() const {
    return {indent_, keepLeadingWs_, wsMode_, tabSize_, line_, column_, shape_, copiedFeed_, shapeWs_,
            column_ == 0 ? -1 : lineIndent()};
}

void IndentWriter::setShape(const LineShape& shape) {
    shape_ = shape;
    copiedFeed_ = false;
}

void IndentWriter::anchorShape(int sourceColumn) {
    if (shape_.kept && column_ == 0) shape_.shift = indentWidth() - sourceColumn;
}

void IndentWriter::noteCopiedFeed() {
    copiedFeed_ = column_ == 0;
    shapeWs_.clear();
}

void IndentWriter::setTabSize(int tabSize) {
    sync();
    tabSize_ = tabSize;
}

void IndentWriter::setWsMode(int wsMode) {
    sync();
    wsMode_ = wsMode;
}

bool IndentWriter::endsInJoin() const {
    return joinedChar(this->text()) != '\n';
}

void IndentWriter::writeLines(std::string_view text) {
    if (shape_.kept && !keepLeadingWs_) return writeShaped(text);
    writeUnder(text, indent_, keepLeadingWs_);
    if (shape_.kept && text.ends_with('\n')) noteCopiedFeed();
}

// Where nothing is converted all lines go out at once, and only the last one counts for the column.
void IndentWriter::writeRaw(std::string_view text) {
    if (wsMode_ != kWsKeep || text.size() < 2) return writeUnder(text, std::string_view(), true);
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    if (column_ == 0 || lastLine > 0) beginLineAt(size_ + lastLine);
    copiedFeed_ = droppedBlank_ = false;
    append(text);
    line_ += static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    column_ = text.back() == '\n' ? 0 : textColumn(text.substr(lastLine), lastLine > 0 ? 0 : column_, tab());
}

void IndentWriter::reserve(std::size_t bytes) {
    if (buffer_.size() < bytes) buffer_.resize(bytes);
}

void IndentWriter::grow(std::size_t more) {
    static constexpr std::size_t kLeast = 64;
    reserve(std::max({size_ + more, buffer_.size() * 2, kLeast}));
}

void IndentWriter::append(std::string_view text) {
    if (buffer_.size() - size_ < text.size()) grow(text.size());
    std::copy(text.begin(), text.end(), buffer_.data() + size_);
    size_ += text.size();
}

void IndentWriter::append(std::size_t count, char c) {
    if (buffer_.size() - size_ < count) grow(count);
    std::fill_n(buffer_.data() + size_, count, c);
    size_ += count;
}

void IndentWriter::writeVerbatim(std::string_view text) {
    const int mode = wsMode_;
    setWsMode(kWsKeep);
    writeRaw(text);
    setWsMode(mode);
    quote_ = -1;
    if (!text.empty()) prevChar_ = static_cast<unsigned char>(text.back());
}

// The shape is a matter of lines that follow each other in the source: one that a value began has no
// place there.
void IndentWriter::writeShaped(std::string_view text) {
    while (!text.empty()) {
        const std::size_t feed = text.find('\n');
        const std::string_view line = text.substr(0, feed == std::string_view::npos ? feed : feed + 1);
        text.remove_prefix(line.size());
        if (column_ == 0 && copiedFeed_) {
            const std::string_view visible = dropBlanks(line);
            shapeWs_.append(line.substr(0, line.size() - visible.size()));
            if (visible.empty()) return;
            droppedBlank_ = !shapeWs_.empty();
            writeUnder(visible, visible.front() == '\n' ? std::string() : shapedIndent(), false);
        } else {
            writeUnder(line, indent_, false);
        }
        if (line.back() != '\n') continue;
        copiedFeed_ = true;
        shapeWs_.clear();
    }
}

// White space that does not move stays as it is. Tabs come back as tabs.
std::string IndentWriter::shapedIndent() const {
    if (shape_.shift == 0) return shapeWs_;
    const int width = std::max(textColumn(shapeWs_, 0, tab()) + shape_.shift, 0);
    if (shapeWs_.find('\t') != std::string::npos) return tabbedIndent(width);
    return columnIndent(width);
}

// The modes that convert make of blanks what they need.
std::string IndentWriter::tabbedIndent(int width) const {
    const int tabs = wsMode_ == kWsKeep ? width / tab() : 0;
    return std::string(static_cast<std::size_t>(tabs), '\t') +
           std::string(static_cast<std::size_t>(width - tabs * tab()), ' ');
}

std::string IndentWriter::columnIndent(int width) const {
    return tab() > 1 && indent_.find('\t') != std::string::npos ? tabbedIndent(width)
                                                               : std::string(static_cast<std::size_t>(std::max(width, 0)), ' ');
}

int IndentWriter::nextColumn() const {
    if (column_ != 0) return column_;
    const bool shaped = shape_.kept && copiedFeed_ && !keepLeadingWs_;
    return shaped ? std::max(textColumn(shapeWs_, 0, tab()) + shape_.shift, 0) : indentWidth();
}

int IndentWriter::lineIndent() const {
    if (column_ == 0) return indentWidth();
    if (firstIndent_ >= 0) return firstIndent_;
    const std::string_view line = this->text().substr(std::min(lineStart_, size_));
    const std::string_view visible = dropBlanks(line);
    return visible.empty() ? column_ : textColumn(line.substr(0, line.size() - visible.size()), 0, tabSize_);
}

void IndentWriter::clearText() {
    size_ = 0;
    lineStart_ = 0;
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
    taken.swap(buffer_);
    taken.resize(size_);
    size_ = 0;
    lineStart_ = 0;
    return taken;
}

WriterMark IndentWriter::mark() {
    std::string text;
    text.swap(buffer_);
    WriterMark here(*this);
    text.swap(buffer_);
    return here;
}

void IndentWriter::goBackTo(const WriterMark& mark) {
    std::string text;
    text.swap(buffer_);
    *this = mark.writer_;
    text.swap(buffer_);
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
    if (!text.empty()) copiedFeed_ = false;
    while (true) {
        if (column_ == 0) text = startLine(text, indent, keepLeadingWs);
        if (text.empty()) return;
        text.remove_prefix(writeLine(text));
    }
}

// Writes the indent for `text` and returns what is still to be written of it.
std::string_view IndentWriter::startLine(std::string_view text, std::string_view indent, bool keepLeadingWs) {
    const std::string_view visible = dropBlanks(text);
    const std::string_view rest = keepLeadingWs ? text : visible;
    const bool blank = droppedBlank_ || visible.size() < text.size();
    droppedBlank_ = blank && rest.empty();
    if (!rest.empty()) beginLineAt(size_);
    if (rest.empty() || rest.front() == '\n') return rest;
    if (!mayGoOn(joinedChar(this->text()), visible.empty() ? '\n' : visible.front())) {
        writeIndent(indent);
    } else if (blank) {
        writeIndent(indent.empty() && !keepLeadingWs ? " " : indent);
    }
    return rest;
}

void IndentWriter::writeIndent(std::string_view indent) {
    while (!indent.empty()) indent.remove_prefix(writeLine(indent));
}

std::size_t IndentWriter::writeLine(std::string_view text) {
    return wsMode_ == kWsKeep ? copyLine(text) : convertLine(text);
}

// One look at each character finds the end of the line and the column at once: most texts that
// arrive here are single tokens, too short for a search to pay.
std::size_t IndentWriter::copyLine(std::string_view text) {
    std::size_t length = 0;
    int column = column_;
    while (length < text.size()) {
        const char c = text[length++];
        if (c == '\n') {
            ++line_;
            column = 0;
            break;
        }
        column += c == '\t' ? tab() - column % tab() : 1;
    }
    column_ = column;
    append(text.substr(0, length));
    return length;
}

std::size_t IndentWriter::convertLine(std::string_view text) {
    const WsStops& stops = kWsStops[wsMode_];
    std::size_t length = 0;
    while (length < text.size()) {
        if (const std::size_t run = plainRun(text.substr(length), stops); run > 0) {
            copyRun(text.substr(length, run));
            length += run;
            continue;
        }
        const char c = text[length++];
        convert(c);
        if (c == '\n') break;
    }
    return length;
}

void IndentWriter::copyRun(std::string_view run) {
    flushHeldSpaces();
    append(run);
    column_ += static_cast<int>(run.size());
    prevChar_ = static_cast<unsigned char>(run.back());
}

void IndentWriter::convert(char c) {
    trackLiteral(c);
    const bool inLiteral = quote_ >= 0;
    if (wsMode_ == kWsTabsToSpaces && c == '\t' && !inLiteral) {
        const int width = tab() - column_ % tab();
        append(static_cast<std::size_t>(width), ' ');
        column_ += width;
        return;
    }
    if (wsMode_ == kWsSpacesToTabs && c == ' ' && !inLiteral && holdBack()) return;
    flushHeldSpaces();
    copyLine(std::string_view(&c, 1));
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
        append(1, '\t');
    }
    return true;
}

void IndentWriter::flushHeldSpaces() {
    if (pendingSpaces_ < 1) return;
    append(static_cast<std::size_t>(pendingSpaces_), ' ');
    pendingSpaces_ = 0;
}

} // namespace Zelmar
