#include "src/expr/Norvane_Gap.h"

#include "cpp/Cpp_Scanner.h"
#include "streams/Zelmar_IndentWriter.h"

#include <algorithm>
#include <cstddef>

namespace Norvane {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

bool isLineToken(int type) {
    return type == Cpp::tkLineComment || type == Cpp::tkDirective;
}

/// Whether a text can hold a comment, a directive, a literal or a joined line at all.
bool needsTokens(std::string_view text) {
    return text.find_first_of("/#%\"'\\") != kNone;
}

bool mayHoldComment(std::string_view text) {
    return text.find_first_of("/#%") != kNone;
}

template <class Test> bool anyToken(std::string_view text, Test test) {
    Cpp::Scanner scanner(text);
    for (Cpp::RawToken token; scanner.next(token);) {
        if (test(token.type)) return true;
    }
    return false;
}

/// Offset behind the line comment or directive that `text` starts with, 0 if it starts with none.
/// A directive is followed to the end of its line: a comment may cut it in two.
std::size_t headEnd(std::string_view text) {
    if (!mayHoldComment(text)) return 0;
    Cpp::Scanner scanner(text);
    Cpp::RawToken token;
    if (!scanner.next(token) || !isLineToken(token.type)) return 0;
    std::size_t end = token.end;
    while (text[end - 1] != '\n' && scanner.next(token)) {
        if (hasLineFeed(text.substr(end, token.begin - end))) break;
        end = token.end;
    }
    return end;
}

/// Text behind the last token opens a literal that nothing closes, or joins the next line.
bool isOpenRest(std::string_view rest) {
    const std::string_view visible = trimmedRight(rest);
    if (visible.empty()) return false;
    return visible.back() == '\\' || visible.find('"') != kNone;
}

/// A directive whose last line is a joined empty one: taking its line feed would join the next line.
bool endsInJoinedLine(std::string_view text) {
    const std::string_view visible = trimmedRight(text);
    return !visible.empty() && visible.back() == '\\' && hasLineFeed(text.substr(visible.size()));
}

} // namespace

std::string_view trimmedLeft(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size() && Cpp::isSpace(text[begin])) ++begin;
    return text.substr(begin);
}

std::string_view trimmedRight(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && Cpp::isSpace(text[end - 1])) --end;
    return text.substr(0, end);
}

std::string_view trimmedBoth(std::string_view text) {
    return trimmedLeft(trimmedRight(text));
}

void trimLeft(std::string& text) {
    text.erase(0, text.size() - trimmedLeft(text).size());
}

void trimRight(std::string& text) {
    text.resize(trimmedRight(text).size());
}

void trimBoth(std::string& text) {
    trimRight(text);
    trimLeft(text);
}

bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), Cpp::isSpace);
}

bool isKeptColumn(std::string_view gap, const ColumnRule& rule) {
    if (!rule.kept || !isBlank(gap) || hasLineFeed(gap)) return false;
    return gap.size() > 1 || (rule.byTab && gap == "\t");
}

bool hasLineFeed(std::string_view text) {
    return text.find('\n') != kNone;
}

void eraseChar(std::string& text, char c) {
    text.erase(std::remove(text.begin(), text.end(), c), text.end());
}

bool startsInLineComment(std::string_view text) {
    return headEnd(text) > 0;
}

bool endsInLineComment(std::string_view text) {
    if (!needsTokens(text)) return false;
    Cpp::Scanner scanner(text);
    Cpp::RawToken last;
    bool found = false;
    for (Cpp::RawToken token; scanner.next(token); found = true) last = token;
    if (found && (isLineToken(last.type) || last.unclosed)) return true;
    return isOpenRest(text.substr(found ? last.end : 0));
}

bool holdsLineComment(std::string_view text) {
    return mayHoldComment(text) && anyToken(text, [](int type) { return type == Cpp::tkLineComment; });
}

bool holdsComment(std::string_view text) {
    return mayHoldComment(text) && anyToken(text, Cpp::isCommentOrDirective);
}

namespace {

bool endsInMark(std::string_view text, char mark) {
    const std::string_view visible = trimmedRight(text);
    return visible.size() > 1 && visible.back() == mark && !endsInLineComment(text);
}

} // namespace

bool endsInAsterisk(std::string_view text) {
    return endsInMark(text, '*');
}

bool endsInAmpersand(std::string_view text) {
    return endsInMark(text, '&');
}

void trimGapLeft(std::string& text) {
    const std::size_t head = headEnd(text);
    if (head > 0 && !hasLineFeed(text)) return;
    const std::size_t rest = text.size() - trimmedLeft(std::string_view(text).substr(head)).size();
    text.erase(head, rest - head);
}

void trimGapRight(std::string& text) {
    if (!endsInLineComment(text)) return trimRight(text);
    const std::size_t feed = text.rfind('\n');
    if (feed == kNone) return;
    const std::size_t visible = trimmedRight(text).size();
    // Behind a line that is joined directly behind a word a blank may be all that parts two of them.
    const bool behindWord = visible == 1 || (visible > 1 && !Cpp::isSpace(text[visible - 2]));
    const bool parts = behindWord && visible <= feed && feed + 1 < text.size() && endsInJoinedLine(text);
    text.resize(std::max(visible, feed + (parts ? 2 : 1)));
}

void trimGapBoth(std::string& text) {
    if (!startsInLineComment(text) && !endsInLineComment(text)) trimBoth(text);
}

void replaceGapEnd(std::string& text, std::string_view ws) {
    const bool open = endsInLineComment(text);
    if (open && (!hasLineFeed(ws) || endsInJoinedLine(text))) return trimGapRight(text);
    trimRight(text);
    text.append(ws);
}

void replaceGapStart(std::string& text, std::string_view ws) {
    const std::size_t head = headEnd(text);
    if (head > 0 && !hasLineFeed(text)) return text.clear();
    const std::size_t rest = text.size() - trimmedLeft(std::string_view(text).substr(head)).size();
    text.replace(head, rest - head, ws);
}

void replaceGapEnds(std::string& text, std::string_view left, std::string_view right) {
    replaceGapStart(text, left);
    replaceGapEnd(text, right);
}

void replaceInGap(std::string& text, char from, char to) {
    if (!needsTokens(text)) return std::replace(text.begin(), text.end(), from, to);
    if (anyToken(text, isLineToken) || endsInLineComment(text)) return;
    Cpp::Scanner scanner(text);
    Cpp::RawToken token;
    for (std::size_t at = 0; at < text.size(); at = token.end) {
        if (!scanner.next(token)) token.begin = token.end = static_cast<std::uint32_t>(text.size());
        for (; at < token.begin; ++at) {
            const bool joinsLines = text[at] == '\n' && at > 0 && text[at - 1] == '\\';
            if (text[at] == from && !joinsLines) text[at] = to;
        }
    }
}

int writeToFirstChar(Zelmar::IndentWriter& output, std::string& text) {
    const std::size_t first = text.size() - trimmedLeft(text).size();
    if (first == text.size()) {
        output.write(text);
        text.clear();
        return 0;
    }
    output.write(std::string_view(text).substr(0, first + 1));
    text.erase(0, first + 1);
    return std::max(output.column() - 1, 0);
}

} // namespace Norvane
