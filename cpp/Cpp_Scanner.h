#ifndef KERFLINE_CPP_SCANNER_H
#define KERFLINE_CPP_SCANNER_H

#include "cpp/Cpp_Tokens.h"
#include "streams/Zelmar_Columns.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Position.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Cpp {

/// One token of a text as a range of it. Offsets count bytes from 0; `end` is one past the last.
///
/// A name that ends in "::" because no name follows takes the white space behind it into its range
/// ("A::  *" gives "A::  "). An empty range is possible: the name in front of a "::operator",
/// "::new" or "::delete" that nothing qualifies; the keyword is then the next token.
struct RawToken {
    std::uint8_t type = 0;
    /// The spelling is not the range as it stands: white space behind a "::" inside a name and joined
    /// line ends are left out, and a directive gets one more "/" behind every comment in it.
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
/// White space leaves no token. A directive is one token through its line feed, and so is a
/// comment; either ends the other.
///
///     A::operator=(x);    A   ::operator   =   (   x   )   ;
///
/// A block comment over several lines ends the directive it stands in. What follows the comment on
/// its last line still belongs to the directive, so it is one more tkDirective. A raw string comes
/// as its prefix, an identifier, and one string literal through the closing delimiter.
///
/// A backslash at the end of a line comment takes the next line in, as a compiler does: code that were
/// laid out there would come to life. With LineComments::byLine a line comment ends with its line
/// whatever it ends in, and a "//" inside a string of a directive starts one, too.
///
/// A line end that a backslash joins may stand anywhere in a token, a raw string excepted. The
/// digraphs are the brackets and the "#" that they stand for. Names are made of letters, digits, "_",
/// "$", universal character names and all bytes from 0x80. A byte order mark in front is skipped.
///
/// Skipped without a token: bytes that start none, a "#" that is an argument by itself, and a string that its line
/// does not close.
///
/// The text must outlive the scanner; its lines end in line feeds. Costs nothing to construct.
class Scanner {
public:
    enum class LineComments { continued, byLine };

    explicit Scanner(std::string_view text, LineComments lineComments = LineComments::continued)
        : text_(text), lineComments_(lineComments) {}

    /// Reads the next token into `token`. Returns false at the end of the text.
    bool next(RawToken& token);

    /// Offset and line of the next character to be read. A token held back is read already.
    std::uint32_t offset() const { return at_; }
    std::uint32_t line() const { return line_; }

private:
    char peek(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }
    void skipSpace();
    // Each moves on and returns true if it made a token; otherwise what it read is skipped.
    bool scanToken(RawToken& token);
    bool scanName(RawToken& token);
    bool scanLongName(RawToken& token);
    bool scanNumber(RawToken& token);
    bool scanPunctuator(RawToken& token);
    bool scanComment(RawToken& token);
    bool scanJoined(RawToken& token);
    std::size_t findLineCommentEnd(std::size_t mark) const;
    std::size_t findLiteralStop(const std::array<bool, 256>& stops) const;
    bool scanLiteral(RawToken& token);
    bool scanString(RawToken& token);
    bool scanRawString(RawToken& token);
    bool scanCharacter(RawToken& token);
    static bool isArgument(std::string_view text, std::size_t hash);
    bool scanDirective(RawToken& token);
    bool scanDirectiveTail(RawToken& token);
    // The token from the read point to `end`, which becomes the read point. Both return true.
    bool finish(RawToken& token, int type, std::size_t end);
    bool finishOverLines(RawToken& token, int type, std::size_t end);

    std::string_view text_;
    LineComments lineComments_;
    std::uint32_t at_ = 0;
    std::uint32_t line_ = 1;
    // The second of two tokens that one scan has found.
    RawToken pending_;
    bool hasPending_ = false;
    // Behind a directive that a comment over several lines has ended.
    bool inDirectiveTail_ = false;
    // A raw string with a quote in its delimiter was looked for in vain.
    bool oddRawMissed_ = false;
};

/// All tokens of `text`, appended to `tokens`.
void scanAll(std::string_view text, std::vector<RawToken>& tokens);

/// The spelling of a token of `text`: its range, but for what hasInnerSpace and unclosed tell.
std::string spelling(std::string_view text, const RawToken& token);

using Zelmar::isSpace;

/// The places of the first and of the last character of a token of `source`. Constant time unless
/// the token spans lines. An empty token ends one column in front of its start.
Trn::Position startOf(const Zelmar::SourceText& source, const RawToken& token);
Trn::Position endOf(const Zelmar::SourceText& source, const RawToken& token);

/// A character that can stand in an identifier: letters, digits, "_", "$" and all bytes from 0x80.
constexpr bool isIdentifierChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// True if `left` and `right`, which stand side by side, are parts of one word or of one literal with
/// its prefix or suffix, so that white space between them would tear it apart. Only the ends count.
bool isOneWord(std::string_view left, std::string_view right);

/// True if a line comment starts at `at`.
bool opensLineComment(std::string_view text, std::size_t at);

/// The character of `text` at `at`, or for a digraph there the one that it stands for: "{", "}", "[",
/// "]" or "#". A null character behind the end.
char meaningAt(std::string_view text, std::size_t at);

/// True if the last blank between a text that ends in `left` and one that starts with `right` must
/// stay, since without it the two would read as one: two identifier characters, a literal and its
/// prefix or suffix, a number and a ".", or the start of a longer operator or of a comment ("+ +",
/// "/ *", ": ::"). Where two characters do not tell, the blank stays.
bool needsBlank(char left, char right);

/// The same with all of the text on either side to look at, of which only the ends count. So it
/// sees more: a sign behind a number that ends in "e" ("0xe +1" would read as one exponent), a name
/// in front of a "::" and a "~" in front of a name ("A ::b", "~ a"), each of which would read as one
/// name. An empty side needs no blank.
bool needsBlank(std::string_view left, std::string_view right);

} // namespace Cpp

#endif
