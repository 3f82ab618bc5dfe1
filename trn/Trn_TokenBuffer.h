#ifndef KERFLINE_TRN_TOKENBUFFER_H
#define KERFLINE_TRN_TOKENBUFFER_H

#include "trn/Trn_Token.h"

#include <cstddef>
#include <cstdint>
#include <deque>

namespace Trn {

class Lexer;

/// A window on the tokens of a lexer, or a list of tokens that were saved before.
///
/// On a lexer the window holds seven tokens, of which a refill keeps the last two: so far a parser
/// can always step back. Without a lexer the window is the whole list; at its end the buffer runs
/// dry and hands out tokens of type -1.
class TokenBuffer {
public:
    /// Reads from `lexer`, which is not owned and may be null.
    explicit TokenBuffer(Lexer* lexer = nullptr) : lexer_(lexer) {}
    /// A stand-alone buffer over `tokens`.
    explicit TokenBuffer(std::deque<Token> tokens) : window_(std::move(tokens)) {}
    /// A stand-alone buffer, from its start, over what the window of `other` holds.
    TokenBuffer(const TokenBuffer& other) : window_(other.window_) {}
    TokenBuffer& operator=(const TokenBuffer&) = delete;

    /// Hands out the next token and moves on.
    Token next();
    /// Returns the token `n` places ahead and changes nothing: peek(1) is what next() would hand
    /// out. Requires: n is at least 1. Any n is good; no token is lost.
    Token peek(std::size_t n);
    /// Steps back one place and stores `token` there. Does nothing at the start of the window.
    void putBack(const Token& token);
    /// Steps back one place. Does nothing at the start of the window.
    void stepBack();

private:
    static constexpr std::size_t kWindowSize = 7;
    static constexpr std::size_t kKept = 2;
    static constexpr std::uint32_t kDry = 0xFFFFFFFF;

    void refillIfUsedUp();
    void refill();
    Token takeFromLexer();
    bool canStepBack() const;

    Lexer* lexer_ = nullptr;
    std::uint32_t index_ = 0;
    std::deque<Token> window_;
    // Tokens that a look-ahead has read beyond the window, in order; a refill takes them first.
    std::deque<Token> ahead_;
};

} // namespace Trn

#endif
