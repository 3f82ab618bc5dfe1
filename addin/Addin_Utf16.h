#ifndef KERFLINE_ADDIN_UTF16_H
#define KERFLINE_ADDIN_UTF16_H

#include <optional>
#include <string>
#include <string_view>

namespace Addin {

enum class Utf16Order { little, big };

/// The order that a byte order mark at the start of `bytes` tells; none without such a mark, and none
/// for that of UTF-32.
std::optional<Utf16Order> utf16OrderOf(std::string_view bytes);
/// True if `bytes` start with a byte order mark of UTF-32. One of the two starts like that of UTF-16.
bool isMarkedUtf32(std::string_view bytes);

/// The text of `bytes`, which hold no mark, in UTF-8. None if they are ill-formed: half a character, or
/// one half of a surrogate pair.
std::optional<std::string> fromUtf16(std::string_view bytes, Utf16Order order);
/// The bytes, without a mark, for `text`. Requires: it is well-formed UTF-8.
std::string toUtf16(std::string_view text, Utf16Order order);

} // namespace Addin

#endif
