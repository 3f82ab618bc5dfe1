#include "streams/Zelmar_ITextDocBuf.h"

#include <algorithm>

namespace Zelmar {

namespace {

constexpr std::size_t kHistoryLength = 4;

} // namespace

ITextDocBuf::ITextDocBuf(std::streambuf* source, int wsMode, int tabSize, int startLine, int startColumn)
    : lineBuf_(source, LineBuf::kLf), wsMode_(wsMode), tabSize_(std::max(tabSize, 1)),
      startLine_(std::max(startLine, 1)), startColumn_(std::max(startColumn, 0)), line_(startLine_),
      column_(startColumn_), columnHistory_(kHistoryLength, -1) {}

ITextDocBuf::int_type ITextDocBuf::underflow() {
    if (traits_type::eq_int_type(peeked_, traits_type::eof())) peeked_ = lineBuf_.sbumpc();
    return peeked_;
}

ITextDocBuf::int_type ITextDocBuf::uflow() {
    const int_type c = underflow();
    if (traits_type::eq_int_type(c, traits_type::eof())) return c;
    peeked_ = traits_type::eof();
    underflow();
    advance(traits_type::to_char_type(c));
    return c;
}

void ITextDocBuf::advance(char c) {
    columnHistory_.pop_front();
    columnHistory_.push_back(column_);
    if (c == '\n') {
        ++line_;
        column_ = 0;
    } else {
        ++column_;
    }
}

ITextDocBuf::int_type ITextDocBuf::pbackfail(int_type c) {
    if (line_ == startLine_ && column_ == startColumn_) return traits_type::eof();
    const int line = line_;
    const int column = column_;
    const std::deque<int> history = columnHistory_;
    stepBackPosition();
    const int_type result = putBackChar(c);
    if (traits_type::eq_int_type(result, traits_type::eof())) {
        line_ = line;
        column_ = column;
        columnHistory_ = history;
    }
    return result;
}

void ITextDocBuf::stepBackPosition() {
    if (column_ == 0) {
        --line_;
        column_ = columnHistory_.back();
    } else if (column_ > 0) {
        --column_;
    }
    columnHistory_.push_front(-1);
    columnHistory_.pop_back();
}

ITextDocBuf::int_type ITextDocBuf::putBackChar(int_type c) {
    const bool isUnget = traits_type::eq_int_type(c, traits_type::eof());
    if (traits_type::eq_int_type(peeked_, traits_type::eof())) {
        return isUnget ? lineBuf_.sungetc() : lineBuf_.sputbackc(traits_type::to_char_type(c));
    }
    if (isUnget) return ungetPastPeeked();
    if (traits_type::eq_int_type(lineBuf_.sungetc(), traits_type::eof())) return traits_type::eof();
    peeked_ = c;
    return c;
}

// The character looked ahead at is taken from the buffer below already, so it goes back first.
ITextDocBuf::int_type ITextDocBuf::ungetPastPeeked() {
    if (traits_type::eq_int_type(lineBuf_.sungetc(), traits_type::eof())) return traits_type::eof();
    if (traits_type::eq_int_type(lineBuf_.sungetc(), traits_type::eof())) {
        lineBuf_.sbumpc();
        return traits_type::eof();
    }
    peeked_ = lineBuf_.sbumpc();
    return peeked_;
}

} // namespace Zelmar
