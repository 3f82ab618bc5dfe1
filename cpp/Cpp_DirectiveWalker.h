#ifndef KERFLINE_CPP_DIRECTIVEWALKER_H
#define KERFLINE_CPP_DIRECTIVEWALKER_H

#include <cstddef>
#include <string_view>

namespace Cpp {

/// Walks over a directive, from one comment inside it to the next, as far as it reaches.
///
/// A directive ends behind the line feed of its last line, where a backslash at the end of a line
/// goes on; in front of a line comment; and in front of a block comment that spans lines. A "/*"
/// inside a string that is closed is text: file patterns hold it. So is a "//", as addresses hold
/// it, if `slashesInStrings` says so; then the name of a header and a raw string are text, too, and
/// the line feeds of the latter end nothing.
class DirectiveWalker {
public:
    /// `begin` is the "#", or where the directive goes on behind a comment that has ended it.
    DirectiveWalker(std::string_view text, std::size_t begin, bool slashesInStrings)
        : text_(text), slashesInStrings_(slashesInStrings), at_(begin), lineBegin_(begin), quotedUntil_(begin),
          unquotedUntil_(begin) {}

    /// Goes on to the next comment inside the directive and stops behind it. Returns false at the
    /// end of the directive.
    bool nextComment();

    std::size_t offset() const { return at_; }
    /// True if the directive ended at a comment that spans lines.
    bool stoppedAtComment() const { return stoppedAtComment_; }

private:
    // `mark` is the second character of what opens a comment.
    bool isQuoted(std::size_t mark) const;
    bool passHeaderName();
    bool passLineFeed();
    bool passComment(std::size_t mark);
    void passQuote();
    bool passRawString();
    void passOpeningQuote();

    std::string_view text_;
    bool slashesInStrings_;
    std::size_t at_;
    // Where to look for a backslash from: the start of the line, or the comment before.
    std::size_t lineBegin_;
    // As far as a string reaches, and as far as it is known that no quote is closed.
    std::size_t quotedUntil_;
    std::size_t unquotedUntil_;
    bool stoppedAtComment_ = false;
};

} // namespace Cpp

#endif
