#ifndef KERFLINE_CPP_LEXER_H
#define KERFLINE_CPP_LEXER_H

#include "cpp/Cpp_Scanner.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Lexer.h"
#include "trn/Trn_Token.h"

#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Cpp {

/// Hands out the tokens of a C or C++ text as values of their own, for those who read a stream.
///
/// The stream is read once and to its end, when the first token or the text is asked for; it is not
/// owned and must live until then. Comments and directives are tokens like all others. Never fails:
/// what is no token is skipped.
class Lexer : public Trn::Lexer {
public:
    explicit Lexer(std::istream& stream) : Trn::Lexer(stream), stream_(&stream) {}
    Lexer(const Lexer&) = delete;
    Lexer& operator=(const Lexer&) = delete;

    /// A name has its spelling as its value, a string literal its unescaped content, and a
    /// character literal the first character of it; all other tokens have none.
    Trn::Token nextToken() override;

    /// Writes the place of the next character to be read, and the column before the last one that
    /// was read (-1 at the start), as "line:\t1\tcol:\t0\tlastlinecol:\t-1\n".
    std::ostream& print(std::ostream& out) const override;

    /// The whole text, with line feeds only. For those who want its tokens without copies.
    const Zelmar::SourceText& source() { return *sharedSource(); }
    /// The same for those who need it longer than the lexer is there.
    const std::shared_ptr<const Zelmar::SourceText>& sharedSource();

    /// Resolves the escapes of a literal: a backslash with "\", "n", "r", "t" or "v" is what it is
    /// in C; any other backslash is dropped.
    static std::string unescape(std::string_view text);

private:
    Trn::Token makeToken(const RawToken& raw) const;
    int columnBeforeLast() const;

    std::istream* stream_;
    // Both are there from the first use on.
    std::shared_ptr<const Zelmar::SourceText> source_;
    std::optional<Scanner> scanner_;
};

} // namespace Cpp

#endif
