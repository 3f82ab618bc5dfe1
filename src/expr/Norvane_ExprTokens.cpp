#include "src/expr/Norvane_ExprTokens.h"

#include <algorithm>

namespace Norvane {

bool BracketDepths::count(int kind) {
    switch (kind) {
    case Cpp::tkOpenParen: ++paren; return true;
    case Cpp::tkCloseParen: --paren; return true;
    case Cpp::tkOpenBrace: ++brace; return true;
    case Cpp::tkCloseBrace: --brace; return true;
    case Cpp::tkOpenBracket: ++square; return true;
    case Cpp::tkCloseBracket: --square; return true;
    case Cpp::tkLess: ++angle; return true;
    case Cpp::tkGreater: --angle; return true;
    default: return false;
    }
}

bool endsType(int kind) {
    switch (kind) {
    case Cpp::tkConst: case Cpp::tkVolatile: case Cpp::tkSigned: case Cpp::tkUnsigned: case Cpp::tkAuto:
        return true;
    default:
        return kind >= Cpp::tkChar && kind <= Cpp::tkVoid;
    }
}

bool isTypeKeyword(int kind) {
    switch (kind) {
    case Cpp::tkStruct: case Cpp::tkClass: case Cpp::tkEnum: case Cpp::tkUnion: case Cpp::tkTypename:
        return true;
    default:
        return endsType(kind);
    }
}

namespace {

void closeTop(std::vector<std::size_t>& open, std::vector<std::size_t>& mates, std::size_t index) {
    if (open.empty()) return;
    mates[open.back()] = index;
    open.pop_back();
}

/// Tokens that the arguments of a template are made of. Operators are not: with one of them between
/// the brackets, two closing ones in a row are taken for a shift.
bool isTemplateArgument(int kind) {
    switch (kind) {
    case Cpp::tkNumber: case Cpp::tkComma: case Cpp::tkAsterisk: case Cpp::tkAmpersand: case Cpp::tkDot:
    case Cpp::tkOpenParen: case Cpp::tkCloseParen: case Cpp::tkOpenBracket: case Cpp::tkCloseBracket:
    case Cpp::tkLess: case Cpp::tkGreater: case Cpp::tkIdentifier: case Cpp::tkTemplate: case Cpp::tkSizeof:
    case Cpp::tkTrue: case Cpp::tkFalse:
        return true;
    default:
        return isTypeKeyword(kind) || Cpp::isComment(kind);
    }
}

bool isLogical(int kind) {
    return kind == Cpp::tkLogicalAnd || kind == Cpp::tkLogicalOr;
}

} // namespace

void ExprTokens::assign(std::string_view text, const ExprCode* code) {
    text_ = text;
    tokens_.clear();
    multiLineTokens_.clear();
    codePlaces_.clear();
    codeBraces_.clear();
    closureBraces_.clear();
    closureHeads_.clear();
    scan(code);
    kinds_.resize(tokens_.size());
    mates_.assign(tokens_.size(), kNone);
    classify();
    match();
    if (hasAngles_) matchAngles();
}

void ExprTokens::scan(const ExprCode* code) {
    if (code == nullptr || text_.find('{') == std::string_view::npos) return Cpp::scanAll(text_, tokens_);
    std::uint32_t begin = 0; // of what is scanned since the last code
    Cpp::Scanner scanner(text_);
    for (Cpp::RawToken token; scanner.next(token);) {
        token.begin += begin;
        token.end += begin;
        tokens_.push_back(token);
        if (token.type != Cpp::tkOpenBrace || !takeCode(token, *code)) continue;
        begin = tokens_.back().end;
        scanner = Cpp::Scanner(text_.substr(begin));
    }
    const auto isBefore = [](const CodePlace& a, const CodePlace& b) { return a.offset < b.offset; };
    std::sort(codePlaces_.begin(), codePlaces_.end(), isBefore);
    std::sort(closureHeads_.begin(), closureHeads_.end());
}

bool ExprTokens::takeCode(const Cpp::RawToken& brace, const ExprCode& code) {
    const auto found = code.find(text_.data() + brace.begin);
    if (!found || found->end > text_.data() + text_.size()) return false;
    const bool hasHead = found->head >= text_.data() && found->head < text_.data() + brace.begin;
    const std::size_t head = hasHead ? static_cast<std::size_t>(found->head - text_.data()) : brace.begin;
    codeBraces_.push_back(brace.begin);
    if (found->isClosure) closureBraces_.push_back(brace.begin);
    if (found->isClosure && hasHead) closureHeads_.push_back(head);
    if (!found->isApart) return false;
    if (hasHead) codePlaces_.push_back({head, found->number, 0});
    Cpp::RawToken close = brace;
    close.type = Cpp::tkCloseBrace;
    close.end = static_cast<std::uint32_t>(found->end - text_.data());
    close.begin = close.end - 1;
    codePlaces_.push_back({brace.begin, found->number, close.end});
    tokens_.push_back(close);
    return true;
}

bool ExprTokens::isAmong(const std::vector<std::size_t>& offsets, std::size_t index) const {
    return !offsets.empty() && std::binary_search(offsets.begin(), offsets.end(), begin(index));
}

bool ExprTokens::opensCode(std::size_t index) const {
    if (codePlaces_.empty() || tokens_[index].type != Cpp::tkOpenBrace) return false;
    const auto isBefore = [](const CodePlace& place, std::size_t offset) { return place.offset < offset; };
    const auto found = std::lower_bound(codePlaces_.begin(), codePlaces_.end(), begin(index), isBefore);
    return found != codePlaces_.end() && found->offset == begin(index);
}

bool ExprTokens::endsLine(std::size_t index) const {
    if (tokens_[index].unclosed) return true;
    return end(index) > begin(index) && text_[end(index) - 1] == '\n';
}

void ExprTokens::classify() {
    hasAngles_ = false;
    launches_ = false;
    for (std::size_t i = 0; i < tokens_.size(); ++i) kinds_[i] = tokens_[i].type;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        if (kinds_[i] == Cpp::tkIdentifier) trimName(tokens_[i]);
        if (kinds_[i] == Cpp::tkOperator) nameOperator(i);
        if (kinds_[i] == Cpp::tkLess || kinds_[i] == Cpp::tkGreater) classifyAngle(i);
        if (maySpanLines(i) && token(i).find('\n') != std::string_view::npos) multiLineTokens_.push_back(i);
    }
}

/// The token may hold a line feed that is not white space between two words, as in "A::\n B".
bool ExprTokens::maySpanLines(std::size_t index) const {
    const int kind = kinds_[index];
    if (kind == Cpp::tkStringLiteral || kind == Cpp::tkCharLiteral || kind == Cpp::tkBlockComment) return true;
    return tokens_[index].hasInnerSpace && kind != Cpp::tkDirective && token(index).find('\\') != std::string_view::npos;
}

void ExprTokens::classifyAngle(std::size_t index) {
    if (kinds_[index] == Cpp::tkLess) hasAngles_ = true;
    if (endsSpaceship(index)) kinds_[index] = Cpp::tkLessEqual;
    nameLaunch(index);
}

/// "<=>" is one operator, though it comes as two tokens.
bool ExprTokens::endsSpaceship(std::size_t index) const {
    return index > 0 && tokens_[index].type == Cpp::tkGreater && tokens_[index - 1].type == Cpp::tkLessEqual &&
           gap(index).empty();
}

/// The "<<<" and ">>>" that start a function on a graphics processor are one mark each and belong to
/// the name in front, though they come as two tokens.
void ExprTokens::nameLaunch(std::size_t index) {
    if (index == 0 || !gap(index).empty()) return;
    const int before = kinds_[index - 1];
    const bool opens = before == Cpp::tkShiftLeft && kinds_[index] == Cpp::tkLess;
    const bool closes = launches_ && before == Cpp::tkShiftRight && kinds_[index] == Cpp::tkGreater;
    if (!opens && !closes) return;
    launches_ = opens;
    kinds_[index] = kinds_[index - 1] = Cpp::tkIdentifier;
}

/// A name that ends in "::" has the white space behind it in its range; here that is a gap.
void ExprTokens::trimName(Cpp::RawToken& token) const {
    while (token.end > token.begin && Cpp::isSpace(text_[token.end - 1])) --token.end;
}

/// "operator" and the token behind it are one name, with the second bracket of a pair. With arguments
/// or an index directly behind it, the word by itself is a name of a C program.
void ExprTokens::nameOperator(std::size_t index) {
    constexpr int kPunctuatorsBegin = Cpp::tkAssign;
    constexpr int kPunctuatorsEnd = Cpp::tkArrowStar + 1;
    if (index + 1 >= size()) return;
    const int kind = kinds_[index + 1];
    const bool isPair = kind == Cpp::tkOpenParen || kind == Cpp::tkOpenBracket;
    if (!isPair && kind != Cpp::tkComma && (kind < kPunctuatorsBegin || kind >= kPunctuatorsEnd)) return;
    if (isPair && (index + 2 >= size() || kinds_[index + 2] != kind + 1)) {
        kinds_[index] = Cpp::tkIdentifier;
        return;
    }
    kinds_[index] = kinds_[index + 1] = Cpp::tkIdentifier;
    if (isPair) kinds_[index + 2] = Cpp::tkIdentifier;
}

void ExprTokens::match() {
    openParens_.clear();
    openBraces_.clear();
    openBrackets_.clear();
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        switch (kinds_[i]) {
        case Cpp::tkOpenParen: openParens_.push_back(i); break;
        case Cpp::tkCloseParen: closeTop(openParens_, mates_, i); break;
        case Cpp::tkOpenBrace: openBraces_.push_back(i); break;
        case Cpp::tkCloseBrace: closeTop(openBraces_, mates_, i); break;
        case Cpp::tkOpenBracket: openBrackets_.push_back(i); break;
        case Cpp::tkCloseBracket: closeTop(openBrackets_, mates_, i); break;
        default: break;
        }
    }
}

void ExprTokens::matchAngles() {
    openAngles_.clear();
    foreignEnd_ = 0;
    int depth = 0;
    bool skipped = false; // behind a logical operator
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        const int kind = kinds_[i];
        if (kind == Cpp::tkLess) {
            // One that is not counted can still be the start of a count, one level lower.
            openAngles_.push_back({i, skipped ? depth - 1 : depth});
            if (!skipped) ++depth;
        } else if (kind == Cpp::tkGreater && !skipped) {
            closeAngles(i, --depth);
        } else if (kind == Cpp::tkShiftRight && !skipped && closesTwo(i)) {
            kinds_[i] = Cpp::tkGreater;
            depth -= 2;
            closeAngles(i, depth);
        } else if (!isTemplateArgument(kind)) {
            foreignEnd_ = i + 1;
        }
        skipped = !skipped && isLogical(kind);
    }
}

void ExprTokens::closeAngles(std::size_t index, int depth) {
    while (!openAngles_.empty() && openAngles_.back().target >= depth) {
        mates_[openAngles_.back().index] = index;
        openAngles_.pop_back();
    }
}

bool ExprTokens::closesTwo(std::size_t index) const {
    if (openAngles_.size() < 2) return false;
    const OpenAngle& inner = openAngles_[openAngles_.size() - 1];
    const OpenAngle& outer = openAngles_[openAngles_.size() - 2];
    // Nothing but arguments since the outer one, and something between the inner one and here.
    return foreignEnd_ <= outer.index && inner.target == outer.target + 1 && inner.index + 1 < index;
}

} // namespace Norvane
