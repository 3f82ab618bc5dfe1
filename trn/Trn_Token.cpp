#include "trn/Trn_Token.h"

#include "trn/Trn_Exception.h"

#include <utility>

namespace Trn {

Token::Token(std::int32_t type, const Position& start, const Position& end, const std::string& text,
             ValueType valueType, std::int32_t scalar)
    : type_(type), start_(start), end_(end), text_(text), valueType_(valueType), scalar_(scalar) {}

Token::Token(std::int32_t type, const Position& start, const Position& end)
    : type_(type), start_(start), end_(end) {}

Token::Token(std::int32_t type, const Position& start, const Position& end, const std::string& text)
    : Token(type, start, end, text, kNoValue, 0) {}

Token::Token(std::int32_t type, const Position& start, const Position& end, const std::string& text, int value)
    : Token(type, start, end, text, kInt, value) {}

Token::Token(std::int32_t type, const Position& start, const Position& end, const std::string& text, long value)
    : Token(type, start, end, text, kLong, static_cast<std::int32_t>(value)) {}

Token::Token(std::int32_t type, const Position& start, const Position& end, const std::string& text, char value)
    : Token(type, start, end, text, kChar, value) {}

Token::Token(std::int32_t type, const Position& start, const Position& end, const std::string& text,
             const std::string& value)
    : Token(type, start, end, text, kString, 0) {
    string_ = std::make_unique<std::string>(value);
}

Token::Token(const Token& other)
    : type_(other.type_), start_(other.start_), end_(other.end_), text_(other.text_),
      valueType_(other.valueType_), scalar_(other.scalar_),
      string_(other.string_ ? std::make_unique<std::string>(*other.string_) : nullptr) {}

Token& Token::operator=(Token other) noexcept {
    swap(other);
    return *this;
}

void Token::swap(Token& other) noexcept {
    std::swap(type_, other.type_);
    std::swap(start_, other.start_);
    std::swap(end_, other.end_);
    text_.swap(other.text_);
    std::swap(valueType_, other.valueType_);
    std::swap(scalar_, other.scalar_);
    string_.swap(other.string_);
}

void Token::requireValueType(ValueType expected) const {
    if (valueType_ != expected) throw InvalidValueType();
}

void Token::value(char& out) const {
    requireValueType(kChar);
    out = static_cast<char>(scalar_);
}

void Token::value(short& out) const {
    requireValueType(kShort);
    out = static_cast<short>(scalar_);
}

void Token::value(unsigned short& out) const {
    requireValueType(kUnsignedShort);
    out = static_cast<unsigned short>(scalar_);
}

void Token::value(int& out) const {
    requireValueType(kInt);
    out = scalar_;
}

void Token::value(unsigned int& out) const {
    requireValueType(kUnsignedInt);
    out = static_cast<unsigned int>(scalar_);
}

void Token::value(long& out) const {
    requireValueType(kLong);
    out = scalar_;
}

void Token::value(unsigned long& out) const {
    requireValueType(kUnsignedLong);
    out = static_cast<std::uint32_t>(scalar_);
}

void Token::value(std::string& out) const {
    requireValueType(kString);
    // A token that was moved from has lost its string, but not its kind.
    out = string_ ? *string_ : std::string();
}

bool operator==(const Token& a, const Token& b) {
    if (a.type_ != b.type_ || a.start_ != b.start_ || a.end_ != b.end_) return false;
    if (a.text_ != b.text_ || a.valueType_ != b.valueType_) return false;
    if (!a.string_ || !b.string_) return a.string_ == b.string_;
    return *a.string_ == *b.string_;
}

} // namespace Trn
