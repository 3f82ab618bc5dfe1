#ifndef KERFLINE_NORVANEUI_SCHEMECONVERSION_H
#define KERFLINE_NORVANEUI_SCHEMECONVERSION_H

#include "schemes/NorvaneUI_PropertySetStore.h"

#include <string>
#include <string_view>

namespace NorvaneUI {

/// Present in every scheme that needs no conversion, whatever its value.
inline constexpr std::string_view kVersionKey = "KERFLINE_VERSION";
inline constexpr std::string_view kCurrentVersion = "1.2.1";

/// Brings every scheme of `store` that has no version key up to the current version, and writes
/// the store if there was one. Read-only schemes stay as they are, on the disk and in memory.
/// Returns the message that tells the user about those; empty if there were none. A WriteError
/// passes through: the schemes are converted in memory then.
std::string convertSchemes(PropertySetStore& store);

/// Converts one scheme, whether it is an old one or not.
void convertScheme(Norvane::PropertySet& scheme);

} // namespace NorvaneUI

#endif
