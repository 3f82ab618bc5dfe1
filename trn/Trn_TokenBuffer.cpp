#include "trn/Trn_TokenBuffer.h"

#include "trn/Trn_Lexer.h"

#include <utility>

namespace Trn {

Token TokenBuffer::takeFromLexer() {
    if (ahead_.empty()) return lexer_->nextToken();
    Token token = std::move(ahead_.front());
    ahead_.pop_front();
    return token;
}

void TokenBuffer::refill() {
    if (lexer_ == nullptr) {
        index_ = kDry;
        return;
    }
    if (window_.empty()) {
        for (std::size_t i = 0; i < kWindowSize; ++i) window_.push_back(takeFromLexer());
        index_ = 0;
        return;
    }
    // A parser that learns one token too late that it is in the wrong place steps back over this
    // refill, so the last tokens stay in front of the new ones.
    const std::size_t size = window_.size();
    for (std::size_t i = 0; i < kKept; ++i) window_[i] = window_[size - kKept + i];
    for (std::size_t i = kKept; i < size; ++i) window_[i] = takeFromLexer();
    index_ = kKept;
}

void TokenBuffer::refillIfUsedUp() {
    if (window_.empty() || index_ == window_.size()) refill();
}

Token TokenBuffer::next() {
    refillIfUsedUp();
    if (index_ == kDry) return Token();
    return window_[index_++];
}

Token TokenBuffer::peek(std::size_t n) {
    if (index_ == kDry) return Token();
    const std::size_t inWindow = window_.size() - index_;
    if (n <= inWindow) return window_[index_ + n - 1];
    if (lexer_ == nullptr) return Token();
    // Refilling here instead would push tokens out of the window that a caller may still step
    // back to, so what lies beyond it waits aside.
    const std::size_t wanted = n - inWindow;
    while (ahead_.size() < wanted) ahead_.push_back(lexer_->nextToken());
    return ahead_[wanted - 1];
}

bool TokenBuffer::canStepBack() const { return !window_.empty() && index_ > 0; }

void TokenBuffer::stepBack() {
    if (!canStepBack()) return;
    index_ = index_ == kDry ? static_cast<std::uint32_t>(window_.size() - 1) : index_ - 1;
}

void TokenBuffer::putBack(const Token& token) {
    if (!canStepBack()) return;
    stepBack();
    window_[index_] = token;
}

} // namespace Trn
