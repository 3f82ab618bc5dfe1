#ifndef KERFLINE_NORVANEUI_SCHEMENAME_H
#define KERFLINE_NORVANEUI_SCHEMENAME_H

#include "schemes/NorvaneUI_PropertySetStore.h"

#include <string>
#include <string_view>

namespace NorvaneUI {

/// Shown in lists for an action that does not format.
inline constexpr std::string_view kNoFormatting = "<No Formatting>";

/// What is wrong with `name` for a scheme that a user wants to add to `store`, in a sentence;
/// empty if nothing is. The store itself takes every name, but some are lost on the disk: their
/// file is not found again, or cannot be read back.
std::string schemeNameFault(const PropertySetStore& store, const std::string& name);

} // namespace NorvaneUI

#endif
