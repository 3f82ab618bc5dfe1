#ifndef KERFLINE_NORVANEUI_SCHEMECONVERSION_H
#define KERFLINE_NORVANEUI_SCHEMECONVERSION_H

#include "schemes/NorvaneUI_PropertySetStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// Present in every scheme that needs no conversion, whatever its value.
inline constexpr std::string_view kVersionKey = "KERFLINE_VERSION";
inline constexpr std::string_view kCurrentVersion = "1.2.1";

/// True for a name that an option had in older versions only.
bool isOlderName(std::string_view name);

/// True for a scheme of an older version: it has no version key, and an option under an older name.
/// One without either was written by hand, with the names of today.
bool isOldScheme(const Norvane::PropertySet& scheme);

struct ConvertedScheme {
    std::string name;
    /// The file as it was before, beside that of the scheme, with its path.
    std::string copy;
};

/// Brings every old scheme of `store` up to the current version, and writes the store if there was
/// one; a copy of each file is made first. `converted` gets them. Read-only schemes stay as they are,
/// on the disk and in memory. Returns the message that tells the user about those; empty if there
/// were none. A WriteError passes through: the schemes are converted in memory then, and no file is
/// that has no copy.
std::string convertSchemes(PropertySetStore& store, std::vector<ConvertedScheme>& converted);

/// What to tell the user about those that were converted, a line for each.
std::string convertedText(const ConvertedScheme& scheme);

/// Converts one scheme, whether it is an old one or not.
void convertScheme(Norvane::PropertySet& scheme);

} // namespace NorvaneUI

#endif
