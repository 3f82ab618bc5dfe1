#ifndef KERFLINE_CPP_TOKENTABLE_H
#define KERFLINE_CPP_TOKENTABLE_H

#include "cpp/Cpp_Scanner.h"
#include "streams/Zelmar_SourceText.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Cpp {

/// A token as the parser sees it: offsets into the source, and a type that may differ from that of
/// the scanner where a C++ keyword can only be a name of a C program.
struct ParseToken {
    std::int16_t type = tkEnd;
    /// A stretch that nobody looks into, such as the one that "#if 0" disables: it is a directive
    /// whose range reaches through its "#endif". A stretch that is no directive is a "}" that closes
    /// nothing, so that it ends whatever it stands in.
    bool isRegion = false;
    /// A "{" that nothing closes, whatever "}" follows.
    bool isUnclosed = false;
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    std::uint32_t line = 1;
};

/// All tokens of one text, with what the parser asks of them again and again found out beforehand in
/// one pass: which brackets belong together, which "<" opens a template argument list, and where the
/// next token that is no comment and no directive stands. Each question costs constant time.
///
/// Indexes count from 0; size() is the index of the end, whose type is tkEnd.
class TokenTable {
public:
    using Index = std::uint32_t;
    static constexpr Index kNone = static_cast<Index>(-1);

    /// `source` must outlive the table. `tokens` are in the order of the text.
    TokenTable(const Zelmar::SourceText& source, std::vector<ParseToken> tokens);

    Index size() const { return static_cast<Index>(tokens_.size() - 1); }
    int type(Index i) const { return tokens_[i].type; }
    const ParseToken& token(Index i) const { return tokens_[i]; }
    /// All of them, without the end.
    std::span<const ParseToken> tokens() const { return std::span(tokens_).first(size()); }
    bool isRegion(Index i) const { return tokens_[i].isRegion; }
    /// A stretch that is left as it stands and no directive.
    bool isLeftAlone(Index i) const { return tokens_[i].isRegion && tokens_[i].type != tkDirective; }

    /// The bracket that belongs to the bracket at `i`, or kNone. A "<" has a partner where it opens a
    /// template argument list, and so has the ">" or ">>" that closes it (the outer one for ">>").
    Index mate(Index i) const { return mates_[i]; }
    /// The first token at or behind `i` that is no comment and no directive.
    Index significant(Index i) const { return significant_[i]; }
    /// The last such token in front of `i`, or kNone.
    Index significantBefore(Index i) const;

    std::string_view source() const { return source_.text(); }
    std::string_view text(Index i) const {
        return source_.text().substr(tokens_[i].begin, tokens_[i].end - tokens_[i].begin);
    }
    std::string spelling(Index i) const;
    /// The spellings from `first` up to but not including `last`, with single blanks between them;
    /// comments and directives are left out.
    std::string joined(Index first, Index last) const;
    /// The text of a statement: its words with single blanks between them. Parentheses, angle brackets
    /// and "template" are left out, and no blank stands in front of the closing ";".
    std::string statement(Index first, Index last) const;
    /// Appends the spelling of a token, a name without the white space in it.
    void appendSpelling(std::string& text, Index i) const;
    Trn::Position start(Index i) const;
    Trn::Position end(Index i) const;

private:
    class BracketMatcher;

    void matchBrackets();
    void findSignificant();

    const Zelmar::SourceText& source_;
    std::vector<ParseToken> tokens_;
    std::vector<Index> mates_;
    std::vector<Index> significant_;
};

/// What the parser starts from. An "#if 0" that no "#endif" closes, and everything behind it, are left out.
struct ParserTokens {
    std::vector<ParseToken> tokens;
    bool regionUnclosed = false;
    std::uint32_t last = 0; // offset of the last token of the text
};

/// Scans `source` into tokens for the parser: the stretches under "#if 0" become one directive each,
/// C++ keywords where only a name can stand become names, and the words of interfaces become "struct".
ParserTokens scanForParser(const Zelmar::SourceText& source);

/// The kinds of conditional directives, told by their first word.
enum class Conditional { None, If, Else, EndIf };
Conditional conditionalOf(std::string_view directive);
/// True for "#if 0", however it is spaced; "#if 00" is one, too.
bool opensDisabledRegion(std::string_view directive);

} // namespace Cpp

#endif
