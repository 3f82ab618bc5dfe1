#ifndef KERFLINE_CPP_NUMBERWALKER_H
#define KERFLINE_CPP_NUMBERWALKER_H

#include "cpp/Cpp_CharClass.h"
#include "cpp/Cpp_WordParts.h"

#include <cstddef>
#include <string_view>

namespace Cpp {

/// Finds the end of the number that starts at `begin` with a digit, or with a dot and a digit. As to a
/// preprocessor, letters, digits and dots all belong to it, a sign behind the letter of an exponent,
/// and an apostrophe in front of a letter or digit. So every suffix is in it, whoever has defined it.
class NumberWalker {
public:
    NumberWalker(std::string_view text, std::size_t begin) : text_(text), at_(begin + 1) {}

    std::size_t findEnd() {
        do {
            while (at_ < text_.size() && isPlain(text_[at_])) ++at_;
        } while (takeAt(at_) || takeRare());
        return at_;
    }

private:
    static bool isPlain(char c) { return Chars::kWordChars[Chars::index(c)] || c == '.'; }

    // Takes what stands at `next`, be it behind joined line ends, and whatever it brings along.
    bool takeAt(std::size_t next) {
        if (next >= text_.size()) return false;
        const char c = text_[next];
        bool taken = isPlain(c);
        if (c == '\'') {
            next = Chars::behindSplices(text_, next + 1);
            taken = next < text_.size() && Chars::kWordChars[Chars::index(text_[next])];
        } else if (c == '+' || c == '-') {
            taken = endsInExponent();
        }
        if (taken) at_ = next + 1;
        return taken;
    }

    bool endsInExponent() const {
        const char before = Chars::lower(text_[at_ - 1]);
        return before == 'e' || before == 'p';
    }

    // Joined line ends within the number, or a letter that is spelled by its code.
    bool takeRare() {
        const std::size_t next = Chars::behindSplices(text_, at_);
        if (next > at_ && takeAt(next)) return true;
        const std::size_t length = namedCharLength(text_, next);
        if (length > 0) at_ = next + length;
        return length > 0;
    }

    std::string_view text_;
    std::size_t at_;
};

} // namespace Cpp

#endif
