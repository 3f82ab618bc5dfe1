#ifndef KERFLINE_TRN_PARSER_H
#define KERFLINE_TRN_PARSER_H

#include "trn/Trn_Lexer.h"
#include "trn/Trn_Message.h"
#include "trn/Trn_SyntaxNode.h"

namespace Trn {

/// Builds a tree from the tokens of a lexer.
class Parser {
public:
    virtual ~Parser() = default;

    /// Reads `lexer` to its end, replaces what `root` holds, and appends diagnostics to `messages`.
    /// What kinds of lexer and root it takes is up to the language.
    virtual void parse(Lexer& lexer, SyntaxNode& root, MessageList& messages) = 0;

protected:
    Parser() = default;
    Parser(const Parser&) = default;
    Parser& operator=(const Parser&) = default;
};

} // namespace Trn

#endif
