#include "cpp/Cpp_RawString.h"

#include "cpp/Cpp_CharClass.h"

#include <array>

namespace Cpp {

using namespace Chars;

namespace {

constexpr std::size_t kLongestDelimiter = 16;

bool isDelimiterChar(char c) {
    return !isSpace(c) && c != '(' && c != ')' && c != '\\';
}

} // namespace

bool hasRawPrefix(std::string_view text, std::size_t quote) {
    const std::size_t end = beforeSplices(text, quote);
    std::size_t begin = end;
    while (begin > 0 && end - begin < 4 && kWordChars[index(text[begin - 1])]) --begin;
    const std::string_view prefix = text.substr(begin, end - begin);
    return prefix == "R" || prefix == "LR" || prefix == "uR" || prefix == "UR" || prefix == "u8R";
}

RawString readRawString(std::string_view text, std::size_t quote, bool oddDelimiters) {
    RawString raw;
    std::array<char, kLongestDelimiter + 2> closing;
    std::size_t length = 0;
    closing[length++] = ')';
    std::size_t pos = quote + 1;
    for (; pos < text.size() && isDelimiterChar(text[pos]); ++pos) {
        if (length > kLongestDelimiter) return raw;
        raw.hasOddDelimiter = raw.hasOddDelimiter || text[pos] == '"';
        closing[length++] = text[pos];
    }
    if (pos >= text.size() || text[pos] != '(' || (raw.hasOddDelimiter && !oddDelimiters)) return raw;
    closing[length++] = '"';
    const std::size_t close = text.find(std::string_view(closing.data(), length), pos + 1);
    const bool closed = close != std::string_view::npos;
    raw.kind = closed ? RawString::Kind::closed : RawString::Kind::unclosed;
    raw.end = closed ? close + length : text.size();
    return raw;
}

} // namespace Cpp
