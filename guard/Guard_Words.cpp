#include "guard/Guard_Words.h"

namespace Guard {

namespace {

bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

/// Offset behind "{LATIN SMALL LETTER A}" or "{e4}" at `at`, or `at` if there is no such thing.
std::size_t pastBraces(const Text& text, std::size_t at) {
    if (text.at(at) != '{') return at;
    std::size_t end = at + 1;
    while (isWordChar(text.at(end)) || text.at(end) == ' ' || text.at(end) == '-') ++end;
    return text.at(end) == '}' ? end + 1 : at;
}

/// Offset behind the universal character name at `at`, or `at` if there is none.
std::size_t pastUniversalName(const Text& text, std::size_t at) {
    if (text.at(at) != '\\') return at;
    const char kind = text.at(at + 1);
    if (kind != 'u' && kind != 'U' && kind != 'N') return at;
    const std::size_t digits = at + 2;
    if (const std::size_t end = pastBraces(text, digits); end != digits) return end;
    if (kind == 'N') return at;
    const std::size_t end = digits + (kind == 'u' ? 4 : 8);
    for (std::size_t digit = digits; digit < end; ++digit) {
        if (!isHexDigit(text.at(digit))) return at;
    }
    return end;
}

bool isSign(char c) { return c == '+' || c == '-'; }

bool isExponent(char c) { return c == 'e' || c == 'E' || c == 'p' || c == 'P'; }

/// Offset behind the part of a number that starts at `at`, which is no splice, or `at` if none does.
std::size_t pastNumberPart(const Text& text, std::size_t at) {
    const char c = text.at(at);
    if (isExponent(c)) {
        const std::size_t sign = text.visible(at + 1);
        return isSign(text.at(sign)) ? sign + 1 : at + 1;
    }
    if (isWordChar(c) || c == '.') return at + 1;
    if (c != '\'') return pastUniversalName(text, at);
    const std::size_t next = text.visible(at + 1);
    return isWordChar(text.at(next)) ? next + 1 : at;
}

/// The characters that follow the first one of an operator, as a compiler sees them.
class Tail {
public:
    Tail(const Text& text, std::size_t at) : text_(text), end_(at + 1) {}

    std::size_t end() const { return end_; }

    char peek() const { return text_.at(text_.visible(end_)); }

    bool take(char c) {
        const std::size_t next = text_.visible(end_);
        if (text_.at(next) != c) return false;
        end_ = next + 1;
        return true;
    }

    bool takeOneOf(std::string_view chars) {
        const std::size_t next = text_.visible(end_);
        if (chars.find(text_.at(next)) == std::string_view::npos) return false;
        end_ = next + 1;
        return true;
    }

private:
    Text text_;
    std::size_t end_;
};

// "<::" is a "<" and a "::", so that a template argument can start with "::", but "<:::" and "<::>" are not.
// The bracket of a splice in C++26 has the same trouble.
bool opensScope(Tail tail) {
    return tail.take(':') && tail.take(':') && !tail.takeOneOf(":>");
}

void takeLess(Tail& tail) {
    if (tail.take('<')) {
        tail.take('=');
    } else if (tail.take('=')) {
        tail.take('>');
    } else if (!tail.take('%') && !opensScope(tail)) {
        tail.take(':');
    }
}

void takePercent(Tail& tail) {
    if (!tail.take(':')) {
        tail.takeOneOf("=>");
        return;
    }
    Tail second = tail;
    if (second.take('%') && second.take(':')) tail = second;
}

void takeDots(Tail& tail) {
    if (tail.take('*')) return;
    Tail rest = tail;
    if (rest.take('.') && rest.take('.')) tail = rest;
}

// Off by default in compilers, but where trigraphs are on their characters must stay together. The one for
// "^" is left out: its apostrophe opens a literal where they are off.
void takeQuestion(Tail& tail) {
    Tail rest = tail;
    if (rest.take('?') && rest.takeOneOf("=/()!<>-")) tail = rest;
}

void takeOpenBracket(Tail& tail) {
    Tail rest = tail;
    if (opensScope(tail) || !rest.take(':') || rest.peek() == '>') return;
    tail = rest;
}

} // namespace

bool startsWord(const Text& text, std::size_t at) {
    return isLetter(text.at(at)) || pastUniversalName(text, at) != at;
}

std::size_t findWordEnd(const Text& text, std::size_t at) {
    while (true) {
        while (isWordChar(text.at(at))) ++at;
        if (text.at(at) != '\\') return at;
        const std::size_t next = text.visible(at);
        const std::size_t end = isWordChar(text.at(next)) ? next + 1 : pastUniversalName(text, next);
        if (end == next) return at;
        at = end;
    }
}

std::size_t findNumberEnd(const Text& text, std::size_t at) {
    while (true) {
        const std::size_t next = text.visible(at);
        const std::size_t end = pastNumberPart(text, next);
        if (end == next) return at;
        at = end;
    }
}

std::size_t findPunctuatorEnd(const Text& text, std::size_t at) {
    Tail tail(text, at);
    switch (text.at(at)) {
    case '+': tail.takeOneOf("+="); break;
    case '&': tail.takeOneOf("&="); break;
    case '|': tail.takeOneOf("|="); break;
    case '^': tail.takeOneOf("^="); break;
    case ':': tail.takeOneOf(":>]"); break;
    case '*': case '/': case '=': case '!': tail.take('='); break;
    case '#': tail.take('#'); break;
    case '>':
        tail.take('>');
        tail.take('=');
        break;
    case '-':
        if (!tail.takeOneOf("-=") && tail.take('>')) tail.take('*');
        break;
    case '<': takeLess(tail); break;
    case '%': takePercent(tail); break;
    case '.': takeDots(tail); break;
    case '?': takeQuestion(tail); break;
    case '[': takeOpenBracket(tail); break;
    default: break;
    }
    return tail.end();
}

std::size_t findBlockCommentEnd(const Text& text, std::size_t body) {
    while (true) {
        const std::size_t star = text.bytes().find('*', body);
        if (star == std::string_view::npos) return text.size();
        const std::size_t slash = text.visible(star + 1);
        if (text.at(slash) == '/') return slash + 1;
        body = star + 1;
    }
}

std::size_t findLineCommentEnd(const Text& text, std::size_t body) {
    while (true) {
        const std::size_t feed = text.findFeed(body);
        std::size_t last = feed;
        while (isBlank(text.at(last - 1))) --last;
        const bool isSpliced = text.at(last - 1) == '\\';
        if (feed == text.size() || !isSpliced) return feed;
        body = feed + 1;
    }
}

} // namespace Guard
