#ifndef KERFLINE_CPP_CHARCLASS_H
#define KERFLINE_CPP_CHARCLASS_H

#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// How the scanner tells characters apart, and its searches over them. All of it knows ASCII only:
/// the C library's classes depend on the locale and are undefined for negative characters.
namespace Cpp::Chars {

using Zelmar::isSpace;

/// What a token that starts with a character may be. "_" counts as a letter.
enum CharClass : std::uint8_t {
    kSkipped, kSpace, kLetter, kDigit, kQuote, kHash, kSlash, kColon, kTilde, kPunct
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
    table['_'] = kLetter;
    table['"'] = table['\''] = kQuote;
    table['#'] = kHash;
    table['/'] = kSlash;
    table[':'] = kColon;
    table['~'] = kTilde;
    return table;
}
inline constexpr CharTable<CharClass> kClasses = makeClasses();

constexpr CharTable<bool> makeWordChars() {
    CharTable<bool> table{};
    for (int i = 0; i < 128; ++i) {
        const char c = static_cast<char>(i);
        table[index(c)] = isLetter(c) || isDigit(c) || c == '_';
    }
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

/// Offset behind the block comment that starts at `begin`, or the end of the text.
inline std::size_t findCommentEnd(std::string_view text, std::size_t begin) {
    // Looks for the slash, not for the star: banners are made of stars. The "*" of the opening "/*"
    // closes nothing.
    std::size_t slash = text.find('/', begin + 3);
    while (slash != std::string_view::npos && text[slash - 1] != '*') slash = text.find('/', slash + 1);
    return slash == std::string_view::npos ? text.size() : slash + 1;
}

/// True if the line from `lineBegin` to `lineFeed` ends in a backslash. White space may stand behind
/// it: editors leave it there unseen.
inline bool isContinued(std::string_view text, std::size_t lineBegin, std::size_t lineFeed) {
    std::size_t end = lineFeed;
    while (end > lineBegin && isSpace(text[end - 1])) --end;
    return end > lineBegin && text[end - 1] == '\\';
}

} // namespace Cpp::Chars

#endif
