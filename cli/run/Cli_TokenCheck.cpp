#include "cli/run/Cli_TokenCheck.h"

#include "cpp/Cpp_Scanner.h"

#include <algorithm>

namespace Cli {

namespace {

std::string_view range(std::string_view text, const Cpp::RawToken& token) {
    return text.substr(token.begin, token.end - token.begin);
}

void skipSpace(std::string_view text, std::size_t& at) {
    while (at < text.size() && Cpp::isSpace(text[at])) ++at;
}

/// True if the quote at `at` is the character of a literal, as in '"' and '\"'.
bool isQuotedCharacter(std::string_view text, std::size_t at) {
    const std::string_view before = text.substr(0, at);
    return before.ends_with('\'') || before.ends_with("'\\");
}

/// Length of the string that the double quote at `at` opens, or 1 if it opens none since nothing
/// closes it. Then `openUntil` becomes the place up to which nothing closes any quote, so that a line
/// of quotes is not searched over and over.
std::size_t literalLength(std::string_view text, std::size_t at, std::size_t& openUntil) {
    if (at < openUntil || isQuotedCharacter(text, at)) return 1;
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != '"' && text[end] != '\n') end += text[end] == '\\' ? 2 : 1;
    if (end < text.size() && text[end] == '"') return end + 1 - at;
    openUntil = end;
    return 1;
}

/// With `guardsLiterals`, white space between double quotes counts.
bool equalButForSpace(std::string_view a, std::string_view b, bool guardsLiterals) {
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t openUntil = 0;
    while (true) {
        const std::size_t beforeA = i;
        const std::size_t beforeB = j;
        skipSpace(a, i);
        skipSpace(b, j);
        // White space at the end is the line end that the last line of a file may lack.
        if (i == a.size() || j == b.size()) return i == a.size() && j == b.size();
        if ((i == beforeA) != (j == beforeB)) return false;
        const std::size_t length = guardsLiterals && a[i] == '"' ? literalLength(a, i, openUntil) : 1;
        if (a.substr(i, length) != b.substr(j, length)) return false;
        i += length;
        j += length;
    }
}

/// What lies between two tokens: white space, and rarely characters that belong to no token. A
/// backslash there may guard the line end behind it, so the two stay together.
bool sameStrayCharacters(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (true) {
        skipSpace(a, i);
        skipSpace(b, j);
        if (i == a.size() || j == b.size()) return i == a.size() && j == b.size();
        if (a[i] != b[j] || (a[i] == '\\' && a.substr(i + 1, 1) != b.substr(j + 1, 1))) return false;
        ++i;
        ++j;
    }
}

bool sameToken(std::string_view source, const Cpp::RawToken& a, std::string_view result,
               const Cpp::RawToken& b) {
    if (a.type != b.type) return false;
    const std::string_view left = range(source, a);
    const std::string_view right = range(result, b);
    if (left == right) return true;
    if (Cpp::isCommentOrDirective(a.type)) return equalButForSpace(left, right, a.type == Cpp::tkDirective);
    return (a.hasInnerSpace || b.hasInnerSpace) && Cpp::spelling(source, a) == Cpp::spelling(result, b);
}

Trn::Position positionOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::size_t feed = before.rfind('\n');
    const std::size_t column = before.size() - (feed == std::string_view::npos ? 0 : feed + 1) + 1;
    return {static_cast<std::uint32_t>(line), static_cast<std::uint32_t>(column)};
}

} // namespace

std::optional<Trn::Position> firstTokenDifference(std::string_view source, std::string_view result) {
    if (source == result) return std::nullopt;
    Cpp::Scanner sourceScanner(source);
    Cpp::Scanner resultScanner(result);
    Cpp::RawToken a;
    Cpp::RawToken b;
    while (true) {
        const std::size_t gapA = a.end;
        const std::size_t gapB = b.end;
        const bool moreSource = sourceScanner.next(a);
        const bool moreResult = resultScanner.next(b);
        const std::size_t beginA = moreSource ? a.begin : source.size();
        const std::size_t beginB = moreResult ? b.begin : result.size();
        if (!sameStrayCharacters(source.substr(gapA, beginA - gapA), result.substr(gapB, beginB - gapB))) {
            return positionOf(source, gapA);
        }
        if (!moreSource && !moreResult) return std::nullopt;
        if (moreSource != moreResult || !sameToken(source, a, result, b)) return positionOf(source, beginA);
    }
}

} // namespace Cli
