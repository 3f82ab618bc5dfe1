#include "cpp/Cpp_Scanner.h"

#include "cpp/Cpp_CharClass.h"
#include "cpp/Cpp_DirectiveWalker.h"
#include "cpp/Cpp_KeywordTable.h"
#include "cpp/Cpp_NumberWalker.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>

namespace Cpp {

using namespace Chars;

namespace {

constexpr CharTable<bool> kStringStops = makeCharSet("\"\\\n");

struct Operator {
    char first;
    TokenType type;
};
using OperatorTable = CharTable<std::uint8_t>;

constexpr OperatorTable makeOperators(std::initializer_list<Operator> operators) {
    OperatorTable table{};
    for (const Operator& op : operators) table[index(op.first)] = static_cast<std::uint8_t>(op.type);
    return table;
}
constexpr OperatorTable kSingle = makeOperators(
    {{';', tkSemicolon}, {':', tkColon}, {',', tkComma}, {'(', tkOpenParen}, {')', tkCloseParen},
     {'{', tkOpenBrace}, {'}', tkCloseBrace}, {'=', tkAssign}, {'*', tkAsterisk}, {'&', tkAmpersand},
     {'[', tkOpenBracket}, {']', tkCloseBracket}, {'/', tkSlash}, {'.', tkDot}, {'+', tkPlus},
     {'-', tkMinus}, {'!', tkExclamation}, {'~', tkTilde}, {'%', tkPercent}, {'<', tkLess},
     {'>', tkGreater}, {'^', tkCaret}, {'|', tkBar}, {'?', tkQuestion}});
constexpr OperatorTable kWithAssign = makeOperators(
    {{'=', tkEqual}, {'!', tkNotEqual}, {'<', tkLessEqual}, {'>', tkGreaterEqual}, {'*', tkMulAssign},
     {'/', tkDivAssign}, {'%', tkModAssign}, {'+', tkAddAssign}, {'-', tkSubAssign}, {'&', tkAndAssign},
     {'^', tkXorAssign}, {'|', tkOrAssign}});
constexpr OperatorTable kDoubled = makeOperators(
    {{'+', tkIncrement}, {'-', tkDecrement}, {'<', tkShiftLeft}, {'>', tkShiftRight}, {'&', tkLogicalAnd},
     {'|', tkLogicalOr}});

/// True if the quote at `quote` has one of the prefixes of a raw string directly in front of it.
bool hasRawPrefix(std::string_view text, std::size_t quote) {
    std::size_t begin = quote;
    while (begin > 0 && quote - begin < 4 && isIdentifierChar(text[begin - 1])) --begin;
    const std::string_view prefix = text.substr(begin, quote - begin);
    return prefix == "R" || prefix == "LR" || prefix == "uR" || prefix == "UR" || prefix == "u8R";
}

constexpr std::size_t kLongestRawDelimiter = 16;

bool isRawDelimiterChar(char c) {
    return !isSpace(c) && c != '(' && c != ')' && c != '\\' && c != '"';
}

/// The extent of a name with all its qualifiers.
struct NameExtent {
    std::size_t end = 0;
    std::size_t lastWord = 0;
    std::size_t colons = std::string_view::npos; // the last "::"
    std::uint32_t lines = 0;
    std::uint32_t linesToColons = 0;
    bool hasSpace = false;
    bool hasSpaceBeforeColons = false;
};

bool isNameStart(std::string_view text, std::size_t at) {
    return at < text.size() && (kClasses[index(text[at])] == kLetter || text[at] == '~');
}

// Takes the white space behind a "::" in, whether or not the name goes on behind it.
void readColons(std::string_view text, NameExtent& name) {
    name.colons = name.end;
    name.linesToColons = name.lines;
    name.hasSpaceBeforeColons = name.hasSpace;
    for (name.end += 2; name.end < text.size() && isSpace(text[name.end]); ++name.end) {
        name.hasSpace = true;
        if (text[name.end] == '\n') ++name.lines;
    }
}

NameExtent readName(std::string_view text, std::size_t begin) {
    NameExtent name;
    name.lastWord = begin;
    name.end = begin + (text[begin] == '~' ? 1 : 0);
    while (true) {
        while (name.end < text.size() && kWordChars[index(text[name.end])]) ++name.end;
        if (!startsWith(text, name.end, "::")) return name;
        readColons(text, name);
        if (!isNameStart(text, name.end)) return name;
        name.lastWord = name.end++;
    }
}

/// The keywords that leave their qualifier to a token of its own.
bool isSplitName(std::string_view name) {
    return name == "operator" || name == "new" || name == "delete";
}

std::string withoutSpace(std::string_view name) {
    std::string result;
    result.reserve(name.size());
    std::copy_if(name.begin(), name.end(), std::back_inserter(result), [](char c) { return !isSpace(c); });
    return result;
}

// The directive's own text closes each comment inside it twice; nothing but this text shows it.
std::string directiveSpelling(std::string_view text, const RawToken& token) {
    std::string result;
    std::size_t copied = token.begin;
    DirectiveWalker walker(text, token.begin, true);
    while (walker.nextComment() && walker.offset() <= token.end) {
        result.append(text.substr(copied, walker.offset() - copied)).push_back('/');
        copied = walker.offset();
    }
    return result.append(text.substr(copied, token.end - copied));
}

// A compiler takes "0xe+1" for one malformed number: to it a sign behind an "e" or a "p" goes on
// with any number.
bool endsInExponent(std::string_view text) {
    if (lower(text.back()) != 'e' && lower(text.back()) != 'p') return false;
    std::size_t begin = text.size();
    while (begin > 0 && (isIdentifierChar(text[begin - 1]) || text[begin - 1] == '.')) --begin;
    while (begin < text.size() && text[begin] == '.') ++begin;
    return begin < text.size() && isDigit(text[begin]);
}

} // namespace

bool Scanner::next(RawToken& token) {
    if (hasPending_) {
        token = pending_;
        hasPending_ = false;
        return true;
    }
    if (inDirectiveTail_ && scanDirectiveTail(token)) return true;
    while (true) {
        skipSpace();
        if (at_ >= text_.size()) return false;
        if (scanToken(token)) return true;
    }
}

void Scanner::skipSpace() {
    while (at_ < text_.size() && isSpace(text_[at_])) {
        if (text_[at_] == '\n') ++line_;
        ++at_;
    }
}

bool Scanner::scanToken(RawToken& token) {
    switch (kClasses[index(text_[at_])]) {
    case kLetter: return scanName(token);
    case kDigit: return scanNumber(token);
    case kQuote: return scanLiteral(token);
    case kHash: return scanDirective(token);
    case kSlash: return peek(1) == '/' || peek(1) == '*' ? scanComment(token) : scanPunctuator(token);
    case kColon: return peek(1) == ':' ? scanName(token) : scanPunctuator(token);
    case kTilde: return isLetter(peek(1)) ? scanName(token) : scanPunctuator(token);
    case kPunct: return scanPunctuator(token);
    default: ++at_; return false;
    }
}

bool Scanner::scanName(RawToken& token) {
    const NameExtent name = readName(text_, at_);
    const bool qualified = name.colons != std::string_view::npos;
    const std::string_view word = text_.substr(name.lastWord, name.end - name.lastWord);
    finish(token, qualified ? static_cast<int>(tkIdentifier) : kKeywords.find(word), name.end);
    token.hasInnerSpace = name.hasSpace;
    if (qualified && isSplitName(word)) {
        pending_ = token;
        hasPending_ = true;
        pending_.type = static_cast<std::uint8_t>(kKeywords.find(word));
        pending_.begin = token.end = static_cast<std::uint32_t>(name.colons);
        pending_.line += name.linesToColons;
        pending_.hasInnerSpace = name.lastWord != name.colons + 2;
        token.hasInnerSpace = name.hasSpaceBeforeColons;
    }
    line_ += name.lines;
    return true;
}

// A number that runs into a letter is no number, and what it runs into starts a token of its own.
bool Scanner::scanNumber(RawToken& token) {
    const std::size_t end = NumberWalker(text_, at_).findEnd();
    if (end < text_.size() && !isSpace(text_[end]) && !isPunct(text_[end])) {
        at_ = static_cast<std::uint32_t>(end);
        return false;
    }
    return finish(token, tkNumber, end);
}

bool Scanner::scanPunctuator(RawToken& token) {
    const char c = text_[at_];
    const char second = peek(1);
    if (second == '=' && kWithAssign[index(c)]) return finish(token, kWithAssign[index(c)], at_ + 2);
    if (second == c && kDoubled[index(c)]) {
        const bool shift = c == '<' || c == '>';
        if (!shift || peek(2) != '=') return finish(token, kDoubled[index(c)], at_ + 2);
        return finish(token, c == '<' ? tkShiftLeftAssign : tkShiftRightAssign, at_ + 3);
    }
    if (c == '-' && second == '>') {
        if (peek(2) == '*') return finish(token, tkArrowStar, at_ + 3);
        return finish(token, tkArrow, at_ + 2);
    }
    if (c == '.' && second == '*') return finish(token, tkDotStar, at_ + 2);
    if (kSingle[index(c)]) return finish(token, kSingle[index(c)], at_ + 1);
    ++at_;
    return false;
}

bool Scanner::scanComment(RawToken& token) {
    if (peek(1) == '*') return finishOverLines(token, tkBlockComment, findCommentEnd(text_, at_));
    return finishOverLines(token, tkLineComment, findLineCommentEnd());
}

std::size_t Scanner::findLineCommentEnd() const {
    std::size_t lineBegin = at_;
    while (true) {
        const std::size_t feed = findLineFeed(text_, lineBegin);
        if (feed >= text_.size()) return text_.size();
        if (lineComments_ == LineComments::byLine || !isContinued(text_, lineBegin, feed)) return feed + 1;
        lineBegin = feed + 1;
    }
}

bool Scanner::scanLiteral(RawToken& token) {
    if (text_[at_] == '\'') return scanCharacter(token);
    if (hasRawPrefix(text_, at_) && scanRawString(token)) return true;
    return scanString(token);
}

// A string that its line does not close is no token: what follows on the line is most likely its
// content, and the next line is code again.
bool Scanner::scanString(RawToken& token) {
    std::size_t pos = at_ + 1;
    std::size_t lineBegin = pos;
    while ((pos = findStop(text_, pos, kStringStops)) < text_.size() && text_[pos] != '"') {
        if (text_[pos] == '\\') {
            // The line feed behind it is looked at by itself.
            pos += pos + 1 < text_.size() && text_[pos + 1] == '\n' ? 1 : 2;
        } else if (isContinued(text_, lineBegin, pos)) {
            lineBegin = ++pos;
        } else {
            finishOverLines(token, tkInvalid, pos + 1);
            return false;
        }
    }
    return finishOverLines(token, tkStringLiteral, std::min(pos + 1, text_.size()));
}

// A raw string that is never closed takes the rest of the text, as a comment would: looking for
// what else it could be would search the text again for each further one.
bool Scanner::scanRawString(RawToken& token) {
    std::array<char, kLongestRawDelimiter + 2> closing;
    std::size_t length = 0;
    closing[length++] = ')';
    std::size_t pos = at_ + 1;
    for (; pos < text_.size() && isRawDelimiterChar(text_[pos]); ++pos) {
        if (length > kLongestRawDelimiter) return false;
        closing[length++] = text_[pos];
    }
    if (pos >= text_.size() || text_[pos] != '(') return false;
    closing[length++] = '"';
    const std::size_t close = text_.find(std::string_view(closing.data(), length), pos + 1);
    const bool closed = close != std::string_view::npos;
    return finishOverLines(token, tkStringLiteral, closed ? close + length : text_.size());
}

bool Scanner::scanCharacter(RawToken& token) {
    std::size_t pos = at_ + 1;
    bool escaped = false;
    bool closed = false;
    while (pos < text_.size() && text_[pos] != '\n' && !closed) {
        const char c = text_[pos++];
        closed = c == '\'' && !escaped;
        escaped = c == '\\' && !escaped;
    }
    const std::string_view content = text_.substr(at_ + 1, pos - at_ - (closed ? 2 : 1));
    const bool lineEnded = !closed && pos < text_.size();
    const bool isEmpty = content.empty() || content == "\\";
    finish(token, lineEnded || isEmpty ? tkInvalid : tkCharLiteral, pos);
    token.unclosed = !closed;
    return true;
}

bool Scanner::scanDirective(RawToken& token) {
    DirectiveWalker walker(text_, at_, lineComments_ == LineComments::continued);
    bool hasComment = false;
    while (walker.nextComment()) hasComment = true;
    inDirectiveTail_ = walker.stoppedAtComment();
    finishOverLines(token, tkDirective, walker.offset());
    token.hasInnerSpace = hasComment;
    return true;
}

bool Scanner::scanDirectiveTail(RawToken& token) {
    while (at_ < text_.size() && isSpace(text_[at_]) && text_[at_] != '\n') ++at_;
    if (startsWith(text_, at_, "/*")) return scanComment(token);
    inDirectiveTail_ = false;
    if (at_ >= text_.size() || text_[at_] == '\n' || startsWith(text_, at_, "//")) return false;
    return scanDirective(token);
}

bool Scanner::finish(RawToken& token, int type, std::size_t end) {
    token = RawToken();
    token.type = static_cast<std::uint8_t>(type);
    token.begin = at_;
    token.end = static_cast<std::uint32_t>(end);
    token.line = line_;
    at_ = token.end;
    return true;
}

bool Scanner::finishOverLines(RawToken& token, int type, std::size_t end) {
    finish(token, type, end);
    line_ += countLineFeeds(text_.substr(token.begin, token.end - token.begin));
    return true;
}

void scanAll(std::string_view text, std::vector<RawToken>& tokens) {
    Scanner scanner(text);
    RawToken token;
    while (scanner.next(token)) tokens.push_back(token);
}

std::string spelling(std::string_view text, const RawToken& token) {
    const std::string_view range = text.substr(token.begin, token.end - token.begin);
    if (token.hasInnerSpace && token.type == tkDirective) return directiveSpelling(text, token);
    if (token.hasInnerSpace) return withoutSpace(range);
    std::string result(range);
    if (token.unclosed) result.push_back('\'');
    return result;
}

Trn::Position startOf(const Zelmar::SourceText& source, const RawToken& token) {
    const auto lineStart = static_cast<std::uint32_t>(source.lineStart(token.line));
    return {token.line, token.begin - lineStart + 1};
}

Trn::Position endOf(const Zelmar::SourceText& source, const RawToken& token) {
    const bool onOneLine = token.line >= source.lineCount() || token.end < source.lineStart(token.line + 1);
    if (!onOneLine) return source.positionOf(token.end - 1);
    return {token.line, token.end - static_cast<std::uint32_t>(source.lineStart(token.line))};
}

bool needsBlank(char left, char right) {
    if (isIdentifierChar(right)) {
        // A word behind a literal would become its suffix, a digit behind a dot part of a number.
        return isIdentifierChar(left) || left == '"' || left == '\'' || (left == '.' && isDigit(right));
    }
    if (right == '"' || right == '\'') return isIdentifierChar(left);
    if (right == '=') return kWithAssign[index(left)] != 0;
    switch (left) {
    case '+': case '&': case '|': case '#': return right == left;
    case '-': return right == '-' || right == '>';
    case '/': return right == '/' || right == '*';
    case '<': return right == '<' || right == ':' || right == '%';
    case '>': return right == '>';
    case '%': return right == ':' || right == '>';
    case ':': return right == ':' || right == '>';
    case '.': return right == '.' || right == '*';
    default: return isDigit(left) && right == '.';
    }
}

bool needsBlank(std::string_view left, std::string_view right) {
    if (left.empty() || right.empty()) return false;
    const char before = left.back();
    const char behind = right.front();
    if (needsBlank(before, behind)) return true;
    if (before == '~') return isLetter(behind);
    if (behind == ':') return isIdentifierChar(before) && startsWith(right, 0, "::");
    return (behind == '+' || behind == '-') && endsInExponent(left);
}

} // namespace Cpp
