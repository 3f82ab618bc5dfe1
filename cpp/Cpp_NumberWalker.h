#ifndef KERFLINE_CPP_NUMBERWALKER_H
#define KERFLINE_CPP_NUMBERWALKER_H

#include "cpp/Cpp_CharClass.h"

#include <cstddef>
#include <string_view>

namespace Cpp {

/// Finds the end of the number that starts with the digit at `begin`: digits, at most one dot and
/// one exponent, suffixes, and apostrophes between two digits.
class NumberWalker {
public:
    NumberWalker(std::string_view text, std::size_t begin)
        : text_(text), at_(begin), hex_(text[begin] == '0' && Chars::lower(peek(1)) == 'x') {
        at_ += hex_ ? 2 : 1;
    }

    std::size_t findEnd() {
        while (takePart()) {
        }
        return at_;
    }

private:
    char peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
    bool isNumeral(char c) const { return hex_ ? Chars::isHexDigit(c) : Chars::isDigit(c); }
    bool isSeparator() const { return peek() == '\'' && isNumeral(text_[at_ - 1]) && isNumeral(peek(1)); }

    bool takePart() {
        const char c = Chars::lower(peek());
        if (isNumeral(c) || isSeparator()) return take();
        if (c == '.') return takeOnce(dot_);
        if (c == 'e') return takeOnce(exponent_) && takeSign();
        // The sign in 0x1p-3 is no operator.
        if (c == 'p' && hex_) return takeOnce(exponent_) && takeSign();
        if ((c == 'u' || c == 'l') && !dot_ && !exponent_) return takeRunOf('u', 'l');
        return (c == 'l' || c == 'f') && takeRunOf('l', 'f');
    }

    bool take() {
        ++at_;
        return true;
    }

    bool takeOnce(bool& taken) {
        if (taken) return false;
        taken = true;
        return take();
    }

    bool takeSign() {
        if (peek() == '+' || peek() == '-') ++at_;
        return true;
    }

    bool takeRunOf(char a, char b) {
        while (Chars::lower(peek()) == a || Chars::lower(peek()) == b) ++at_;
        return true;
    }

    std::string_view text_;
    std::size_t at_;
    bool hex_;
    bool dot_ = false;
    bool exponent_ = false;
};

} // namespace Cpp

#endif
