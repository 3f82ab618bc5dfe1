#include "cpp/Cpp_DirectiveWalker.h"

#include "cpp/Cpp_CharClass.h"

#include <algorithm>

namespace Cpp {

namespace {

using namespace Chars;

constexpr CharTable<bool> kStringStops = makeCharSet("\"\\\n");
constexpr CharTable<bool> kDirectiveStops = makeCharSet("\"'/\n");

/// Offset of the quote that closes the string opened at `at`, or of what ends the search for it: a
/// line feed with no backslash in front of it, or the end of the text.
std::size_t findStringStop(std::string_view text, std::size_t at) {
    std::size_t pos = findStop(text, at + 1, kStringStops);
    while (pos < text.size() && text[pos] == '\\') pos = findStop(text, pos + 2, kStringStops);
    return std::min(pos, text.size());
}

} // namespace

bool DirectiveWalker::nextComment() {
    while ((at_ = findStop(text_, at_, kDirectiveStops)) < text_.size()) {
        switch (text_[at_]) {
        case '\n':
            if (!passLineFeed()) return false;
            break;
        case '/':
            if (opensLineComment()) return false;
            if (opensComment()) return passComment();
            ++at_;
            break;
        default: passQuote(); break;
        }
    }
    return false;
}

bool DirectiveWalker::opensLineComment() const {
    return (at_ >= quotedUntil_ || !slashesInStrings_) && startsWith(text_, at_, "//");
}

bool DirectiveWalker::opensComment() const {
    return at_ >= quotedUntil_ && startsWith(text_, at_, "/*");
}

bool DirectiveWalker::passLineFeed() {
    const bool continued = isContinued(text_, lineBegin_, at_);
    lineBegin_ = ++at_;
    return continued;
}

bool DirectiveWalker::passComment() {
    const std::size_t end = findCommentEnd(text_, at_);
    if (findLineFeed(text_.substr(0, end), at_) != end) {
        stoppedAtComment_ = true;
        return false;
    }
    // A backslash in front of the comment does not continue the line.
    at_ = lineBegin_ = end;
    return true;
}

void DirectiveWalker::passQuote() {
    const bool open = at_ >= quotedUntil_;
    if (open && startsWith(text_, at_, "'\"'")) {
        at_ += 3;
    } else if (open && startsWith(text_, at_, "'\\\"'")) {
        at_ += 4;
    } else {
        if (open && text_[at_] == '"' && at_ >= unquotedUntil_) passOpeningQuote();
        ++at_;
    }
}

// A quote that is never closed opens nothing, and no other one is tried as far as the search went,
// so that a line of quotes is not searched over and over.
void DirectiveWalker::passOpeningQuote() {
    const std::size_t stop = findStringStop(text_, at_);
    const bool closed = stop < text_.size() && text_[stop] == '"';
    (closed ? quotedUntil_ : unquotedUntil_) = stop + (closed ? 1 : 0);
}

} // namespace Cpp
