#include "cpp/Cpp_Recovery.h"

#include "cpp/Cpp_Parser.h"

#include <algorithm>
#include <utility>

namespace Cpp {

namespace {

using Index = TokenTable::Index;

/// As many tokens may be read twice for each token of the text.
constexpr std::size_t kMostReadTwice = 8;

/// A stop that indentation by tabs is told with, whatever the text itself goes by.
constexpr std::size_t kTabStop = 8;

/// Beyond this indents are not told apart: a hostile line could hold nothing else, and be asked for often.
constexpr std::size_t kWidestIndent = 512;

/// The width of the white space that the line of `token` starts with.
std::size_t indentOf(const Zelmar::SourceText& source, const ParseToken& token) {
    const std::string_view text = source.text();
    std::size_t width = 0;
    for (std::size_t i = source.lineStart(token.line); i < text.size() && width < kWidestIndent; ++i) {
        if (text[i] == '\t') width += kTabStop - width % kTabStop;
        else if (text[i] == ' ') ++width;
        else break;
    }
    return width;
}

/// Whether only white space stands in front of `token` on its line.
bool startsLine(const Zelmar::SourceText& source, const ParseToken& token) {
    const std::string_view text = source.text();
    std::size_t begin = token.begin;
    while (begin > 0 && (text[begin - 1] == ' ' || text[begin - 1] == '\t')) --begin;
    return begin == 0 || text[begin - 1] == '\n';
}

bool startsWord(int type) { return type == tkIdentifier || (type >= tkClass && type <= tkVoid); }

bool isTypeKey(int type) {
    return type == tkClass || type == tkStruct || type == tkUnion || type == tkEnum || type == tkTypedef || type == tkAssign;
}

} // namespace

bool Recovery::isBracket(int type) {
    return type == tkOpenParen || type == tkOpenBracket || type == tkOpenBrace;
}

/// A "}" that closes what is around the item, or nothing; or a stretch that was cut out beforehand.
bool Recovery::endsBody(Index i, Index first) const {
    if (t_.type(i) == tkEnd) return true;
    return t_.type(i) == tkCloseBrace && (t_.mate(i) == kNone || t_.mate(i) < first);
}

/// Whether the item goes on behind the "}" at `close`: with its ";", a further part of a control statement,
/// the rest of a value, or the names that a class declares.
bool Recovery::continuesBehindBrace(Index close, const Item& item) const {
    const Index behind = next(close);
    const int kind = t_.type(behind);
    if (kind == tkSemicolon || kind == tkElse || kind == tkCatch || kind == tkOpenBrace) return true;
    if (kind == tkWhile) return t_.type(item.first) == tkDo;
    if (kind == tkComma || kind == tkDot || kind == tkArrow || kind == tkOpenParen || kind == tkCloseParen) return true;
    const bool declares = kind == tkIdentifier || kind == tkAsterisk || kind == tkAmpersand;
    return item.endsInSemicolon && declares && t_.token(behind).line == t_.token(close).line;
}

bool Recovery::continuesBehindSemicolon(Index semicolon) const {
    const int kind = t_.type(next(semicolon));
    return kind == tkElse || kind == tkCatch;
}

Recovery::Index Recovery::findEnd(Index first, Index failedAt) const {
    Item item = {first};
    bool inHead = true; // in front of all brackets
    for (Index j = first;; j = next(j)) {
        if (endsBody(j, first)) return j;
        const int kind = t_.type(j);
        inHead = inHead && !isBracket(kind);
        item.endsInSemicolon = item.endsInSemicolon || (inHead && isTypeKey(kind));
        if (kind == tkInvalid) return j + 1; // it has taken what follows on its line
        if (kind == tkOpenBrace && t_.mate(j) == kNone) return findLineBehind(j, first);
        if (isBracket(kind) && t_.mate(j) != kNone) j = t_.mate(j);
        if (j < failedAt) continue;
        if (kind == tkSemicolon && !continuesBehindSemicolon(j)) return j + 1;
        if (kind == tkOpenBrace && !continuesBehindBrace(j, item)) return j + 1;
    }
}

/// Where the text makes sense again behind a brace that nothing closes: at a line that starts with a word no
/// further right than the item does. A label stands there, too, within a body.
Recovery::Index Recovery::findLineBehind(Index brace, Index first) const {
    const std::size_t most = indentOf(source_, t_.token(first));
    for (Index j = next(brace);; j = next(j)) {
        if (endsBody(j, first)) return j;
        const bool isLine = startsWord(t_.type(j)) && startsLine(source_, t_.token(j));
        if (isLine && t_.type(next(j)) != tkColon && indentOf(source_, t_.token(j)) <= most) return j;
        if (isBracket(t_.type(j)) && t_.mate(j) != kNone) j = t_.mate(j);
    }
}

Recovery::Index Recovery::leaveAlone(Index first, Index failedAt, Index reached, Trn::MessageList& messages,
                                     std::size_t known) {
    const bool isUsedUp = readTwice_ > kMostReadTwice * t_.size();
    Index end = isUsedUp ? t_.size() : findEnd(first, failedAt);
    if (end <= first) end = first + 1;
    if (reached > end) readTwice_ += reached - end;
    tokensLeftAlone_ += end - first;
    take(messages, known, first, end);
    return end;
}

void Recovery::take(Trn::MessageList& messages, std::size_t known, Index first, Index end) {
    const Trn::Position start = t_.start(first);
    const Trn::Position last = t_.end(end - 1);
    auto from = messages.end();
    for (std::size_t left = messages.size(); left > known; --left) --from;
    for (auto message = from; message != messages.end();) {
        const auto current = message++;
        if (current->code == Parser::kNoteCode) {
            messages.erase(current);
            continue;
        }
        current->severity = Trn::kSeverityWarning;
        if (current->position < start || last < current->position) current->position = start;
        warnings_.splice(warnings_.end(), messages, current);
    }
}

namespace {

/// A "{" that is still open.
struct OpenBrace {
    std::size_t at = 0;
    std::size_t indent = 0; // of the line on which its statement starts
};

/// The braces over which another one closes that stands further left than their statement starts, and
/// those that are open at the end. Nothing if some "}" is left over then: the lines do not tell.
std::vector<std::size_t> findUnclosedBraces(const Zelmar::SourceText& source, const std::vector<ParseToken>& tokens) {
    std::vector<std::size_t> unclosed;
    std::vector<OpenBrace> open;
    const ParseToken* statement = nullptr;
    bool startsStatement = true;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const ParseToken& token = tokens[i];
        if (isCommentOrDirective(token.type) || token.isRegion) continue;
        if (startsStatement) statement = &token;
        startsStatement = token.type == tkOpenBrace || token.type == tkCloseBrace || token.type == tkSemicolon;
        if (token.type == tkOpenBrace) {
            open.push_back({i, indentOf(source, *statement)});
        } else if (token.type == tkCloseBrace) {
            const bool tells = startsLine(source, token);
            const std::size_t indent = tells ? indentOf(source, token) : 0;
            while (tells && open.size() > 1 && open.back().indent > indent) {
                unclosed.push_back(open.back().at);
                open.pop_back();
            }
            if (open.empty()) return {};
            open.pop_back();
        }
    }
    return unclosed;
}

} // namespace

bool hasUnevenBraces(std::span<const ParseToken> tokens) {
    std::size_t depth = 0;
    for (const ParseToken& token : tokens) {
        if (token.isRegion) continue;
        if (token.type == tkOpenBrace) ++depth;
        if (token.type == tkCloseBrace && depth-- == 0) return true;
    }
    return depth != 0;
}

void markUnclosedBraces(const Zelmar::SourceText& source, std::vector<ParseToken>& tokens) {
    if (!hasUnevenBraces(tokens)) return;
    for (const std::size_t i : findUnclosedBraces(source, tokens)) tokens[i].isUnclosed = true;
}

namespace {

std::string_view textOf(std::string_view source, const ParseToken& token) {
    return source.substr(token.begin, token.end - token.begin);
}

/// Whether an "@" makes a word of Objective-C of the token.
bool isAtWord(std::string_view source, const ParseToken& token) {
    return token.begin > 0 && source[token.begin - 1] == '@' && startsWord(token.type);
}

/// One past the last "@end": behind it none has to be searched for.
std::size_t findLastEnd(std::string_view source, const std::vector<ParseToken>& tokens) {
    std::size_t i = tokens.size();
    while (i > 0 && !(isAtWord(source, tokens[i - 1]) && textOf(source, tokens[i - 1]) == "end")) --i;
    return i;
}

/// The last token of the declaration that starts at `first`, or `first` if it has no end in front of `limit`.
std::size_t findObjectiveCEnd(std::string_view source, const std::vector<ParseToken>& tokens, std::size_t first,
                              std::size_t limit) {
    const std::string_view word = textOf(source, tokens[first]);
    const bool isLine = word == "class" || word == "import";
    bool namesOnly = isLine || word == "protocol"; // "@protocol A, B;" only names them
    if (!isLine && word != "interface" && word != "implementation" && word != "protocol") return first;
    for (std::size_t i = first + 1; i < (namesOnly ? tokens.size() : limit); ++i) {
        const int type = tokens[i].type;
        if (isCommentOrDirective(type)) continue;
        if (namesOnly && type == tkSemicolon) return i;
        namesOnly = namesOnly && (type == tkIdentifier || type == tkComma || type == tkDot);
        if (isLine && !namesOnly) return first;
        if (isAtWord(source, tokens[i]) && textOf(source, tokens[i]) == "end") return i;
    }
    return first;
}

} // namespace

std::vector<std::size_t> foldObjectiveC(std::string_view source, std::vector<ParseToken>& tokens) {
    std::vector<std::size_t> regions;
    if (source.find('@') == std::string_view::npos) return regions;
    // Most texts have an "@" in comments alone: their tokens are only looked at.
    std::size_t kept = 0;
    while (kept < tokens.size() && !isAtWord(source, tokens[kept])) ++kept;
    if (kept == tokens.size()) return regions;
    const std::size_t limit = findLastEnd(source, tokens);
    for (std::size_t i = kept; i < tokens.size(); ++i) {
        ParseToken token = tokens[i];
        const std::size_t last = isAtWord(source, token) ? findObjectiveCEnd(source, tokens, i, limit) : i;
        if (last != i) {
            token = {tkCloseBrace, true, false, token.begin - 1, tokens[last].end, token.line};
            regions.push_back(kept);
            i = last;
        }
        tokens[kept++] = token;
    }
    tokens.resize(kept);
    return regions;
}

namespace {

/// Behind the line feed of the line of `offset`, or at the end. A backslash joins lines.
std::size_t findLineEnd(std::string_view source, std::size_t offset) {
    for (std::size_t feed = source.find('\n', offset); feed != std::string_view::npos; feed = source.find('\n', feed + 1)) {
        if (feed == 0 || source[feed - 1] != '\\') return feed;
    }
    return source.size();
}

bool isRawPrefix(std::string_view source, const ParseToken& token) {
    const std::string_view text = textOf(source, token);
    return text == "R" || text == "LR" || text == "uR" || text == "UR" || text == "u8R";
}

} // namespace

// The scanner hands on no token for a quote that nothing closes: it stands in a gap.
void foldUnclosedStrings(const Zelmar::SourceText& source, std::vector<ParseToken>& tokens) {
    const std::string_view text = source.text();
    std::size_t next = 0; // token
    std::size_t end = 0;  // of the one in front
    const auto findQuote = [&] {
        for (;; ++next) {
            const std::size_t begin = next < tokens.size() ? tokens[next].begin : text.size();
            std::size_t at = end;
            while (at < begin && text[at] != '"') ++at;
            if (at < begin) return at;
            if (next == tokens.size()) return std::string_view::npos;
            end = std::max<std::size_t>(end, tokens[next].end);
        }
    };
    std::vector<ParseToken> folded;
    std::size_t taken = 0;
    const auto takeTokens = [&] { folded.insert(folded.end(), tokens.data() + taken, tokens.data() + next); };
    for (std::size_t quote = findQuote(); quote != std::string_view::npos; quote = findQuote()) {
        takeTokens();
        const bool isRaw = !folded.empty() && folded.back().end == quote && isRawPrefix(text, folded.back());
        std::size_t last = isRaw ? text.size() : findLineEnd(text, quote);
        for (; next < tokens.size() && tokens[next].begin < last; ++next) last = std::max<std::size_t>(last, tokens[next].end);
        folded.push_back({tkInvalid, false, false, static_cast<std::uint32_t>(quote), static_cast<std::uint32_t>(last),
                          source.positionOf(quote).line});
        end = last;
        taken = next;
    }
    if (folded.empty()) return; // as most texts
    takeTokens();
    tokens = std::move(folded);
}

} // namespace Cpp
