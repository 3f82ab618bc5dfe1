#ifndef KERFLINE_CPP_SCANNER_H
#define KERFLINE_CPP_SCANNER_H

#include "cpp/Cpp_Tokens.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Cpp {

/// One token of a text as a range of it. Offsets count bytes from 0; `end` is one past the last.
/// An empty range is possible: the name in front of a leading "::operator".
struct RawToken {
    std::uint8_t type = 0;
    /// The spelling differs from the range: white space behind a "::" inside the name is left out.
    bool hasInnerSpace = false;
    /// A character literal that its line does not close; its spelling gets a closing quote.
    bool unclosed = false;
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    /// Line of the first character, counted from 1.
    std::uint32_t line = 1;
};

/// Splits a text into tokens without copying any of it: the one place that knows how C and C++
/// tokens are told apart. Never fails: what it cannot read it skips or hands on as tkInvalid.
/// White space leaves no token. A directive is one token, and so is a comment.
/// The text must outlive the scanner; its lines end in line feeds.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    /// Reads the next token into `token`. Returns false at the end of the text.
    bool next(RawToken& token);

    /// Offset and line of the next character to be read.
    std::uint32_t offset() const { return at_; }
    std::uint32_t line() const { return line_; }

private:
    std::string_view text_;
    std::uint32_t at_ = 0;
    std::uint32_t line_ = 1;
    RawToken pending_;
    bool hasPending_ = false;
    // The private scanners are declared by the one who writes them.
};

/// All tokens of `text`, appended to `tokens`.
void scanAll(std::string_view text, std::vector<RawToken>& tokens);

/// The spelling of a token of `text`.
std::string spelling(std::string_view text, const RawToken& token);

/// White space as the C library's isspace sees it in the "C" locale, whatever the locale is.
constexpr bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
/// A character that can stand in an identifier: letters, digits, "_", "$" and all bytes from 0x80.
constexpr bool isIdentifierChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// True if no blank may be lost between a text that ends in `left` and one that starts with
/// `right`: the two would read as one identifier, or as another operator ("+ +", "/ *", ": ::").
bool needsBlank(char left, char right);

} // namespace Cpp

#endif
