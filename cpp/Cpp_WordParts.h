#ifndef KERFLINE_CPP_WORDPARTS_H
#define KERFLINE_CPP_WORDPARTS_H

#include "cpp/Cpp_CharClass.h"

#include <cstddef>
#include <string_view>

/// The rarer parts of a word: letters spelled by a code or a name, and joined line ends within it.
namespace Cpp {

/// Length of the universal character name at `at`: "\u00e4", "\U000000e4", "\u{e4}" or "\N{NAME}".
/// 0 if none stands there.
inline std::size_t namedCharLength(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size() || text[at] != '\\') return 0;
    const char kind = text[at + 1];
    if (kind != 'u' && kind != 'U' && kind != 'N') return 0;
    const bool braced = kind != 'U' && at + 2 < text.size() && text[at + 2] == '{';
    std::size_t end = at + (braced ? 3 : 2);
    if (!braced) {
        const std::size_t digits = kind == 'u' ? 4 : kind == 'U' ? 8 : 0;
        const std::size_t stop = end + digits;
        while (end < stop && end < text.size() && Chars::isHexDigit(text[end])) ++end;
        return digits > 0 && end == stop ? stop - at : 0;
    }
    const auto isOfName = [](char c) { return Chars::isLetter(c) || Chars::isDigit(c) || c == ' ' || c == '-'; };
    while (end < text.size() && (kind == 'N' ? isOfName(text[end]) : Chars::isHexDigit(text[end]))) ++end;
    const bool closed = end < text.size() && text[end] == '}' && end > at + 3;
    return closed ? end + 1 - at : 0;
}

/// Where a word that has come to a backslash at `at` goes on: behind a universal character name, or at
/// the letter behind joined line ends. `at` if the word ends here.
inline std::size_t behindWordPart(std::string_view text, std::size_t at) {
    const std::size_t next = Chars::behindSplices(text, at);
    if (const std::size_t length = namedCharLength(text, next)) return next + length;
    const bool joined = next > at && next < text.size() && Chars::kWordChars[Chars::index(text[next])];
    return joined ? next : at;
}

} // namespace Cpp

#endif
