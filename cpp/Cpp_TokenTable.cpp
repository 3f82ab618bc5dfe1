#include "cpp/Cpp_TokenTable.h"

#include <algorithm>
#include <utility>

namespace Cpp {

namespace {

using Index = TokenTable::Index;

/// The first `count` characters of a directive that are no white space, its mark spelled "#".
std::string squeezed(std::string_view directive, std::size_t count) {
    std::string result;
    if (directive.starts_with('%')) {
        result = '#';
        directive.remove_prefix(std::min(directive.find(':'), directive.size() - 1) + 1);
    }
    for (char c : directive) {
        if (isSpace(c) || c == '\\') continue;
        result += c;
        if (result.size() == count) break;
    }
    return result;
}

bool closes(int close, int open) {
    return (close == tkCloseParen && open == tkOpenParen) || (close == tkCloseBracket && open == tkOpenBracket) ||
           (close == tkCloseBrace && open == tkOpenBrace);
}

bool isOpenBracket(int type) { return type == tkOpenParen || type == tkOpenBracket || type == tkOpenBrace; }

bool isCloseBracket(int type) {
    return type == tkCloseParen || type == tkCloseBracket || type == tkCloseBrace;
}

/// Behind which tokens a "<" may open a list of arguments.
bool opensArguments(int before) {
    return before == tkIdentifier || before == tkTemplate || (before >= tkStaticCast && before <= tkReinterpretCast);
}

/// What can stand behind a name but not behind a keyword that begins a construct.
bool followsName(int type) {
    switch (type) {
    case tkAssign: case tkSemicolon: case tkComma: case tkCloseParen: case tkCloseBracket: case tkDot:
    case tkArrow: case tkEqual: case tkNotEqual: case tkPlus: case tkMinus: case tkSlash: case tkPercent:
    case tkQuestion: case tkLogicalAnd: case tkLogicalOr: case tkIncrement: case tkDecrement: case tkBar:
    case tkAddAssign: case tkSubAssign: case tkLessEqual: case tkGreaterEqual: case tkOrAssign:
    case tkAndAssign: case tkCloseBrace:
        return true;
    default:
        return false;
    }
}

/// Keywords that C has, too, so that they are names nowhere.
bool isCKeyword(int type) {
    return type == tkStruct || type == tkUnion || type == tkEnum || type == tkConst || type == tkVolatile || type == tkStatic ||
           type == tkInline || type == tkSigned || type == tkUnsigned || type == tkAuto || type == tkRegister ||
           type == tkTypedef || type == tkExtern || type == tkSizeof || type == tkAsm;
}

/// A word that only a name can follow, of those that a C++ keyword may stand behind in a C program.
bool namesWhatFollows(int before) {
    return (before >= tkChar && before <= tkVoid) || before == tkSigned || before == tkUnsigned;
}

/// "void delete(int x)", "struct x *new(void)", "int private : 3", "typedef int bool;".
bool isDeclaredName(int type, int before, int after, int behindAfter) {
    const bool typed = namesWhatFollows(before);
    switch (type) {
    case tkNew: case tkDelete:
        return typed || (after == tkOpenParen && (before == tkAsterisk || before == tkIdentifier));
    case tkThrow: case tkTry: case tkCatch:
        return typed || (after == tkOpenParen && before == tkAsterisk);
    case tkPublic: case tkPrivate: case tkProtected:
        return typed || (before == tkIdentifier && after == tkColon && behindAfter == tkNumber);
    case tkBool: case tkWcharT:
        return after == tkSemicolon && (typed || before == tkIdentifier);
    case tkClass: case tkTemplate: case tkTypename: case tkNamespace: case tkUsing: case tkExport: case tkThis:
    case tkTypeid: case tkTrue: case tkFalse:
        return typed;
    default:
        return false;
    }
}

/// In front of the width of a bit field, "unsigned a : 1, export : 1", no keyword can be more than a name. The
/// values in "x ? f(), this : 1" are all that looks so, too.
bool isFieldName(int type, int before) {
    const bool isValue = type == tkThis || type == tkTrue || type == tkFalse;
    if (type < tkClass || isCKeyword(type) || isValue) return false;
    return before == tkComma || before == tkIdentifier || namesWhatFollows(before);
}

/// Decides from its neighbours whether a C++ keyword is only a name, as C programs use it.
bool isPlainName(int type, int before, int after, int behindAfter) {
    if (before == tkStruct || before == tkUnion || before == tkGoto) return type < tkIf && !isCKeyword(type);
    if (isDeclaredName(type, before, after, behindAfter)) return true;
    if (after == tkColon && behindAfter == tkNumber && isFieldName(type, before)) return true;
    const bool member = before == tkDot || before == tkArrow;
    switch (type) {
    case tkClass: case tkTypename:
        if (before == tkLess || before == tkComma || before == tkTemplate || before == tkEnum) return member;
        return member || followsName(after);
    case tkTemplate:
        return (member && followsName(after)) || (!member && (followsName(after) || after == tkOpenBracket || after == tkColon));
    case tkNew:
        return before != tkOperator && (member || followsName(after) || (after == tkOpenBracket && before != tkAssign));
    case tkDelete:
        if (before == tkOperator || before == tkAssign) return false;
        return member || followsName(after);
    case tkPublic: case tkPrivate: case tkProtected:
        return member || followsName(after) || after == tkOpenBracket;
    case tkNamespace: case tkUsing: case tkFriend: case tkVirtual: case tkExport: case tkExplicit:
        return member || followsName(after) || (after == tkOpenBracket && behindAfter != tkOpenBracket);
    case tkMutable:
        return member || (before != tkCloseParen && followsName(after));
    case tkTry:
        return after != tkOpenBrace && after != tkColon;
    case tkCatch:
        return after != tkOpenParen;
    case tkThrow:
        return member || (followsName(after) && after != tkSemicolon && after != tkCloseParen && after != tkComma &&
                          after != tkCloseBrace && after != tkMinus && after != tkPlus && after != tkIncrement &&
                          after != tkDecrement);
    case tkOperator:
        if (member) return behindAfter != tkOpenParen && after != tkOpenParen && after != tkOpenBracket && followsName(after);
        return after == tkSemicolon || after == tkCloseParen || after == tkCloseBracket || after == tkDot;
    default:
        return member && type >= tkClass && type < tkIf && type != tkSizeof;
    }
}

void renamePlainNames(std::vector<ParseToken>& tokens) {
    const auto typeAt = [&](std::size_t i) { return i < tokens.size() ? int(tokens[i].type) : int(tkEnd); };
    int before = tkEnd;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (isCommentOrDirective(tokens[i].type)) continue;
        const int type = tokens[i].type;
        if ((type >= tkClass && type <= tkCatch) || type == tkBool || type == tkWcharT) {
            std::size_t after = i + 1;
            while (isCommentOrDirective(typeAt(after))) ++after;
            if (isPlainName(type, before, typeAt(after), typeAt(after + 1))) tokens[i].type = tkIdentifier;
        }
        // In front of "::new" the scanner sees a name without a letter: it is none.
        before = tokens[i].begin == tokens[i].end ? int(tkEnd) : int(tokens[i].type);
    }
}

/// Finds the words that stand for "struct" where interfaces are declared: "interface I : J {" and
/// "MIDL_INTERFACE("uuid") I : J {".
class InterfaceFinder {
public:
    InterfaceFinder(std::string_view source, std::vector<ParseToken>& tokens) : source_(source), tokens_(tokens) {}

    void run() {
        int before = tkEnd;
        for (std::size_t i = 0; i < tokens_.size(); i = next(i)) {
            const bool isName = before == tkDot || before == tkArrow || before == tkStruct || before == tkUnion || before == tkEnum;
            if (!isName && type(i) == tkIdentifier && isKey(i)) tokens_[i].type = tkStruct;
            before = type(i);
        }
    }

private:
    int type(std::size_t i) const { return i < tokens_.size() ? int(tokens_[i].type) : int(tkEnd); }
    std::size_t next(std::size_t i) const {
        do ++i;
        while (isCommentOrDirective(type(i)));
        return i;
    }

    bool isKey(std::size_t i) const {
        const std::string_view word = source_.substr(tokens_[i].begin, tokens_[i].end - tokens_[i].begin);
        if (!word.ends_with("nterface") && !word.ends_with("_INTERFACE")) return false;
        const bool isMacro = word.ends_with("_INTERFACE");
        if (!isMacro && word != "interface" && word != "__interface") return false;
        std::size_t name = next(i);
        if (!isMacro && type(name) == tkIdentifier && type(next(name)) == tkOpenParen) name = next(name);
        if (type(name) == tkOpenParen) name = behindString(name);
        else if (isMacro) return false;
        const int behind = type(next(name));
        return type(name) == tkIdentifier && (behind == tkOpenBrace || behind == tkColon);
    }

    // Behind the parentheses at `open` if they hold one string.
    std::size_t behindString(std::size_t open) const {
        const std::size_t close = next(next(open));
        return type(next(open)) == tkStringLiteral && type(close) == tkCloseParen ? next(close) : tokens_.size();
    }

    std::string_view source_;
    std::vector<ParseToken>& tokens_;
};

} // namespace

Conditional conditionalOf(std::string_view directive) {
    const std::string word = squeezed(directive, 6);
    if (word.compare(0, 3, "#if") == 0) return Conditional::If;
    if (word.compare(0, 6, "#endif") == 0) return Conditional::EndIf;
    if (word.compare(0, 5, "#else") == 0 || word.compare(0, 5, "#elif") == 0) return Conditional::Else;
    return Conditional::None;
}

bool opensDisabledRegion(std::string_view directive) { return squeezed(directive, 4) == "#if0"; }

ParserTokens scanForParser(const Zelmar::SourceText& source) {
    ParserTokens result;
    std::vector<ParseToken>& tokens = result.tokens;
    tokens.reserve(source.size() / 4 + 4);
    Scanner scanner(source.text());
    RawToken raw;
    int depth = 0; // of the conditionals inside a disabled region
    while (scanner.next(raw)) {
        const std::string_view text = source.text().substr(raw.begin, raw.end - raw.begin);
        result.last = raw.begin;
        if (depth > 0) {
            if (raw.type != tkDirective) continue;
            const Conditional kind = conditionalOf(text);
            depth += kind == Conditional::If ? 1 : kind == Conditional::EndIf ? -1 : 0;
            tokens.back().end = raw.end;
            continue;
        }
        const bool region = raw.type == tkDirective && opensDisabledRegion(text);
        depth = region ? 1 : 0;
        tokens.push_back({static_cast<std::int16_t>(raw.type), region, false, raw.begin, raw.end, raw.line});
    }
    result.regionUnclosed = depth > 0;
    if (depth > 0) tokens.pop_back();
    renamePlainNames(tokens);
    InterfaceFinder(source.text(), tokens).run();
    return result;
}

TokenTable::TokenTable(const Zelmar::SourceText& source, std::vector<ParseToken> tokens)
    : source_(source), tokens_(std::move(tokens)) {
    ParseToken end;
    end.begin = end.end = static_cast<std::uint32_t>(source.size());
    end.line = source.lineCount();
    tokens_.push_back(end);
    findSignificant();
    matchBrackets();
}

void TokenTable::findSignificant() {
    significant_.resize(tokens_.size());
    Index next = size();
    for (Index i = size() + 1; i-- > 0;) {
        if (!isCommentOrDirective(tokens_[i].type)) next = i;
        significant_[i] = next;
    }
}

Index TokenTable::significantBefore(Index i) const {
    while (i-- > 0) {
        if (!isCommentOrDirective(tokens_[i].type)) return i;
    }
    return kNone;
}

namespace {

/// Whether a declaration may start with the token of type `type`, the next one being `next`.
bool startsDeclaration(int type, int next) {
    const bool word = type == tkIdentifier || (type >= tkClass && type <= tkExtern) || (type >= tkChar && type <= tkVoid);
    return word && next != tkComma && next != tkGreater && next != tkAssign;
}

} // namespace

/// Finds the partners of all brackets on one stack. A "<" waits on it until a ">" on the same level
/// closes it; a bracket that closes around it and a ";" drop it, while braces may hold a value or the
/// body of a closure among the arguments. A closing bracket looks for
/// its partner on the stack, so that one bracket too many or too few does not shift all the others: a
/// brace closes over parentheses that are open, nothing closes over a brace.
class TokenTable::BracketMatcher {
public:
    explicit BracketMatcher(TokenTable& table) : table_(table), mates_(table.mates_) {}

    void run() {
        int before = tkEnd;
        for (Index i = table_.significant(0); i < table_.size(); i = table_.significant(i + 1)) {
            if (!table_.token(i).isRegion && !table_.token(i).isUnclosed) take(i, table_.type(i), before);
            before = table_.type(i);
        }
    }

private:
    static constexpr std::size_t kMaxOpenAngles = 16;

    struct Open {
        Index at = 0;
        bool ofTemplate = false;   // the "<" behind "template"
        Index laterClose = kNone;  // a ">" inside such a one that may be its own
    };

    void take(Index i, int type, int before) {
        if (type == tkLess) {
            if (opensArguments(before)) open_.push_back({i, before == tkTemplate, kNone});
        } else if (type == tkGreater) {
            if (before != tkOperator) closeAngle(i);
        } else if (type == tkShiftRight) {
            if (before != tkOperator) closeAngle(i), closeAngle(i);
        } else if (isOpenBracket(type)) {
            if (type == tkOpenBrace && isBody()) dropAngles();
            open_.push_back({i, false, kNone});
        } else if (type == tkSemicolon) {
            dropAngles();
        } else if (isCloseBracket(type)) {
            closeBracket(i, type);
        }
    }

    int topType() const { return open_.empty() ? int(tkEnd) : table_.type(open_.back().at); }

    void pair(Index open, Index close) {
        mates_[open] = close;
        mates_[close] = open;
    }

    void closeAngle(Index i) {
        if (topType() != tkLess) return;
        pair(open_.back().at, i);
        open_.pop_back();
        if (topType() != tkLess || !open_.back().ofTemplate || open_.back().laterClose != kNone) return;
        const Index next = table_.significant(i + 1);
        const Index second = next < table_.size() ? table_.significant(next + 1) : next;
        if (startsDeclaration(table_.type(next), table_.type(second))) open_.back().laterClose = i;
    }

    // Whether a list of template parameters in front of a "{" is known to be closed. Its own "<" stands
    // behind few others.
    bool isBody() const {
        std::size_t left = kMaxOpenAngles;
        for (auto open = open_.rbegin(); open != open_.rend() && left > 0; ++open, --left) {
            if (table_.type(open->at) != tkLess) return false;
            if (open->laterClose != kNone) return true;
        }
        return false;
    }

    // "template <int N, bool = N < 4> class A {": the "<" of the comparison has taken the ">" that
    // closes the list.
    void dropAngles() {
        while (topType() == tkLess) {
            const Open dropped = open_.back();
            open_.pop_back();
            if (!dropped.ofTemplate || dropped.laterClose == kNone) continue;
            mates_[mates_[dropped.laterClose]] = kNone;
            pair(dropped.at, dropped.laterClose);
        }
    }

    void closeBracket(Index i, int type) {
        dropAngles();
        if (type == tkCloseBrace) {
            while (!open_.empty() && topType() != tkOpenBrace) open_.pop_back();
        }
        if (!closes(type, topType())) return;
        pair(open_.back().at, i);
        open_.pop_back();
    }

    TokenTable& table_;
    std::vector<Index>& mates_;
    std::vector<Open> open_;
};

void TokenTable::matchBrackets() {
    mates_.assign(tokens_.size(), kNone);
    BracketMatcher(*this).run();
}

std::string TokenTable::spelling(Index i) const {
    const ParseToken& token = tokens_[i];
    if (token.type == tkEnd) return {};
    if (token.type == tkDirective) return Cpp::spelling(source_.text(), {tkDirective, true, false, token.begin, token.end, token.line});
    const bool isLiteral = token.type == tkStringLiteral || token.type == tkCharLiteral;
    if (isLiteral || isComment(token.type)) return std::string(text(i));
    return Cpp::spelling(source_.text(), {static_cast<std::uint8_t>(token.type), true, false, token.begin, token.end, token.line});
}

void TokenTable::appendSpelling(std::string& text, Index i) const {
    const std::string_view spelled = this->text(i);
    if (type(i) == tkIdentifier && std::any_of(spelled.begin(), spelled.end(), isSpace)) text += spelling(i);
    else text += spelled;
}

std::string TokenTable::joined(Index first, Index last) const {
    std::string text;
    for (Index i = significant(first); i < last; i = significant(i + 1)) {
        if (!text.empty()) text += ' ';
        appendSpelling(text, i);
    }
    return text;
}

std::string TokenTable::statement(Index first, Index last) const {
    std::string text;
    int parens = 0;
    for (Index j = first; j < last; j = significant(j + 1)) {
        switch (type(j)) {
        case tkOpenParen: ++parens; continue;
        case tkCloseParen: parens -= parens > 0 ? 1 : 0; continue;
        case tkLess: case tkGreater: case tkTemplate: continue;
        default: break;
        }
        if (!text.empty() && (type(j) != tkSemicolon || parens > 0)) text += ' ';
        appendSpelling(text, j);
    }
    return text;
}

Trn::Position TokenTable::start(Index i) const {
    const ParseToken& token = tokens_[i];
    const auto column = token.begin - source_.lineStart(token.line) + 1;
    return {token.line, static_cast<std::uint32_t>(column)};
}

Trn::Position TokenTable::end(Index i) const {
    const ParseToken& token = tokens_[i];
    if (token.end <= token.begin) {
        Trn::Position at = start(i);
        --at.column;
        return at;
    }
    const bool spansLines = token.line < source_.lineCount() && token.end > source_.lineStart(token.line + 1);
    if (spansLines) return source_.positionOf(token.end - 1);
    Trn::Position at = start(i);
    at.column += token.end - token.begin - 1;
    return at;
}

} // namespace Cpp
