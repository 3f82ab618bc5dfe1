#include "cpp/Cpp_DirectiveWalker.h"

#include "cpp/Cpp_CharClass.h"
#include "cpp/Cpp_RawString.h"

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

constexpr std::size_t kNone = std::string_view::npos;

/// What stands in front of a "<" says that the name of a header follows.
bool takesHeaderName(std::string_view front) {
    const auto isBetween = [](char c) { return isSpace(c) || c == '('; };
    while (!front.empty() && isBetween(front.back())) front.remove_suffix(1);
    std::size_t begin = front.size();
    while (begin > 0 && kWordChars[index(front[begin - 1])]) --begin;
    const std::string_view word = front.substr(begin);
    return word == "include" || word == "include_next" || word == "import" || word == "embed" ||
           word == "__has_include" || word == "__has_include_next" || word == "__has_embed";
}

} // namespace

bool DirectiveWalker::nextComment() {
    while ((at_ = findStop(text_, at_, kDirectiveStops)) < text_.size()) {
        switch (text_[at_]) {
        case '\n':
            if (!passLineFeed()) return false;
            break;
        case '/':
            if (const std::size_t mark = findCommentMark(text_, at_); mark != kNone && !isQuoted(mark)) {
                if (!passHeaderName()) return text_[mark] == '*' && passComment(mark);
            } else {
                ++at_;
            }
            break;
        default: passQuote(); break;
        }
    }
    return false;
}

bool DirectiveWalker::isQuoted(std::size_t mark) const {
    return at_ < quotedUntil_ && (slashesInStrings_ || text_[mark] == '*');
}

// "#include <sys//types.h>": asked only at a slash, so that it costs nothing elsewhere.
bool DirectiveWalker::passHeaderName() {
    if (!slashesInStrings_) return false;
    const std::string_view front = text_.substr(lineBegin_, at_ - lineBegin_);
    const std::size_t open = front.find_last_of("<>\"");
    if (open == kNone || front[open] != '<' || !takesHeaderName(front.substr(0, open))) return false;
    const std::size_t close = text_.find_first_of("<>\"\n", at_);
    if (close == kNone || text_[close] != '>') return false;
    at_ = close + 1;
    return true;
}

bool DirectiveWalker::passLineFeed() {
    const bool continued = isContinued(text_, lineBegin_, at_);
    lineBegin_ = ++at_;
    return continued;
}

bool DirectiveWalker::passComment(std::size_t mark) {
    const std::size_t end = findCommentEnd(text_, mark);
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
    } else if (!open || text_[at_] != '"' || !passRawString()) {
        if (open && text_[at_] == '"' && at_ >= unquotedUntil_) passOpeningQuote();
        ++at_;
    }
}

// Its line feeds end no directive.
bool DirectiveWalker::passRawString() {
    if (!slashesInStrings_ || !hasRawPrefix(text_, at_)) return false;
    const RawString raw = readRawString(text_, at_, false);
    if (raw.kind == RawString::Kind::none) return false;
    at_ = lineBegin_ = raw.end;
    return true;
}

// A quote that is never closed opens nothing, and no other one is tried as far as the search went,
// so that a line of quotes is not searched over and over.
void DirectiveWalker::passOpeningQuote() {
    const std::size_t stop = findStringStop(text_, at_);
    const bool closed = stop < text_.size() && text_[stop] == '"';
    (closed ? quotedUntil_ : unquotedUntil_) = stop + (closed ? 1 : 0);
}

} // namespace Cpp
