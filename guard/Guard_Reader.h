#ifndef KERFLINE_GUARD_READER_H
#define KERFLINE_GUARD_READER_H

#include "guard/Guard_Text.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Guard {

enum class Kind : std::uint8_t {
    end,           // of the text; its range is empty
    token,         // any preprocessing token of one spelling
    macroParen,    // the "(" that makes a macro take arguments, as nothing stands in front of it
    literal,       // a string, a character or a header name, with prefix and suffix
    looseLiteral,  // one that its line does not close, or one in the text of a message
    blockComment,
    lineComment,   // without its line feed
    splice,        // outside of all of these
    directive,     // the "#" or "%:" that opens one
    directiveEnd,  // the line feed behind it, or the end of the text; its range is empty
};

struct Item {
    Kind kind = Kind::end;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Reads a text as a compiler does before it expands a macro: splices, comments, directives and
/// preprocessing tokens, the rules of C and of C++ together. White space leaves no item. It belongs to the
/// check of results, so it must never use code of what it checks.
///
///     #define A (x) \      directive 'define' 'A' '(' 'x' ')' splice directiveEnd
///
///     #define A(x)         directive 'define' 'A' macroParen 'x' ')' directiveEnd
///
/// What no compiler accepts is read as compilers do in a group that is never compiled: a literal that is
/// not closed reaches to the end of its line, a comment or raw string to the end of the text. Costs in step
/// with the length of the text and keeps nothing of it. The text must outlive the reader.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    /// Reads the next item. At the end of the text each further call gives Kind::end.
    void next(Item& item);

private:
    /// What the tokens so far make of the next one.
    enum class Expect : std::uint8_t {
        anything,
        directiveName,
        macroName,
        headerName,
        headerParen, // of __has_include
        exported,    // "export" that starts a line
        message,     // through the end of the directive
    };

    void skipBlanks();
    void readVisible(Item& item);
    void readWord(Item& item);
    // `quote` is the offset of the opening quote, behind a prefix if there is one.
    void readLiteral(Item& item, std::size_t quote);
    void readRawString(Item& item, std::size_t quote);
    void readHeaderName(Item& item, char closing);
    bool closesHeaderName();
    void readSlash(Item& item);
    void readPunctuator(Item& item);
    void readBackslash(Item& item);
    Expect afterWord(std::size_t begin, std::size_t end) const;
    // The item from the read point to `end`, which becomes the read point.
    void finish(Item& item, Kind kind, std::size_t end);
    void finishToken(Item& item, Kind kind, std::size_t end);
    void finishLiteral(Item& item, std::size_t closed);

    Text text_;
    std::size_t at_ = 0;
    // No token stands on the line so far.
    bool atLineStart_ = true;
    bool inDirective_ = false;
    Expect expect_ = Expect::anything;
    // Where a "(" would make the macro whose name was just read take arguments.
    std::size_t macroParen_ = std::string_view::npos;
    // Up to here no ">" closes a header name, so that a line of "<" is not searched over and over.
    std::size_t openUntil_ = 0;
};

} // namespace Guard

#endif
