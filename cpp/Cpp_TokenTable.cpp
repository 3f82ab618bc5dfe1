#include "cpp/Cpp_TokenTable.h"

#include <algorithm>
#include <utility>

namespace Cpp {

namespace {

using Index = TokenTable::Index;

/// The first `count` characters of a directive that are no white space.
std::string squeezed(std::string_view directive, std::size_t count) {
    std::string result;
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

/// Decides from its neighbours whether a C++ keyword is only a name, as C programs use it.
bool isPlainName(int type, int before, int after, int behindAfter) {
    const bool member = before == tkDot || before == tkArrow || before == tkStruct || before == tkUnion;
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
        return member || (followsName(after) && after != tkComma) ||
               (after == tkComma && before != tkColon && before != tkComma);
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
        if (type >= tkClass && type <= tkCatch) {
            std::size_t after = i + 1;
            while (isCommentOrDirective(typeAt(after))) ++after;
            if (isPlainName(type, before, typeAt(after), typeAt(after + 1))) tokens[i].type = tkIdentifier;
        }
        before = tokens[i].type;
    }
}

} // namespace

Conditional conditionalOf(std::string_view directive) {
    const std::string word = squeezed(directive, 6);
    if (word.compare(0, 3, "#if") == 0) return Conditional::If;
    if (word.compare(0, 6, "#endif") == 0) return Conditional::EndIf;
    if (word.compare(0, 5, "#else") == 0 || word.compare(0, 5, "#elif") == 0) return Conditional::Else;
    return Conditional::None;
}

bool opensDisabledRegion(std::string_view directive) { return squeezed(directive, 4) == "#if0"; }

std::vector<ParseToken> scanForParser(const Zelmar::SourceText& source, Index& unclosedRegion) {
    unclosedRegion = TokenTable::kNone;
    std::vector<ParseToken> tokens;
    tokens.reserve(source.size() / 4 + 4);
    Scanner scanner(source.text());
    RawToken raw;
    int depth = 0; // of the conditionals inside a disabled region
    while (scanner.next(raw)) {
        const std::string_view text = source.text().substr(raw.begin, raw.end - raw.begin);
        if (depth > 0) {
            if (raw.type != tkDirective) continue;
            const Conditional kind = conditionalOf(text);
            depth += kind == Conditional::If ? 1 : kind == Conditional::EndIf ? -1 : 0;
            tokens.back().end = raw.end;
            continue;
        }
        const bool region = raw.type == tkDirective && opensDisabledRegion(text);
        depth = region ? 1 : 0;
        tokens.push_back({static_cast<std::int16_t>(raw.type), region, raw.begin, raw.end, raw.line});
    }
    if (depth > 0) unclosedRegion = static_cast<Index>(tokens.size() - 1);
    renamePlainNames(tokens);
    return tokens;
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

// One stack for all brackets. A "<" waits on it until a ">" on the same level closes it; a bracket
// that closes around it, a ";" and a brace drop it. A closing bracket looks for its partner on the
// stack, so that one bracket too many or too few does not shift all the others: a brace closes over
// parentheses that are open, nothing closes over a brace.
void TokenTable::matchBrackets() {
    mates_.assign(tokens_.size(), kNone);
    std::vector<Index> open;
    const auto dropAngles = [&] {
        while (!open.empty() && tokens_[open.back()].type == tkLess) open.pop_back();
    };
    const auto closeAngle = [&](Index i) {
        if (open.empty() || tokens_[open.back()].type != tkLess) return;
        mates_[open.back()] = i;
        mates_[i] = open.back();
        open.pop_back();
    };
    int before = tkEnd;
    for (Index i = significant(0); i < size(); i = significant(i + 1)) {
        const int type = tokens_[i].type;
        if (type == tkLess) {
            if (opensArguments(before)) open.push_back(i);
        } else if (type == tkGreater) {
            if (before != tkOperator) closeAngle(i);
        } else if (type == tkShiftRight) {
            if (before != tkOperator) closeAngle(i), closeAngle(i);
        } else if (isOpenBracket(type)) {
            if (type == tkOpenBrace) dropAngles();
            open.push_back(i);
        } else if (type == tkSemicolon) {
            dropAngles();
        } else if (isCloseBracket(type)) {
            dropAngles();
            if (type == tkCloseBrace) {
                while (!open.empty() && tokens_[open.back()].type != tkOpenBrace) open.pop_back();
            }
            if (!open.empty() && closes(type, tokens_[open.back()].type)) {
                mates_[i] = open.back();
                mates_[open.back()] = i;
                open.pop_back();
            }
        }
        before = type;
    }
}

std::string TokenTable::spelling(Index i) const {
    const ParseToken& token = tokens_[i];
    if (token.type == tkEnd) return {};
    if (token.type != tkIdentifier && token.type != tkInvalid) return std::string(text(i));
    std::string result;
    for (char c : text(i)) {
        if (!isSpace(c)) result += c;
    }
    return result;
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
    const bool mayBreak = isCommentOrDirective(token.type) || token.type == tkStringLiteral || token.type == tkIdentifier;
    if (mayBreak) return source_.positionOf(token.end - 1);
    Trn::Position at = start(i);
    at.column += token.end - token.begin - 1;
    return at;
}

} // namespace Cpp
