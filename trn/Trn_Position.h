#ifndef KERFLINE_TRN_POSITION_H
#define KERFLINE_TRN_POSITION_H

#include <cstdint>

namespace Trn {

/// The place of one character of a text.
///
/// Lines count from 1. The column is the one that a reader stands in right after it has
/// taken the character: the n-th character of line L is at (L, n), and the line feed that
/// ends line L is at (L + 1, 0). So positions grow strictly with the text, and comparing
/// them as pairs compares places. A tab is one column wide. Both fields zero: no place.
struct Position {
    std::uint32_t line = 0;
    std::uint32_t column = 0;

    /// True if this is no place at all. (2, 0) is a place: the end of line 1.
    constexpr bool isNone() const { return line == 0 && column == 0; }
};

constexpr bool operator==(const Position& a, const Position& b) {
    return a.line == b.line && a.column == b.column;
}
constexpr bool operator!=(const Position& a, const Position& b) { return !(a == b); }
constexpr bool operator<(const Position& a, const Position& b) {
    return a.line < b.line || (a.line == b.line && a.column < b.column);
}
constexpr bool operator<=(const Position& a, const Position& b) { return !(b < a); }

} // namespace Trn

#endif
