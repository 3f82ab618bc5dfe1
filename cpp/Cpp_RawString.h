#ifndef KERFLINE_CPP_RAWSTRING_H
#define KERFLINE_CPP_RAWSTRING_H

#include <cstddef>
#include <string_view>

namespace Cpp {

/// A raw string literal from its quote on, as far as one stands there.
struct RawString {
    enum class Kind { none, closed, unclosed };
    Kind kind = Kind::none;
    /// The delimiter holds a quote. So does many a text that only looks like the start of one.
    bool hasOddDelimiter = false;
    /// Offset behind the closing quote; of one that is not closed, the end of the text.
    std::size_t end = 0;
};

/// True if the quote at `quote` has one of the prefixes of a raw string directly in front of it.
bool hasRawPrefix(std::string_view text, std::size_t quote);

/// Reads the raw string whose prefix stands in front of `quote`. A joined line end inside is nothing
/// but characters of it. With `oddDelimiters` false one that has such a delimiter is none.
RawString readRawString(std::string_view text, std::size_t quote, bool oddDelimiters);

} // namespace Cpp

#endif
