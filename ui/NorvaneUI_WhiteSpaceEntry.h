#ifndef KERFLINE_NORVANEUI_WHITESPACEENTRY_H
#define KERFLINE_NORVANEUI_WHITESPACEENTRY_H

#include <string>
#include <string_view>

namespace NorvaneUI {

/// White space as a user types it: \n \r \s \t for newline, carriage return, space and tab. A
/// backslash in front of anything else, and one at the end, does not count.
///     decodeWhiteSpace("\\n\\s") == "\n "
std::string decodeWhiteSpace(std::string_view typed);

/// How a value is shown in a field. Decoding it gives the value back, whatever it holds.
std::string encodeWhiteSpace(std::string_view value);

/// True for an empty value too.
bool isWhiteSpaceOnly(std::string_view value);

} // namespace NorvaneUI

#endif
