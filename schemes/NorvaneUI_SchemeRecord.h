#ifndef KERFLINE_NORVANEUI_SCHEMERECORD_H
#define KERFLINE_NORVANEUI_SCHEMERECORD_H

#include "src/scheme/Norvane_PropertySet.h"

#include <string>
#include <string_view>

namespace NorvaneUI {

/// The parts of one line of a scheme file, as views of it. What is missing is empty, at the place
/// where it would stand.
struct SchemeRecord {
    std::string_view typeCode;
    std::string_view name;
    /// A word, or a text with its quotes.
    std::string_view value;
    /// Behind the value: nothing, a comment, or something that does not belong there.
    std::string_view rest;
};

SchemeRecord splitRecord(std::string_view line);

/// What the line says, as the engine itself reads it: a set of one value, or of none.
Norvane::PropertySet readAlone(std::string_view line);

/// A value of a record as it stands in a file: that of the only value in `one`.
std::string valueText(const Norvane::PropertySet& one);

/// Without the white space at both ends.
std::string_view trimmedLine(std::string_view line);
/// False for blank lines and comments.
bool isSchemeLine(std::string_view trimmed);

inline constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
std::string_view withoutByteOrderMark(std::string_view text);

} // namespace NorvaneUI

#endif
