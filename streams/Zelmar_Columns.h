#ifndef KERFLINE_ZELMAR_COLUMNS_H
#define KERFLINE_ZELMAR_COLUMNS_H

#include "trn/Trn_Position.h"

#include <string>
#include <string_view>

namespace Zelmar {

/// White space as the C library's isspace sees it in the "C" locale, whatever the locale is.
constexpr bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// How white space is converted on the way out.
enum WsMode { kWsKeep = 0, kWsTabsToSpaces = 1, kWsSpacesToTabs = 2 };
constexpr bool isWsMode(int wsMode) { return wsMode >= kWsKeep && wsMode <= kWsSpacesToTabs; }

/// Returns the column reached after writing `text` from `startColumn` on.
/// Columns count from 0. A tab runs to the next multiple of `tabSize`; every other character
/// is one column wide, a line feed too, so pass one line at a time.
/// With `tabSize` below 1 or a negative `startColumn` returns the length of `text`.
///     textColumn("a\tb", 0, 4) == 5        textColumn("\t", 3, 4) == 4
int textColumn(std::string_view text, int startColumn, int tabSize);

/// Returns the column at which `text` starts if it ends at `endColumn`: walks back over `text`,
/// taking the width of each character off while the column is above 0. Never below 0.
/// Returns 0 for a `tabSize` below 1 or an `endColumn` that is not above 0.
int textColumnBack(std::string_view text, int endColumn, int tabSize);

/// Returns `value` rounded up to a multiple of `base`; 0 stays 0. A `base` below 1 rounds nothing.
int roundUpToMultiple(int value, int base);

/// True if `value` is a multiple of `base`. 0 is one of everything, and with a `base` below 1
/// every value is.
bool isMultipleOf(int value, int base);

/// Returns the distance in columns from `from` to `to`, or 0 if they stand on different lines.
int columnsBetween(const Trn::Position& from, const Trn::Position& to);

/// Returns the white space that fills `width` columns for a stream with the given indent, white
/// space mode and tab size. Where `width` reaches beyond the indent the indent is its first part.
///
/// In mode 2 a width that lies behind the indent but in front of the next tab stop gives the
/// indent alone: the result then falls short of `width`, and callers rely on it.
std::string makeIndent(std::string_view indent, int wsMode, int tabSize, int width);

} // namespace Zelmar

#endif
