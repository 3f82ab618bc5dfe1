#include "src/wrap/Norvane_WrapText.h"

#include "cpp/Cpp_Scanner.h"
#include "cpp/Cpp_Tokens.h"

#include <algorithm>

namespace Norvane {

using namespace Cpp;

namespace {

bool isNamedCast(int kind) {
    return kind >= tkStaticCast && kind <= tkReinterpretCast;
}

int openerOf(int close) {
    switch (close) {
    case tkCloseParen: return tkOpenParen;
    case tkCloseBrace: return tkOpenBrace;
    case tkCloseBracket: return tkOpenBracket;
    default: return tkEnd;
    }
}

} // namespace

/// Pairs the brackets of a text while its tokens go by, with the open ones on a stack.
class WrapText::Matcher {
public:
    explicit Matcher(WrapText& text) : text_(text) {}

    void take(std::uint32_t index);

private:
    void open(std::uint32_t index, int kind);
    void close(std::uint32_t index, int kind);
    void openAngle(std::uint32_t index);
    bool closeAngle(std::uint32_t index);
    void noteCode();
    void dropAngles(bool withCasts);
    void pair(std::uint32_t open, std::uint32_t close);
    bool angleOnTop() const { return !open_.empty() && open_.back().kind == tkLess; }

    WrapText& text_;
    std::vector<Open> open_;
    std::size_t parens_ = 0;
    std::size_t braces_ = 0;
    std::size_t squares_ = 0;
    int lastKind_ = tkEnd;
    bool castPending_ = false;
};

void WrapText::Matcher::take(std::uint32_t index) {
    const int kind = text_.tokens_[index].kind;
    switch (kind) {
    case tkOpenParen:
    case tkOpenBrace:
    case tkOpenBracket: open(index, kind); break;
    case tkCloseParen:
    case tkCloseBrace:
    case tkCloseBracket: close(index, kind); break;
    case tkLess: openAngle(index); break;
    case tkGreater: closeAngle(index); break;
    case tkShiftRight:
        if (closeAngle(index)) closeAngle(index);
        break;
    case tkSemicolon: noteCode(); break;
    case tkLogicalAnd:
    case tkLogicalOr: dropAngles(false); break;
    default:
        if (beginsControl(kind)) noteCode();
        break;
    }
    castPending_ = isNamedCast(kind) || (castPending_ && isComment(kind));
    if (!isCommentOrDirective(kind) && !text_.tokens_[index].junk) lastKind_ = kind;
}

/// At what stands in a statement alone.
void WrapText::Matcher::noteCode() {
    dropAngles(false);
    if (!open_.empty()) open_.back().isCode = open_.back().kind == tkOpenBrace;
}

void WrapText::Matcher::open(std::uint32_t index, int kind) {
    open_.push_back({index, kind, false});
    if (kind == tkOpenParen) ++parens_;
    if (kind == tkOpenBrace) ++braces_;
    if (kind == tkOpenBracket) ++squares_;
}

void WrapText::Matcher::close(std::uint32_t index, int kind) {
    dropAngles(true);
    if (open_.empty() || open_.back().kind != openerOf(kind)) return;
    const std::uint32_t opener = open_.back().index;
    text_.tokens_[opener].code = open_.back().isCode;
    open_.pop_back();
    pair(opener, index);
    if (kind == tkCloseParen && squares_ == 0) text_.parens_.add(opener, parens_);
    if (kind == tkCloseBrace) text_.braces_.add(opener, braces_);
    if (kind == tkCloseParen) --parens_;
    if (kind == tkCloseBrace) --braces_;
    if (kind == tkCloseBracket) --squares_;
}

void WrapText::Matcher::openAngle(std::uint32_t index) {
    const bool mayOpen = castPending_ || lastKind_ == tkIdentifier || angleOnTop();
    if (mayOpen) open_.push_back({index, tkLess, castPending_});
}

bool WrapText::Matcher::closeAngle(std::uint32_t index) {
    if (!angleOnTop()) return false;
    pair(open_.back().index, index);
    open_.pop_back();
    return true;
}

// The type of a named cast is no comparison, whatever stands in it.
void WrapText::Matcher::dropAngles(bool withCasts) {
    while (angleOnTop() && (withCasts || !open_.back().isCast)) open_.pop_back();
}

void WrapText::Matcher::pair(std::uint32_t open, std::uint32_t close) {
    text_.tokens_[open].mate = close;
    text_.tokens_[close].mate = open;
}

void WrapText::Depths::add(std::uint32_t bracket, std::size_t depth) {
    brackets_.push_back(bracket);
    depths_.push_back(static_cast<std::uint32_t>(depth));
}

// Brackets arrive in the order in which they close. Counting them by depth is one pass, and those
// of one depth do not nest, so they are in order already.
void WrapText::Depths::sort() {
    std::uint32_t deepest = 0;
    for (const std::uint32_t depth : depths_) deepest = std::max(deepest, depth);
    starts_.assign(deepest + 2, 0);
    for (const std::uint32_t depth : depths_) ++starts_[depth + 1];
    for (std::size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
    std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
    std::vector<std::uint32_t> sorted(brackets_.size());
    for (std::size_t i = 0; i < brackets_.size(); ++i) sorted[next[depths_[i]]++] = brackets_[i];
    brackets_.swap(sorted);
    depths_.clear();
}

std::span<const std::uint32_t> WrapText::Depths::at(std::size_t depth) const {
    if (depth + 1 >= starts_.size()) return {};
    return std::span(brackets_).subspan(starts_[depth], starts_[depth + 1] - starts_[depth]);
}

WrapText::WrapText(std::string_view text, Brackets brackets) : text_(text) {
    split();
    if (brackets == Brackets::kMatched) matchBrackets();
}

void WrapText::matchBrackets() {
    Matcher matcher(*this);
    std::uint32_t lastParen = kNone;
    for (std::uint32_t i = 0; i + 1 < tokens_.size(); ++i) {
        tokens_[i].lastParen = lastParen;
        if (tokens_[i].kind == tkOpenParen) lastParen = i;
        matcher.take(i);
    }
    tokens_.back().lastParen = lastParen;
    markCode();
    parens_.sort();
    braces_.sort();
}

/// So far the mark stands at the braces alone.
void WrapText::markCode() {
    std::uint32_t end = 0;
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        const bool opens = tokens_[i].code;
        tokens_[i].code = i < end;
        if (opens && i >= end) end = tokens_[i].mate + 1;
    }
}

int WrapText::endKind() {
    return tkEnd;
}

void WrapText::split() {
    tokens_.reserve(text_.size() / 4 + 2);
    Scanner scanner(text_);
    RawToken raw;
    std::size_t at = 0;
    while (scanner.next(raw)) {
        addJunk(at, raw.begin);
        if (raw.end > raw.begin) addToken(raw.begin, raw.end, raw.type, false);
        at = std::max<std::size_t>(at, raw.end);
    }
    addJunk(at, text_.size());
    addToken(text_.size(), text_.size(), 0, false);
}

void WrapText::addJunk(std::size_t begin, std::size_t end) {
    while (begin < end && isSpace(text_[begin])) ++begin;
    while (end > begin && isSpace(text_[end - 1])) --end;
    if (begin < end) addToken(begin, end, tkInvalid, true);
}

void WrapText::addToken(std::size_t begin, std::size_t end, std::uint8_t kind, bool junk) {
    Token token;
    token.begin = static_cast<std::uint32_t>(begin);
    token.end = static_cast<std::uint32_t>(end);
    token.kind = kind;
    token.junk = junk;
    tokens_.push_back(token);
}

std::string_view WrapText::token(std::size_t index) const {
    return text_.substr(tokens_[index].begin, tokens_[index].end - tokens_[index].begin);
}

std::string_view WrapText::gap(std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : tokens_[index - 1].end;
    return text_.substr(begin, tokens_[index].begin - begin);
}

std::size_t WrapText::mate(std::size_t index) const {
    const std::uint32_t mate = tokens_[index].mate;
    return mate == kNone ? npos : mate;
}

bool WrapText::opens(std::size_t index) const {
    const int kind = tokens_[index].kind;
    return kind == tkOpenParen || kind == tkOpenBrace || kind == tkOpenBracket ||
           (kind == tkLess && mate(index) != npos);
}

bool WrapText::closes(std::size_t index) const {
    const int kind = tokens_[index].kind;
    return kind == tkCloseParen || kind == tkCloseBrace || kind == tkCloseBracket ||
           ((kind == tkGreater || kind == tkShiftRight) && mate(index) != npos);
}

std::size_t WrapText::lastParenBefore(std::size_t index) const {
    const std::uint32_t paren = tokens_[index].lastParen;
    return paren == kNone ? npos : paren;
}

} // namespace Norvane
