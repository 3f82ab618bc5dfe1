#ifndef KERFLINE_TRN_TOKEN_H
#define KERFLINE_TRN_TOKEN_H

#include "trn/Trn_Position.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Trn {

/// One token of a text: its number as the language layer defines it, its inclusive extent, its
/// spelling and, for some, a value. Type -1 means that there is no token, which is also what the
/// end of the input reads as.
class Token {
public:
    /// Which kind of value a token holds. Only some of the kinds are ever built; the numbers are
    /// part of the interface.
    enum ValueType : std::int32_t {
        kNoValue = 0,
        kChar = 1,
        kShort = 3,
        kUnsignedShort = 4,
        kInt = 5,
        kUnsignedInt = 6,
        kLong = 7,
        kUnsignedLong = 8,
        kString = 9,
    };

    /// No token, at no place.
    Token() = default;
    Token(std::int32_t type, const Position& start, const Position& end);
    Token(std::int32_t type, const Position& start, const Position& end, const std::string& text);
    Token(std::int32_t type, const Position& start, const Position& end, const std::string& text, int value);
    /// Values of this kind are kept in 32 bits as well.
    Token(std::int32_t type, const Position& start, const Position& end, const std::string& text, long value);
    Token(std::int32_t type, const Position& start, const Position& end, const std::string& text, char value);
    Token(std::int32_t type, const Position& start, const Position& end, const std::string& text,
          const std::string& value);

    Token(const Token& other);
    Token(Token&& other) noexcept = default;
    Token& operator=(Token other) noexcept;
    ~Token() = default;

    void swap(Token& other) noexcept;

    std::int32_t type() const { return type_; }
    Position start() const { return start_; }
    Position end() const { return end_; }
    std::string text() const { return text_; }
    std::int32_t valueType() const { return valueType_; }

    /// Each stores the value in `out`, or throws InvalidValueType if the token holds another kind.
    void value(char& out) const;
    void value(short& out) const;
    void value(unsigned short& out) const;
    void value(int& out) const;
    void value(unsigned int& out) const;
    void value(long& out) const;
    void value(unsigned long& out) const;
    void value(std::string& out) const;

    /// Compares all fields and string values. Scalar values are left out: the text tells them.
    friend bool operator==(const Token& a, const Token& b);
    friend bool operator!=(const Token& a, const Token& b) { return !(a == b); }

private:
    Token(std::int32_t type, const Position& start, const Position& end, const std::string& text,
          ValueType valueType, std::int32_t scalar);
    void requireValueType(ValueType expected) const;

    std::int32_t type_ = -1;
    Position start_;
    Position end_;
    std::string text_;
    ValueType valueType_ = kNoValue;
    std::int32_t scalar_ = 0;
    // On the heap, since few tokens have one and tokens are copied a lot.
    std::unique_ptr<std::string> string_;
};

} // namespace Trn

#endif
