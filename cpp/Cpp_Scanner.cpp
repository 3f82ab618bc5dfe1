#include "cpp/Cpp_Scanner.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <initializer_list>

namespace Cpp {

namespace {

enum CharClass : std::uint8_t { kSkipped, kSpace, kLetter, kDigit, kQuote, kHash, kSlash, kColon, kTilde, kPunct };

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
constexpr bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool isPunct(char c) {
    return c > ' ' && c < '\x7f' && !isDigit(c) && !isLetter(c);
}
constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr std::size_t index(char c) {
    return static_cast<unsigned char>(c);
}

template <class Value> using CharTable = std::array<Value, 256>;

constexpr CharTable<CharClass> makeClasses() {
    CharTable<CharClass> table{};
    for (int i = 0; i < 128; ++i) {
        const char c = static_cast<char>(i);
        table[index(c)] = isSpace(c) ? kSpace : isLetter(c) ? kLetter : isDigit(c) ? kDigit : isPunct(c) ? kPunct : kSkipped;
    }
    table['_'] = kLetter;
    table['"'] = table['\''] = kQuote;
    table['#'] = kHash;
    table['/'] = kSlash;
    table[':'] = kColon;
    table['~'] = kTilde;
    return table;
}
constexpr CharTable<CharClass> kClasses = makeClasses();

constexpr CharTable<bool> makeWordChars() {
    CharTable<bool> table{};
    for (int i = 0; i < 128; ++i) {
        const char c = static_cast<char>(i);
        table[index(c)] = isLetter(c) || isDigit(c) || c == '_';
    }
    return table;
}
constexpr CharTable<bool> kWordChars = makeWordChars();

constexpr CharTable<bool> makeCharSet(std::string_view chars) {
    CharTable<bool> table{};
    for (const char c : chars) table[index(c)] = true;
    return table;
}
constexpr CharTable<bool> kStringStops = makeCharSet("\"\\\n");
constexpr CharTable<bool> kDirectiveStops = makeCharSet("\"'/\n");

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

/// The keywords under a hash that keeps every two of them apart, so that one comparison tells.
/// The factor is searched when this is compiled; a set of keywords for which there is none does
/// not compile.
class KeywordTable {
public:
    consteval KeywordTable() {
        while (!fill()) factor_ = factor_ * 1664525u + 1013904223u;
    }

    constexpr int find(std::string_view name) const {
        if (name.size() < kShortest || name.size() > kLongest) return tkIdentifier;
        const Slot& slot = slots_[slotOf(name)];
        return slot.spelling == name ? slot.type : tkIdentifier;
    }

private:
    static constexpr int kFirstKeyword = tkClass;
    static constexpr int kLastKeyword = tkVoid;
    static constexpr std::size_t kShortest = 2;
    static constexpr std::size_t kLongest = 16;
    static constexpr int kSlotBits = 9;
    struct Slot {
        std::string_view spelling;
        int type = tkIdentifier;
    };

    constexpr std::size_t slotOf(std::string_view name) const {
        const std::uint32_t key = static_cast<std::uint32_t>(index(name[0])) + static_cast<std::uint32_t>(index(name[1]) << 8) +
                                  static_cast<std::uint32_t>(index(name.back()) << 16) +
                                  static_cast<std::uint32_t>(name.size() << 24);
        return (key * (factor_ | 1u)) >> (32 - kSlotBits);
    }

    constexpr bool fill() {
        slots_ = {};
        for (int type = kFirstKeyword; type <= kLastKeyword; ++type) {
            const std::string_view spelling = tokenTypeName(type);
            if (spelling.front() == '<') continue;
            Slot& slot = slots_[slotOf(spelling)];
            if (!slot.spelling.empty()) return false;
            slot = {spelling, type};
        }
        return true;
    }

    std::uint32_t factor_ = 0x9E3779B1u;
    std::array<Slot, std::size_t{1} << kSlotBits> slots_;
};
constexpr KeywordTable kKeywords;

bool startsWith(std::string_view text, std::size_t at, std::string_view part) {
    return text.compare(at, part.size(), part) == 0;
}

std::size_t findStop(std::string_view text, std::size_t at, const CharTable<bool>& stops) {
    while (at < text.size() && !stops[index(text[at])]) ++at;
    return at;
}

std::size_t findLineFeed(std::string_view text, std::size_t at) {
    return std::min(text.find('\n', at), text.size());
}

std::uint32_t countLineFeeds(std::string_view text) {
    return static_cast<std::uint32_t>(std::count(text.begin(), text.end(), '\n'));
}

// Looks for the slash, not for the star: banners are made of stars. The "/" of the opening "/*"
// followed by one more "/" closes nothing.
std::size_t findCommentEnd(std::string_view text, std::size_t begin) {
    for (std::size_t slash = text.find('/', begin + 3); slash != std::string_view::npos; slash = text.find('/', slash + 1)) {
        if (text[slash - 1] == '*') return slash + 1;
    }
    return text.size();
}

// White space may stand between the backslash and the line feed: editors leave it there unseen.
bool isContinued(std::string_view text, std::size_t lineBegin, std::size_t lineFeed) {
    std::size_t end = lineFeed;
    while (end > lineBegin && isSpace(text[end - 1])) --end;
    return end > lineBegin && text[end - 1] == '\\';
}

/// Offset of the quote that closes the string opened at `at`, or of what ends the search for it: a
/// line feed with no backslash in front of it, or the end of the text.
std::size_t findStringStop(std::string_view text, std::size_t at) {
    std::size_t pos = findStop(text, at + 1, kStringStops);
    while (pos < text.size() && text[pos] == '\\') pos = findStop(text, pos + 2, kStringStops);
    return std::min(pos, text.size());
}

/// Walks the text of a directive from `at_` on, as far as the directive reaches.
class DirectiveWalker {
public:
    DirectiveWalker(std::string_view text, std::size_t at)
        : text_(text), at_(at), lineBegin_(at), quotedUntil_(at), unquotedUntil_(at) {}

    /// Goes on to the next comment inside the directive and stops behind it. Returns false at the
    /// end of the directive.
    bool nextComment() {
        while ((at_ = findStop(text_, at_, kDirectiveStops)) < text_.size()) {
            switch (text_[at_]) {
            case '\n':
                if (!passLineFeed()) return false;
                break;
            case '/':
                if (startsWith(text_, at_, "//")) return false;
                if (opensComment()) return passComment();
                ++at_;
                break;
            default: passQuote(); break;
            }
        }
        return false;
    }

    std::size_t offset() const { return at_; }
    /// True if the directive ended at a comment that spans lines.
    bool stoppedAtComment() const { return stoppedAtComment_; }

private:
    bool opensComment() const { return at_ >= quotedUntil_ && startsWith(text_, at_, "/*"); }

    bool passLineFeed() {
        const bool continued = isContinued(text_, lineBegin_, at_);
        lineBegin_ = ++at_;
        return continued;
    }

    bool passComment() {
        const std::size_t end = findCommentEnd(text_, at_);
        if (findLineFeed(text_.substr(0, end), at_) != end) {
            stoppedAtComment_ = true;
            return false;
        }
        // A backslash in front of the comment does not continue the line.
        at_ = lineBegin_ = end;
        return true;
    }

    void passQuote() {
        const bool open = at_ >= quotedUntil_;
        if (open && text_[at_] == '\'' && startsWith(text_, at_, "'\"'")) {
            at_ += 3;
        } else if (open && text_[at_] == '\'' && startsWith(text_, at_, "'\\\"'")) {
            at_ += 4;
        } else {
            if (open && text_[at_] == '"' && at_ >= unquotedUntil_) passOpeningQuote();
            ++at_;
        }
    }

    // A quote that is never closed opens nothing, and no other one is tried as far as the search
    // went, so that a line of quotes is not searched over and over.
    void passOpeningQuote() {
        const std::size_t stop = findStringStop(text_, at_);
        const bool closed = stop < text_.size() && text_[stop] == '"';
        (closed ? quotedUntil_ : unquotedUntil_) = stop + (closed ? 1 : 0);
    }

    std::string_view text_;
    std::size_t at_;
    std::size_t lineBegin_;
    std::size_t quotedUntil_;
    std::size_t unquotedUntil_;
    bool stoppedAtComment_ = false;
};

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

/// Finds the end of the number that starts with the digit at `begin`.
class NumberWalker {
public:
    NumberWalker(std::string_view text, std::size_t begin)
        : text_(text), at_(begin), hex_(text[begin] == '0' && lower(peek(1)) == 'x') {
        at_ += hex_ ? 2 : 1;
    }

    std::size_t findEnd() {
        while (takePart()) {
        }
        return at_;
    }

private:
    char peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
    bool isNumeral(char c) const { return hex_ ? isHexDigit(c) : isDigit(c); }
    bool isSeparator() const { return peek() == '\'' && isNumeral(text_[at_ - 1]) && isNumeral(peek(1)); }

    bool takePart() {
        const char c = lower(peek());
        if (isNumeral(c) || isSeparator()) return take();
        if (c == '.') return takeOnce(dot_);
        if (c == 'e') return takeOnce(exponent_) && takeSign();
        if ((c == 'u' || c == 'l') && !dot_ && !exponent_) return takeRunOf('u', 'l');
        return (c == 'l' || c == 'f') && takeRunOf('l', 'f');
    }

    bool take() {
        ++at_;
        return true;
    }

    bool takeOnce(bool& taken) {
        if (taken) return false;
        taken = true;
        return take();
    }

    bool takeSign() {
        if (peek() == '+' || peek() == '-') ++at_;
        return true;
    }

    bool takeRunOf(char a, char b) {
        while (lower(peek()) == a || lower(peek()) == b) ++at_;
        return true;
    }

    std::string_view text_;
    std::size_t at_;
    bool hex_;
    bool dot_ = false;
    bool exponent_ = false;
};

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
    DirectiveWalker walker(text, token.begin);
    while (walker.nextComment()) {
        result.append(text.substr(copied, walker.offset() - copied)).push_back('/');
        copied = walker.offset();
    }
    return result.append(text.substr(copied, token.end - copied));
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
    if (end == text_.size() || isSpace(text_[end]) || isPunct(text_[end])) return finish(token, tkNumber, end);
    at_ = static_cast<std::uint32_t>(end);
    return false;
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
    if (peek(1) == '/') {
        finish(token, tkLineComment, std::min(findLineFeed(text_, at_) + 1, text_.size()));
    } else {
        finish(token, tkBlockComment, findCommentEnd(text_, at_));
    }
    line_ += countLineFeeds(text_.substr(token.begin, token.end - token.begin));
    return true;
}

bool Scanner::scanLiteral(RawToken& token) {
    if (text_[at_] == '\'') return scanCharacter(token);
    if (hasRawPrefix(text_, at_) && scanRawString(token)) return true;
    return scanString(token);
}

bool Scanner::scanString(RawToken& token) {
    std::size_t pos = at_ + 1;
    std::size_t lineBegin = pos;
    std::uint32_t lines = 0;
    while ((pos = findStop(text_, pos, kStringStops)) < text_.size() && text_[pos] != '"') {
        if (text_[pos] == '\\') {
            pos += pos + 1 < text_.size() && text_[pos + 1] == '\n' ? 1 : 2;
            continue;
        }
        ++lines;
        if (!isContinued(text_, lineBegin, pos)) {
            at_ = static_cast<std::uint32_t>(pos + 1);
            line_ += lines;
            return false;
        }
        lineBegin = ++pos;
    }
    finish(token, tkStringLiteral, std::min(pos + 1, text_.size()));
    line_ += lines;
    return true;
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
    finish(token, tkStringLiteral, close == std::string_view::npos ? text_.size() : close + length);
    line_ += countLineFeeds(text_.substr(token.begin, token.end - token.begin));
    return true;
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
    DirectiveWalker walker(text_, at_);
    bool hasComment = false;
    while (walker.nextComment()) hasComment = true;
    inDirectiveTail_ = walker.stoppedAtComment();
    finish(token, tkDirective, walker.offset());
    token.hasInnerSpace = hasComment;
    line_ += countLineFeeds(text_.substr(token.begin, token.end - token.begin));
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

void scanAll(std::string_view text, std::vector<RawToken>& tokens) {
    Scanner scanner(text);
    RawToken token;
    while (scanner.next(token)) tokens.push_back(token);
}

std::string spelling(std::string_view text, const RawToken& token) {
    const std::string_view range = text.substr(token.begin, token.end - token.begin);
    if (token.hasInnerSpace) return token.type == tkDirective ? directiveSpelling(text, token) : withoutSpace(range);
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

} // namespace Cpp
