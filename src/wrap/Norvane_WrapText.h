#ifndef KERFLINE_NORVANE_WRAPTEXT_H
#define KERFLINE_NORVANE_WRAPTEXT_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace Norvane {

/// A range of tokens by index, `end` being one past the last.
struct WrapRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool empty() const { return begin >= end; }
};

/// A text in tokens, with everything that the search for places to break asks of it again and again:
/// which bracket closes which, and which brackets lie at which depth. Found once, in one pass.
///
/// What stands between two tokens is white space only: characters that start no token are held as a
/// token of their own (isJunk), so that no break falls between them and no cut loses them. The token
/// behind the last one, at size(), is the end of the text; the gap in front of it is its tail.
///
/// A "<" behind a name counts as a bracket if a ">" closes it inside the brackets around it, with no
/// ";", "&&" or "||" in between; that of a named cast always does. One ">>" closes up to two.
/// Nothing here recurses, and the cost is that of reading the text. The text must outlive this.
class WrapText {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// Whether it is to be known which brackets belong together.
    enum class Brackets { kMatched, kUnmatched };

    explicit WrapText(std::string_view text, Brackets brackets = Brackets::kMatched);

    std::size_t size() const { return tokens_.size() - 1; }
    WrapRange all() const { return {0, size()}; }
    /// The Cpp::TokenType of a token; tkEnd at size().
    int kind(std::size_t index) const { return index < size() ? tokens_[index].kind : endKind(); }
    bool isJunk(std::size_t index) const { return tokens_[index].junk; }
    /// The token stands behind the "{" of braces that hold statements, up to and with the "}".
    bool inCode(std::size_t index) const { return tokens_[index].code; }
    std::string_view token(std::size_t index) const;
    /// The white space in front of a token.
    std::string_view gap(std::size_t index) const;
    /// What stands in front of the token.
    std::string_view before(std::size_t index) const { return text_.substr(0, tokens_[index].begin); }

    /// The other bracket of a pair, or npos. That of a ">>" is the outermost "<" it closes.
    std::size_t mate(std::size_t index) const;
    /// True for a bracket that opens, a "<" only if it is one.
    bool opens(std::size_t index) const;
    /// True for a bracket that closes, a ">" only if it is one.
    bool closes(std::size_t index) const;
    /// The last "(" in front of `index`, or npos.
    std::size_t lastParenBefore(std::size_t index) const;

    /// The "(" at a depth, counted from 1, that have a mate and stand in no square brackets, in order.
    std::span<const std::uint32_t> parens(std::size_t depth) const { return parens_.at(depth); }
    std::size_t parenDepth() const { return parens_.depth(); }
    /// The same for "{", which count wherever they stand.
    std::span<const std::uint32_t> braces(std::size_t depth) const { return braces_.at(depth); }
    std::size_t braceDepth() const { return braces_.depth(); }

private:
    struct Token {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        std::uint32_t mate = kNone;
        std::uint32_t lastParen = kNone;
        std::uint8_t kind = 0;
        bool junk = false;
        bool code = false;
    };
    /// Brackets sorted by their depth, and where each depth starts in the list.
    class Depths {
    public:
        void add(std::uint32_t bracket, std::size_t depth);
        void sort();
        std::span<const std::uint32_t> at(std::size_t depth) const;
        std::size_t depth() const { return starts_.size() < 2 ? 0 : starts_.size() - 2; }

    private:
        std::vector<std::uint32_t> brackets_;
        std::vector<std::uint32_t> depths_;
        std::vector<std::uint32_t> starts_;
    };
    struct Open {
        std::uint32_t index;
        int kind;
        bool isCast;
        bool isCode = false;
    };
    class Matcher;

    static constexpr std::uint32_t kNone = static_cast<std::uint32_t>(-1);
    static int endKind();
    void split();
    void matchBrackets();
    void markCode();
    void addJunk(std::size_t begin, std::size_t end);
    void addToken(std::size_t begin, std::size_t end, std::uint8_t kind, bool junk);

    std::string_view text_;
    std::vector<Token> tokens_; // the last one stands for the end of the text
    Depths parens_;
    Depths braces_;
};

} // namespace Norvane

#endif
