#ifndef KERFLINE_NORVANE_CPPFORMATTER_TEXT_H
#define KERFLINE_NORVANE_CPPFORMATTER_TEXT_H

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/scheme/Norvane_OptionalString.h"

#include <cstddef>
#include <string_view>

namespace Norvane {

/// The value of an option that no scheme sets.
inline const OptionalString& noWs() {
    static const OptionalString unset;
    return unset;
}

/// The value that puts everything on a line of its own.
inline const OptionalString& lineFeedWs() {
    static const OptionalString feed{true, "\n"};
    return feed;
}

/// How a token changes the depth of brackets: 1 for one that opens, -1 for one that closes.
inline int bracketStep(int type) {
    switch (type) {
    case Cpp::tkOpenParen:
    case Cpp::tkOpenBrace:
    case Cpp::tkOpenBracket: return 1;
    case Cpp::tkCloseParen:
    case Cpp::tkCloseBrace:
    case Cpp::tkCloseBracket: return -1;
    default: return 0;
    }
}

/// Offset of the first token of `type` in `text`, or npos.
inline std::size_t findToken(std::string_view text, int type) {
    Cpp::Scanner scanner(text);
    for (Cpp::RawToken token; scanner.next(token);) {
        if (token.type == type) return token.begin;
    }
    return std::string_view::npos;
}

/// `text` ends in a pointer mark, white space aside.
inline bool endsInMark(std::string_view text) {
    return endsInAsterisk(text) || endsInAmpersand(text);
}

/// Where the pointer marks that end `text` begin, with the white space in front of and among them;
/// the size of the text if there are none. The first character always stays with the type.
inline std::size_t trailingMarks(std::string_view text) {
    std::size_t begin = text.size();
    while (begin > 1 && (text[begin - 1] == '*' || text[begin - 1] == '&' || Cpp::isSpace(text[begin - 1]))) --begin;
    return begin;
}

/// Puts a text on one line, each line feed and the indentation behind it giving way to a blank.
/// Leaves one that holds a line comment or a directive alone.
inline void joinLines(std::string& text) {
    for (std::size_t feed = text.find('\n'); feed != std::string::npos; feed = text.find('\n', feed + 1)) {
        const std::size_t next = text.find_first_not_of(" \t", feed + 1);
        text.erase(feed + 1, (next == std::string::npos ? text.size() : next) - feed - 1);
    }
    replaceInGap(text, '\n', ' ');
}

/// The part of a value through its last line feed; empty if there is none.
inline std::string_view throughLastFeed(std::string_view value) {
    const std::size_t feed = value.rfind('\n');
    return value.substr(0, feed == std::string_view::npos ? 0 : feed + 1);
}

} // namespace Norvane

#endif
