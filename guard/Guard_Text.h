#ifndef KERFLINE_GUARD_TEXT_H
#define KERFLINE_GUARD_TEXT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Guard {

/// What a byte can start. A letter is whatever can start a name: "_", "$" and all bytes from 0x80 too. What is
/// always a token of its own, stray bytes among it, is single.
enum class Class : std::uint8_t { single, blank, letter, digit, quote, apostrophe, slash, dot, backslash, mark };

constexpr std::array<Class, 256> makeClasses() {
    std::array<Class, 256> classes{};
    const auto set = [&classes](std::string_view chars, Class value) {
        for (const char c : chars) classes[static_cast<unsigned char>(c)] = value;
    };
    set(" \t\v\f\r", Class::blank);
    set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_$", Class::letter);
    for (std::size_t c = 0x80; c < classes.size(); ++c) classes[c] = Class::letter;
    set("0123456789", Class::digit);
    set("\"", Class::quote);
    set("'", Class::apostrophe);
    set("/", Class::slash);
    set(".", Class::dot);
    set("\\", Class::backslash);
    set("[(:?!+-*%^&|=<>#", Class::mark);
    return classes;
}
inline constexpr std::array<Class, 256> kClasses = makeClasses();

constexpr Class classOf(char c) { return kClasses[static_cast<unsigned char>(c)]; }
constexpr bool isBlank(char c) { return classOf(c) == Class::blank; }
constexpr bool isWhite(char c) { return isBlank(c) || c == '\n'; }
constexpr bool isDigit(char c) { return classOf(c) == Class::digit; }
constexpr bool isLetter(char c) { return classOf(c) == Class::letter; }
constexpr bool isWordChar(char c) { return isLetter(c) || isDigit(c); }

/// A text as the lines that a file holds and, at the same time, as the lines that a compiler reads: those
/// with every splice taken out. A splice is a backslash at the end of a line together with its line feed;
/// blanks may stand between the two, as compilers have it.
///
/// Offsets count bytes of the file from 0. Reading past the end gives '\0'.
class Text {
public:
    explicit Text(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    std::string_view bytes() const { return bytes_; }
    std::string_view range(std::size_t begin, std::size_t end) const { return bytes_.substr(begin, end - begin); }
    char at(std::size_t offset) const { return offset < bytes_.size() ? bytes_[offset] : '\0'; }

    /// Offset of the line feed at or behind `offset`, or the size of the text.
    std::size_t findFeed(std::size_t offset) const {
        const std::size_t feed = bytes_.find('\n', offset);
        return feed == std::string_view::npos ? bytes_.size() : feed;
    }

    /// Offset behind the splice that starts at `offset`, or `offset` if none does.
    std::size_t pastSplice(std::size_t offset) const {
        if (at(offset) != '\\') return offset;
        std::size_t end = offset + 1;
        while (isBlank(at(end))) ++end;
        return at(end) == '\n' ? end + 1 : offset;
    }

    /// Offset of the next character that a compiler sees at or behind `offset`.
    std::size_t visible(std::size_t offset) const { return at(offset) == '\\' ? pastSplices(offset) : offset; }

private:
    std::size_t pastSplices(std::size_t offset) const {
        std::size_t end = pastSplice(offset);
        while (end != offset) {
            offset = end;
            end = pastSplice(offset);
        }
        return end;
    }

    std::string_view bytes_;
};

} // namespace Guard

#endif
