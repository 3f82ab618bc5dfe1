#include "guard/Guard_Reader.h"

#include "guard/Guard_Words.h"

#include <algorithm>
#include <array>

namespace Guard {

namespace {

/// The spelling of a word without the splices in it, as far as it can be one that means something here.
class ShortWord {
public:
    ShortWord(const Text& text, std::size_t begin, std::size_t end) {
        for (std::size_t at = text.visible(begin); at < end; at = text.visible(at + 1)) {
            if (length_ == chars_.size()) return;
            chars_[length_++] = text.at(at);
        }
    }

    std::string_view spelling() const { return {chars_.data(), length_}; }

private:
    // One more than the longest that is looked for, so that no word is taken for its own start.
    std::array<char, sizeof("__has_include_next")> chars_{};
    std::size_t length_ = 0;
};

bool isRawPrefix(std::string_view word) {
    return word == "R" || word == "LR" || word == "uR" || word == "UR" || word == "u8R";
}

bool isLiteralPrefix(std::string_view word) {
    return word == "L" || word == "u" || word == "U" || word == "u8";
}

bool asksForHeader(std::string_view word) {
    return word == "__has_include" || word == "__has_include_next" || word == "__has_embed";
}

bool takesHeader(std::string_view word) {
    return word == "include" || word == "include_next" || word == "import" || word == "embed";
}

constexpr std::size_t kLongestDelimiter = 16;

/// Offset of the "(" behind the delimiter of a raw string that starts at `begin`, or npos.
std::size_t findRawBody(const Text& text, std::size_t begin) {
    for (std::size_t at = begin; at <= begin + kLongestDelimiter; ++at) {
        const char c = text.at(at);
        if (c == '(') return at;
        if (at == text.size() || isWhite(c) || c == ')' || c == '\\' || c == '"') break;
    }
    return std::string_view::npos;
}

/// Offset of the quote that closes the literal, or of the line feed that leaves it open, or the size of
/// the text. `body` is behind the opening quote.
std::size_t findClosingQuote(const Text& text, std::size_t body, char quote) {
    std::size_t at = body;
    while (at < text.size()) {
        const char c = text.at(at);
        if (c == quote || c == '\n') break;
        if (c != '\\') {
            ++at;
        } else if (const std::size_t end = text.pastSplice(at); end != at) {
            at = end;
        } else {
            const std::size_t escaped = text.visible(at + 1);
            at = text.at(escaped) == '\n' ? escaped : escaped + 1;
        }
    }
    return std::min(at, text.size());
}

/// The same for a header name, where a backslash escapes nothing.
std::size_t findHeaderEnd(const Text& text, std::size_t body, char closing) {
    std::size_t at = text.visible(body);
    while (at < text.size() && text.at(at) != closing && text.at(at) != '\n') at = text.visible(at + 1);
    return std::min(at, text.size());
}

} // namespace

void Reader::next(Item& item) {
    skipBlanks();
    item.begin = at_;
    const bool lineEnds = at_ >= text_.size() || text_.at(at_) == '\n';
    if (lineEnds && inDirective_) {
        inDirective_ = false;
        return finish(item, Kind::directiveEnd, at_);
    }
    if (at_ >= text_.size()) return finish(item, Kind::end, at_);
    readVisible(item);
}

// Stops at the line feed that ends a directive.
void Reader::skipBlanks() {
    while (at_ < text_.size()) {
        const char c = text_.at(at_);
        if (c == '\n') {
            if (inDirective_) return;
            atLineStart_ = true;
            expect_ = Expect::anything;
        } else if (!isBlank(c)) {
            return;
        }
        ++at_;
    }
}

void Reader::readVisible(Item& item) {
    switch (classOf(text_.at(at_))) {
    case Class::letter: return readWord(item);
    case Class::digit: return finishToken(item, Kind::token, findNumberEnd(text_, at_));
    case Class::dot:
        if (!isDigit(text_.at(text_.visible(at_ + 1)))) return readPunctuator(item);
        return finishToken(item, Kind::token, findNumberEnd(text_, at_));
    case Class::quote: return expect_ == Expect::headerName ? readHeaderName(item, '"') : readLiteral(item, at_);
    case Class::apostrophe: return readLiteral(item, at_);
    case Class::slash: return readSlash(item);
    case Class::backslash: return readBackslash(item);
    case Class::mark: return readPunctuator(item);
    default: return finishToken(item, Kind::token, at_ + 1);
    }
}

void Reader::readWord(Item& item) {
    const std::size_t end = findWordEnd(text_, at_);
    const std::size_t next = text_.visible(end);
    const char c = text_.at(next);
    if (c == '"' || c == '\'') {
        const ShortWord word(text_, at_, end);
        if (c == '"' && isRawPrefix(word.spelling())) return readRawString(item, next);
        if (isLiteralPrefix(word.spelling())) return readLiteral(item, next);
    }
    const bool namesMacro = expect_ == Expect::macroName;
    if (namesMacro && c == '(') macroParen_ = next;
    const Expect expect = namesMacro ? Expect::anything : afterWord(at_, end);
    finishToken(item, Kind::token, end);
    expect_ = expect;
}

// Most words stand in the middle of code, where none means anything.
Reader::Expect Reader::afterWord(std::size_t begin, std::size_t end) const {
    if (expect_ == Expect::message) return Expect::message;
    if (!inDirective_ && !atLineStart_ && expect_ == Expect::anything) return Expect::anything;
    const ShortWord shortWord(text_, begin, end);
    const std::string_view word = shortWord.spelling();
    if (expect_ == Expect::directiveName) {
        if (word == "define") return Expect::macroName;
        if (word == "error" || word == "warning") return Expect::message;
        return takesHeader(word) ? Expect::headerName : Expect::anything;
    }
    if (inDirective_) return asksForHeader(word) ? Expect::headerParen : Expect::anything;
    if (word == "import") return Expect::headerName;
    return word == "export" && atLineStart_ ? Expect::exported : Expect::anything;
}

void Reader::readLiteral(Item& item, std::size_t quote) {
    const char mark = text_.at(quote);
    const std::size_t close = findClosingQuote(text_, quote + 1, mark);
    if (text_.at(close) != mark) return finishToken(item, Kind::looseLiteral, close);
    finishLiteral(item, close + 1);
}

void Reader::readRawString(Item& item, std::size_t quote) {
    const std::size_t body = findRawBody(text_, quote + 1);
    if (body == std::string_view::npos) return readLiteral(item, quote);
    const std::string_view delimiter = text_.range(quote + 1, body);
    std::array<char, kLongestDelimiter + 2> closing;
    closing[0] = ')';
    *std::copy(delimiter.begin(), delimiter.end(), closing.begin() + 1) = '"';
    const std::string_view mark(closing.data(), delimiter.size() + 2);
    const std::size_t close = text_.bytes().find(mark, body + 1);
    if (close == std::string_view::npos) return finishToken(item, Kind::literal, text_.size());
    finishLiteral(item, close + mark.size());
}

void Reader::readHeaderName(Item& item, char closing) {
    const std::size_t close = findHeaderEnd(text_, at_ + 1, closing);
    const bool closed = text_.at(close) == closing;
    finishToken(item, closed ? Kind::literal : Kind::looseLiteral, closed ? close + 1 : close);
}

/// True if the "<" at the read point opens a header name.
bool Reader::closesHeaderName() {
    if (at_ < openUntil_) return false;
    const std::size_t close = findHeaderEnd(text_, at_ + 1, '>');
    if (text_.at(close) == '>') return true;
    openUntil_ = close;
    return false;
}

void Reader::readSlash(Item& item) {
    const std::size_t next = text_.visible(at_ + 1);
    switch (text_.at(next)) {
    case '*': return finish(item, Kind::blockComment, findBlockCommentEnd(text_, next + 1));
    case '/': return finish(item, Kind::lineComment, findLineCommentEnd(text_, next + 1));
    default: return readPunctuator(item);
    }
}

void Reader::readPunctuator(Item& item) {
    const char c = text_.at(at_);
    if (c == '<' && expect_ == Expect::headerName && closesHeaderName()) return readHeaderName(item, '>');
    const std::size_t end = findPunctuatorEnd(text_, at_);
    if (atLineStart_ && (c == '#' || c == '%')) {
        const ShortWord mark(text_, at_, end);
        if (mark.spelling() == "#" || mark.spelling() == "%:") {
            inDirective_ = true;
            finishToken(item, Kind::directive, end);
            expect_ = Expect::directiveName;
            return;
        }
    }
    const bool opensHeader = c == '(' && expect_ == Expect::headerParen;
    finishToken(item, c == '(' && at_ == macroParen_ ? Kind::macroParen : Kind::token, end);
    if (opensHeader) expect_ = Expect::headerName;
}

void Reader::readBackslash(Item& item) {
    if (const std::size_t end = text_.pastSplice(at_); end != at_) return finish(item, Kind::splice, end);
    if (startsWord(text_, at_)) return readWord(item);
    finishToken(item, Kind::token, at_ + 1);
}

void Reader::finish(Item& item, Kind kind, std::size_t end) {
    item.kind = kind;
    item.end = end;
    at_ = end;
}

void Reader::finishToken(Item& item, Kind kind, std::size_t end) {
    finish(item, kind, end);
    atLineStart_ = false;
    if (expect_ != Expect::message) expect_ = Expect::anything;
}

// A word right behind the closing quote is a suffix.
void Reader::finishLiteral(Item& item, std::size_t closed) {
    const std::size_t suffix = text_.visible(closed);
    const std::size_t end = startsWord(text_, suffix) ? findWordEnd(text_, suffix) : closed;
    finishToken(item, expect_ == Expect::message ? Kind::looseLiteral : Kind::literal, end);
}

} // namespace Guard
