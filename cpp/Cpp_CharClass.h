#ifndef KERFLINE_CPP_CHARCLASS_H
#define KERFLINE_CPP_CHARCLASS_H

#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// How the scanner tells characters apart, and its searches over them. Letters beyond ASCII are not
/// told from other characters there: whatever stands in a name comes as bytes from 0x80. The C
/// library's classes depend on the locale and are undefined for negative characters.
namespace Cpp::Chars {

using Zelmar::isSpace;

/// What a token that starts with a character may be. "_", "$" and all bytes from 0x80 count as letters.
enum CharClass : std::uint8_t {
    kSkipped, kSpace, kLetter, kDigit, kQuote, kHash, kSlash, kColon, kTilde, kDot, kPunct
};

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
constexpr bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
/// A visible character that is neither a letter nor a digit.
constexpr bool isPunct(char c) {
    return c > ' ' && c < '\x7f' && !isDigit(c) && !isLetter(c);
}
constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
/// The place of a character in a table.
constexpr std::size_t index(char c) {
    return static_cast<unsigned char>(c);
}

template <class Value> using CharTable = std::array<Value, 256>;

constexpr CharTable<CharClass> makeClasses() {
    CharTable<CharClass> table{};
    for (int i = 0; i < 128; ++i) {
        const char c = static_cast<char>(i);
        if (isSpace(c)) table[index(c)] = kSpace;
        if (isLetter(c)) table[index(c)] = kLetter;
        if (isDigit(c)) table[index(c)] = kDigit;
        if (isPunct(c)) table[index(c)] = kPunct;
    }
    for (int i = 128; i < 256; ++i) table[static_cast<std::size_t>(i)] = kLetter;
    table['_'] = table['$'] = kLetter;
    table['"'] = table['\''] = kQuote;
    table['#'] = kHash;
    table['/'] = kSlash;
    table[':'] = kColon;
    table['~'] = kTilde;
    table['.'] = kDot;
    return table;
}
inline constexpr CharTable<CharClass> kClasses = makeClasses();

constexpr CharTable<bool> makeWordChars() {
    CharTable<bool> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = kClasses[i] == kLetter || kClasses[i] == kDigit;
    return table;
}
inline constexpr CharTable<bool> kWordChars = makeWordChars();

constexpr CharTable<bool> makeCharSet(std::string_view chars) {
    CharTable<bool> table{};
    for (const char c : chars) table[index(c)] = true;
    return table;
}
inline bool startsWith(std::string_view text, std::size_t at, std::string_view part) {
    return text.compare(at, part.size(), part) == 0;
}

/// Offset of the first character of `stops` from `at` on, or the end of the text.
inline std::size_t findStop(std::string_view text, std::size_t at, const CharTable<bool>& stops) {
    while (at < text.size() && !stops[index(text[at])]) ++at;
    return at;
}

/// Offset of the next line feed, or the end of the text.
inline std::size_t findLineFeed(std::string_view text, std::size_t at) {
    return std::min(text.find('\n', at), text.size());
}

inline std::uint32_t countLineFeeds(std::string_view text) {
    return static_cast<std::uint32_t>(std::count(text.begin(), text.end(), '\n'));
}

/// True if the line from `lineBegin` to `lineFeed` ends in a backslash. White space may stand behind
/// it: editors leave it there unseen.
inline bool isContinued(std::string_view text, std::size_t lineBegin, std::size_t lineFeed) {
    std::size_t end = lineFeed;
    while (end > lineBegin && isSpace(text[end - 1])) --end;
    return end > lineBegin && text[end - 1] == '\\';
}

/// Offset behind the joined line ends at `at`: a backslash, white space and a line feed each. Without
/// one it is `at`.
inline std::size_t behindSplices(std::string_view text, std::size_t at) {
    while (at < text.size() && text[at] == '\\') {
        std::size_t end = at + 1;
        while (end < text.size() && isSpace(text[end]) && text[end] != '\n') ++end;
        if (end >= text.size() || text[end] != '\n') return at;
        at = end + 1;
    }
    return at;
}

/// Offset in front of the joined line ends that `end` stands behind. Without one it is `end`.
inline std::size_t beforeSplices(std::string_view text, std::size_t end) {
    while (end > 0 && text[end - 1] == '\n') {
        std::size_t at = end - 1;
        while (at > 0 && isSpace(text[at - 1]) && text[at - 1] != '\n') --at;
        if (at == 0 || text[at - 1] != '\\') return end;
        end = at - 1;
    }
    return end;
}

/// Offset behind the block comment whose opening "*" stands at `star`, or the end of the text.
inline std::size_t findCommentEnd(std::string_view text, std::size_t star) {
    // Looks for the slash, not for the star: banners are made of stars. The "*" of the opening "/*"
    // closes nothing.
    for (std::size_t slash = text.find('/', star + 2); slash != std::string_view::npos;
         slash = text.find('/', slash + 1)) {
        if (text[slash - 1] == '*') return slash + 1;
        if (text[slash - 1] != '\n') continue;
        const std::size_t end = beforeSplices(text, slash);
        if (end > star + 1 && text[end - 1] == '*') return slash + 1;
    }
    return text.size();
}

/// Offset of the second character of the comment that starts at `at`, or npos if none starts there.
inline std::size_t findCommentMark(std::string_view text, std::size_t at) {
    if (at >= text.size() || text[at] != '/') return std::string_view::npos;
    const std::size_t mark = behindSplices(text, at + 1);
    const bool opens = mark < text.size() && (text[mark] == '/' || text[mark] == '*');
    return opens ? mark : std::string_view::npos;
}

} // namespace Cpp::Chars

#endif
