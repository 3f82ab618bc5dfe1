#ifndef KERFLINE_NORVANEUI_TEXT_H
#define KERFLINE_NORVANEUI_TEXT_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace NorvaneUI {

/// Puts each value in the place of the next "%s" of `format`. A "%s" inside a value is text like
/// any other, and so is one of `format` that no value is left for.
///     filled("%s: %s", {"100%s", "b"}) == "100%s: b"
std::string filled(std::string_view format, std::initializer_list<std::string_view> values);

} // namespace NorvaneUI

#endif
