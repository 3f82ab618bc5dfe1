#ifndef KERFLINE_TRN_LEXER_H
#define KERFLINE_TRN_LEXER_H

#include "trn/Trn_Token.h"

#include <iosfwd>

namespace Trn {

/// Splits a stream into tokens.
class Lexer {
public:
    /// The stream belongs to the derived lexer, which alone keeps it.
    explicit Lexer(std::istream&) {}
    virtual ~Lexer() = default;

    /// Returns the next token; a token of type -1 once the input has ended, and from then on.
    virtual Token nextToken() = 0;
    /// Writes where the lexer stands to `out` and returns it.
    virtual std::ostream& print(std::ostream& out) const = 0;

protected:
    Lexer(const Lexer&) = default;
    Lexer& operator=(const Lexer&) = default;
};

} // namespace Trn

#endif
