#include "guard/Guard_Difference.h"

#include "guard/Guard_Reader.h"

#include <algorithm>

namespace Guard {

namespace {

std::size_t blanksEnd(std::string_view text, std::size_t at) {
    while (at < text.size() && isBlank(text[at])) ++at;
    return at;
}

std::size_t whiteEnd(std::string_view text, std::size_t at) {
    while (at < text.size() && isWhite(text[at])) ++at;
    return at;
}

/// Blanks in the middle of a line or at its end: only tabs make them take another width.
bool sameBlanks(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (a.empty() || b.empty()) return false;
    return a.find('\t') != std::string_view::npos || b.find('\t') != std::string_view::npos;
}

/// A stretch of white space inside a comment.
bool sameWhite(std::string_view a, std::string_view b) {
    if (std::count(a.begin(), a.end(), '\n') != std::count(b.begin(), b.end(), '\n')) return false;
    return sameBlanks(a.substr(0, blanksEnd(a, 0)), b.substr(0, blanksEnd(b, 0)));
}

/// Compares comments and the like: white space at the start of a line is free.
bool sameLoosely(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (true) {
        while (i < a.size() && j < b.size() && a[i] == b[j] && !isWhite(a[i])) {
            ++i;
            ++j;
        }
        const std::size_t endA = whiteEnd(a, i);
        const std::size_t endB = whiteEnd(b, j);
        // Blanks at the end of a line comment belong to the line more than to the comment.
        if (endA == a.size() && endB == b.size()) return true;
        if ((endA == i && endB == j) || !sameWhite(a.substr(i, endA - i), b.substr(j, endB - j))) return false;
        i = endA;
        j = endB;
    }
}

bool isLoose(Kind kind) {
    return kind == Kind::blockComment || kind == Kind::lineComment || kind == Kind::looseLiteral;
}

bool sameText(Kind kind, std::string_view a, std::string_view b) {
    if (a == b) return true;
    // Some compilers take no splice where a blank stands behind the backslash.
    if (kind == Kind::splice) return (a.size() == 2) == (b.size() == 2);
    return isLoose(kind) && sameLoosely(a, b);
}

bool isDirectivePart(Kind kind) {
    return kind == Kind::directive || kind == Kind::directiveEnd || kind == Kind::macroParen;
}

std::string_view reasonFor(Kind source, Kind result) {
    const auto either = [source, result](auto test) { return test(source) || test(result); };
    if (either([](Kind kind) { return kind == Kind::splice; })) return "a joined line begins or ends elsewhere";
    if (either(isDirectivePart)) return "a directive begins or ends elsewhere";
    if (either([](Kind kind) { return kind == Kind::blockComment || kind == Kind::lineComment; })) {
        return "a comment is not the same";
    }
    return "a token is not the same";
}

Place placeOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    Place place;
    place.offset = offset;
    place.line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const std::size_t feed = before.rfind('\n');
    place.column = offset - (feed == std::string_view::npos ? 0 : feed + 1) + 1;
    return place;
}

} // namespace

std::optional<Difference> firstDifference(std::string_view source, std::string_view result) {
    if (source == result) return std::nullopt;
    Reader sourceReader(source);
    Reader resultReader(result);
    Item a;
    Item b;
    do {
        sourceReader.next(a);
        resultReader.next(b);
        if (a.kind != b.kind || !sameText(a.kind, source.substr(a.begin, a.end - a.begin), result.substr(b.begin, b.end - b.begin))) {
            return Difference{placeOf(source, a.begin), placeOf(result, b.begin), reasonFor(a.kind, b.kind)};
        }
    } while (a.kind != Kind::end);
    return std::nullopt;
}

} // namespace Guard
