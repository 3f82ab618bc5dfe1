#include "cpp/Cpp_Scanner.h"

#include "cpp/Cpp_CharClass.h"
#include "cpp/Cpp_DirectiveWalker.h"
#include "cpp/Cpp_KeywordTable.h"
#include "cpp/Cpp_NumberWalker.h"
#include "cpp/Cpp_RawString.h"
#include "cpp/Cpp_WordParts.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>

namespace Cpp {

using namespace Chars;

namespace {

constexpr CharTable<bool> kStringStops = makeCharSet("\"\\\n");
constexpr CharTable<bool> kCharacterStops = makeCharSet("'\\\n");

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
// Those that no longer operator starts with.
constexpr OperatorTable kAlone = makeOperators(
    {{';', tkSemicolon}, {',', tkComma}, {'(', tkOpenParen}, {')', tkCloseParen}, {'{', tkOpenBrace},
     {'}', tkCloseBrace}, {'[', tkOpenBracket}, {']', tkCloseBracket}});
constexpr OperatorTable kWithAssign = makeOperators(
    {{'=', tkEqual}, {'!', tkNotEqual}, {'<', tkLessEqual}, {'>', tkGreaterEqual}, {'*', tkMulAssign},
     {'/', tkDivAssign}, {'%', tkModAssign}, {'+', tkAddAssign}, {'-', tkSubAssign}, {'&', tkAndAssign},
     {'^', tkXorAssign}, {'|', tkOrAssign}});
constexpr OperatorTable kDoubled = makeOperators(
    {{'+', tkIncrement}, {'-', tkDecrement}, {'<', tkShiftLeft}, {'>', tkShiftRight}, {'&', tkLogicalAnd},
     {'|', tkLogicalOr}});

struct Punctuator {
    int type = tkInvalid;
    std::uint32_t length = 1;
};

/// The brackets and the mark of a directive that are spelled by two characters. "<::" is a "<" in front
/// of a "::", unless the digraph is what a further ":" or ">" makes sense behind.
template <class Peek> int readDigraph(char c, char second, Peek peek) {
    if (c == '%') return second == '>' ? tkCloseBrace : tkInvalid;
    if (c == ':') return second == '>' ? tkCloseBracket : tkInvalid;
    if (second == '%') return tkOpenBrace;
    const bool isAngle = second != ':' || (peek(2) == ':' && peek(3) != ':' && peek(3) != '>');
    return isAngle ? tkInvalid : tkOpenBracket;
}

/// The longest operator or bracket of which `peek(n)` gives the n-th character.
template <class Peek> Punctuator readPunctuator(Peek peek) {
    const char c = peek(0);
    const char second = peek(1);
    if (second == '=' && kWithAssign[index(c)]) return {kWithAssign[index(c)], 2};
    if (second == c && kDoubled[index(c)]) {
        const bool shift = c == '<' || c == '>';
        if (!shift || peek(2) != '=') return {kDoubled[index(c)], 2};
        return {c == '<' ? tkShiftLeftAssign : tkShiftRightAssign, 3};
    }
    if (c == '-' && second == '>') return peek(2) == '*' ? Punctuator{tkArrowStar, 3} : Punctuator{tkArrow, 2};
    if (c == '.' && second == '*') return {tkDotStar, 2};
    if (c == '<' || c == ':' || c == '%') {
        if (const int bracket = readDigraph(c, second, peek); bracket != tkInvalid) return {bracket, 2};
    }
    return {kSingle[index(c)], 1};
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The extent of a name with all its qualifiers.
struct NameExtent {
    std::size_t end = 0;
    std::size_t lastWord = 0;
    std::size_t colons = std::string_view::npos; // the last "::"
    std::uint32_t lines = 0;
    std::uint32_t linesToColons = 0;
    bool hasSpace = false;
    bool hasSpaceBeforeColons = false;
    bool isJoined = false; // a joined line end stands in one of its words
};

bool isNameStart(std::string_view text, std::size_t at) {
    return at < text.size() && (kClasses[index(text[at])] == kLetter || text[at] == '~' || namedCharLength(text, at) > 0);
}

/// Offset behind the "::" at `at`, or `at` if none stands there.
std::size_t behindColons(std::string_view text, std::size_t at) {
    if (at >= text.size() || text[at] != ':') return at;
    const std::size_t second = behindSplices(text, at + 1);
    return second < text.size() && text[second] == ':' ? second + 1 : at;
}

// Takes the white space behind a "::" in, whether or not the name goes on behind it.
void readColons(std::string_view text, std::size_t behind, NameExtent& name) {
    name.colons = name.end;
    name.linesToColons = name.lines;
    name.hasSpaceBeforeColons = name.hasSpace;
    name.hasSpace = name.hasSpace || behind > name.end + 2;
    name.lines += countLineFeeds(text.substr(name.end, behind - name.end));
    for (name.end = behind; name.end < text.size() && isSpace(text[name.end]); ++name.end) {
        name.hasSpace = true;
        if (text[name.end] == '\n') ++name.lines;
    }
}

bool readWordPart(std::string_view text, NameExtent& name) {
    const std::size_t next = behindWordPart(text, name.end);
    const std::uint32_t lines = countLineFeeds(text.substr(name.end, next - name.end));
    const bool goesOn = next > name.end;
    if (lines > 0) name.hasSpace = name.isJoined = true;
    name.lines += lines;
    name.end = next;
    return goesOn;
}

std::size_t findWordEnd(std::string_view text, std::size_t at) {
    while (at < text.size() && kWordChars[index(text[at])]) ++at;
    return at;
}

NameExtent readName(std::string_view text, std::size_t begin) {
    NameExtent name;
    name.lastWord = begin;
    name.end = begin + (text[begin] == '~' ? 1 : 0);
    while (true) {
        name.end = findWordEnd(text, name.end);
        if (name.end >= text.size()) return name;
        if (text[name.end] == '\\' && readWordPart(text, name)) continue;
        const std::size_t behind = behindColons(text, name.end);
        if (behind == name.end) return name;
        readColons(text, behind, name);
        if (!isNameStart(text, name.end)) return name;
        name.lastWord = name.end;
        if (text[name.end] != '\\') ++name.end;
    }
}

/// What may stand behind the "~" of a destructor's name.
bool startsClassName(char c) {
    return isLetter(c) || index(c) >= 0x80;
}

/// Two dots end `text`: the third is the last of an ellipsis, whatever stands behind it.
bool endsInDots(std::string_view text) {
    return text.ends_with("..") && !text.ends_with("...");
}

/// The keywords that leave their qualifier to a token of its own.
bool isSplitName(std::string_view name) {
    return name == "operator" || name == "new" || name == "delete";
}

std::string withoutSpace(std::string_view token) {
    std::string result;
    result.reserve(token.size());
    for (std::size_t at = 0; at < token.size();) {
        if (const std::size_t next = behindSplices(token, at); next > at) {
            at = next;
        } else if (const char c = token[at++]; !isSpace(c)) {
            result.push_back(c);
        }
    }
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

/// The word or number that ends `text` is a number.
bool endsInNumber(std::string_view text) {
    std::size_t begin = text.size();
    while (begin > 0 && (isIdentifierChar(text[begin - 1]) || text[begin - 1] == '.')) --begin;
    while (begin < text.size() && text[begin] == '.') ++begin;
    return begin < text.size() && isDigit(text[begin]);
}

// A compiler takes "0xe+1" for one malformed number: to it a sign behind an "e" or a "p" goes on
// with any number.
bool endsInExponent(std::string_view text) {
    return (lower(text.back()) == 'e' || lower(text.back()) == 'p') && endsInNumber(text);
}

/// `text` without its last blanks.
std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

/// Offset behind the name of a header that a line imports, `open` where no such name opens there.
std::size_t findImportedEnd(std::string_view text, std::size_t open) {
    constexpr std::string_view kImport = "import";
    constexpr std::string_view kExport = "export";
    std::string_view front = withoutBlanks(text.substr(0, open));
    if (!front.ends_with(kImport)) return open;
    front.remove_suffix(kImport.size());
    const std::string_view outer = withoutBlanks(front);
    if (outer.size() < front.size() && outer.ends_with(kExport)) {
        front = withoutBlanks(outer.substr(0, outer.size() - kExport.size()));
    } else {
        front = outer;
    }
    if (!front.empty() && front.back() != '\n') return open;
    const std::size_t close = text.find_first_of(">\n", open);
    return close == std::string_view::npos || text[close] == '\n' ? open : close + 1;
}

} // namespace

bool Scanner::next(RawToken& token) {
    if (at_ == 0 && startsWith(text_, 0, kByteOrderMark)) at_ = static_cast<std::uint32_t>(kByteOrderMark.size());
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
    std::size_t at = at_;
    for (; at < text_.size() && kClasses[index(text_[at])] == kSpace; ++at) {
        if (text_[at] == '\n') ++line_;
    }
    at_ = static_cast<std::uint32_t>(at);
}

bool Scanner::scanToken(RawToken& token) {
    switch (kClasses[index(text_[at_])]) {
    case kLetter: return scanName(token);
    case kDigit: return scanNumber(token);
    case kQuote: return scanLiteral(token);
    case kHash:
        if (isArgument(text_, at_)) break; // there is no token for it
        return scanDirective(token);
    case kSlash: return peek(1) == '/' || peek(1) == '*' ? scanComment(token) : scanPunctuator(token);
    case kColon: return behindColons(text_, at_) > at_ ? scanName(token) : scanPunctuator(token);
    case kTilde:
        if (startsClassName(peek(1)) || namedCharLength(text_, at_ + 1) > 0) return scanName(token);
        return scanPunctuator(token);
    case kDot:
        if (isDigit(peek(1)) && !endsInDots(text_.substr(0, at_))) return scanNumber(token);
        return scanPunctuator(token);
    case kPunct: return scanPunctuator(token);
    default: break;
    }
    ++at_;
    return false;
}

// Most names are a single word.
bool Scanner::scanName(RawToken& token) {
    const std::size_t end = findWordEnd(text_, at_);
    const bool goesOn = end < text_.size() && (text_[end] == ':' || text_[end] == '\\');
    if (goesOn || end == at_) return scanLongName(token);
    return finish(token, kKeywords.find(text_.substr(at_, end - at_)), end);
}

bool Scanner::scanLongName(RawToken& token) {
    const NameExtent name = readName(text_, at_);
    const bool qualified = name.colons != std::string_view::npos;
    std::string_view word = text_.substr(name.lastWord, name.end - name.lastWord);
    std::string joined;
    if (name.isJoined) word = joined = withoutSpace(word);
    finish(token, qualified ? static_cast<int>(tkIdentifier) : kKeywords.find(word), name.end);
    token.hasInnerSpace = name.hasSpace;
    if (qualified && isSplitName(word)) {
        pending_ = token;
        hasPending_ = true;
        pending_.type = static_cast<std::uint8_t>(kKeywords.find(word));
        pending_.begin = token.end = static_cast<std::uint32_t>(name.colons);
        pending_.line += name.linesToColons;
        pending_.hasInnerSpace = name.lastWord != name.colons + 2 || name.isJoined;
        token.hasInnerSpace = name.hasSpaceBeforeColons;
    }
    line_ += name.lines;
    return true;
}

bool Scanner::scanNumber(RawToken& token) {
    finish(token, tkNumber, NumberWalker(text_, at_).findEnd());
    const std::string_view number = text_.substr(token.begin, token.end - token.begin);
    token.hasInnerSpace = number.find('\n') != std::string_view::npos;
    if (token.hasInnerSpace) line_ += countLineFeeds(number);
    return true;
}

bool Scanner::scanPunctuator(RawToken& token) {
    if (const int alone = kAlone[index(text_[at_])]; alone != tkInvalid) return finish(token, alone, at_ + 1);
    if (text_[at_] == '<') {
        if (const std::size_t end = findImportedEnd(text_, at_); end > at_) return finish(token, tkStringLiteral, end);
    }
    const Punctuator found = readPunctuator([this](std::size_t ahead) { return peek(ahead); });
    if (peek(found.length) == '\\' && behindSplices(text_, at_ + found.length) > at_ + found.length) {
        return scanJoined(token);
    }
    if (text_[at_] == '%' && peek(1) == ':') return scanDirective(token);
    if (found.type != tkInvalid) return finish(token, found.type, at_ + found.length);
    if (namedCharLength(text_, at_) > 0) return scanName(token);
    ++at_;
    return false;
}

// What joined line ends may run through: an operator, a comment's opening or the mark of a directive.
bool Scanner::scanJoined(RawToken& token) {
    constexpr std::size_t kLongest = 4;
    std::array<std::size_t, kLongest + 1> places; // of its characters, and behind the last
    places[0] = at_;
    for (std::size_t i = 1; i < places.size(); ++i) places[i] = behindSplices(text_, std::min(places[i - 1] + 1, text_.size()));
    const auto peekJoined = [&](std::size_t ahead) { return places[ahead] < text_.size() ? text_[places[ahead]] : '\0'; };
    if (findCommentMark(text_, at_) != std::string_view::npos) return scanComment(token);
    if (text_[at_] == '%' && peekJoined(1) == ':') return scanDirective(token);
    const Punctuator found = readPunctuator(peekJoined);
    if (found.type == tkInvalid) {
        ++at_;
        return false;
    }
    finishOverLines(token, found.type, places[found.length - 1] + 1);
    token.hasInnerSpace = token.end - token.begin > found.length;
    return true;
}

bool Scanner::scanComment(RawToken& token) {
    const std::size_t mark = findCommentMark(text_, at_);
    if (text_[mark] == '*') return finishOverLines(token, tkBlockComment, findCommentEnd(text_, mark));
    return finishOverLines(token, tkLineComment, findLineCommentEnd(mark));
}

std::size_t Scanner::findLineCommentEnd(std::size_t mark) const {
    std::size_t lineBegin = mark;
    while (true) {
        const std::size_t feed = findLineFeed(text_, lineBegin);
        if (feed >= text_.size()) return text_.size();
        if (lineComments_ == LineComments::byLine || !isContinued(text_, lineBegin, feed)) return feed + 1;
        lineBegin = feed + 1;
    }
}

bool Scanner::scanLiteral(RawToken& token) {
    if (text_[at_] == '\'') return scanCharacter(token);
    if (!hasRawPrefix(text_, at_)) return scanString(token);
    if (scanRawString(token)) return true;
    return scanString(token);
}

// A string that its line does not close is no token: what follows on the line is most likely its
// content, and the next line is code again.
bool Scanner::scanString(RawToken& token) {
    const std::size_t stop = findLiteralStop(kStringStops);
    if (stop < text_.size() && text_[stop] == '\n') {
        finishOverLines(token, tkInvalid, stop + 1);
        return false;
    }
    return finishOverLines(token, tkStringLiteral, std::min(stop + 1, text_.size()));
}

// Offset of the quote that closes the literal, or of the line feed or the end of the text in its place.
std::size_t Scanner::findLiteralStop(const CharTable<bool>& stops) const {
    std::size_t pos = findStop(text_, at_ + 1, stops);
    while (pos < text_.size() && text_[pos] == '\\') {
        const std::size_t joined = behindSplices(text_, pos);
        // Any other backslash takes the next character along, be it on the next line.
        pos = findStop(text_, joined > pos ? joined : behindSplices(text_, pos + 1) + 1, stops);
    }
    return std::min(pos, text_.size());
}

// A raw string that is never closed takes the rest of the text, as a comment would: looking for
// what else it could be would search the text again for each further one. Only where a quote is part
// of its delimiter it is more likely a plain string, and then no other such one is looked for.
bool Scanner::scanRawString(RawToken& token) {
    const RawString raw = readRawString(text_, at_, !oddRawMissed_);
    if (raw.kind == RawString::Kind::none) return false;
    oddRawMissed_ = oddRawMissed_ || (raw.hasOddDelimiter && raw.kind == RawString::Kind::unclosed);
    if (raw.hasOddDelimiter && oddRawMissed_) return false;
    return finishOverLines(token, tkStringLiteral, raw.end);
}

bool Scanner::scanCharacter(RawToken& token) {
    const std::size_t stop = findLiteralStop(kCharacterStops);
    const bool closed = stop < text_.size() && text_[stop] == '\'';
    const bool lineEnded = !closed && stop < text_.size();
    const std::string_view content = text_.substr(at_ + 1, stop - at_ - 1);
    const bool isEmpty = content.empty() || content == "\\";
    finishOverLines(token, lineEnded || isEmpty ? tkInvalid : tkCharLiteral, stop + (closed ? 1 : 0));
    token.unclosed = !closed;
    return true;
}

/// Whether the "#" at `hash` is all that one argument of a macro holds, as in "F(#, x)": no directive goes on like
/// that.
bool Scanner::isArgument(std::string_view text, std::size_t hash) {
    const std::size_t behind = text.find_first_not_of("# \t", hash);
    return behind != std::string_view::npos && (text[behind] == ',' || text[behind] == ')');
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
    const std::size_t mark = findCommentMark(text_, at_);
    const bool isComment = mark != std::string_view::npos;
    if (isComment && text_[mark] == '*') return scanComment(token);
    inDirectiveTail_ = false;
    if (at_ >= text_.size() || text_[at_] == '\n' || isComment) return false;
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

bool isOneWord(std::string_view left, std::string_view right) {
    if (left.empty() || right.empty()) return false;
    const char before = left.back();
    const char behind = right.front();
    if (before == '^' && behind == '^') return true; // of reflection
    if (isIdentifierChar(behind)) return isIdentifierChar(before) || before == '"' || before == '\'';
    if (behind != '"' && behind != '\'') return false;
    std::size_t begin = left.size();
    while (begin > 0 && left.size() - begin < 4 && isIdentifierChar(left[begin - 1])) --begin;
    const std::string_view prefix = left.substr(begin);
    return prefix == "L" || prefix == "u" || prefix == "U" || prefix == "u8" || hasRawPrefix(left, left.size());
}

bool opensLineComment(std::string_view text, std::size_t at) {
    const std::size_t mark = findCommentMark(text, at);
    return mark != std::string_view::npos && text[mark] == '/';
}

char meaningAt(std::string_view text, std::size_t at) {
    const auto peek = [&](std::size_t ahead) { return at + ahead < text.size() ? text[at + ahead] : '\0'; };
    const char c = peek(0);
    if (c == '%' && peek(1) == ':') return '#';
    if (c != '<' && c != ':' && c != '%') return c;
    switch (readDigraph(c, peek(1), peek)) {
    case tkOpenBrace: return '{';
    case tkCloseBrace: return '}';
    case tkOpenBracket: return '[';
    case tkCloseBracket: return ']';
    default: return c;
    }
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
    if (before == '~') return startsClassName(behind);
    if (behind == ':') return isIdentifierChar(before) && startsWith(right, 0, "::");
    if (behind == '.') return isIdentifierChar(before) && endsInNumber(left);
    if (before == '.') return isIdentifierChar(behind) && endsInNumber(left);
    return (behind == '+' || behind == '-') && endsInExponent(left);
}

} // namespace Cpp
