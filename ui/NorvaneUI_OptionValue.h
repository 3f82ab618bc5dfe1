#ifndef KERFLINE_NORVANEUI_OPTIONVALUE_H
#define KERFLINE_NORVANEUI_OPTIONVALUE_H

#include "src/scheme/Norvane_PropertySet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace NorvaneUI {

/// What a scheme says about one option; the first alternative: nothing.
using OptionValue = std::variant<std::monostate, bool, std::int32_t, std::string>;

/// The value of the kind that the passes read. A value of another kind under the same name is not
/// seen, and not touched either when the option is stored.
OptionValue readOption(const Norvane::PropertySet& scheme, std::string_view option);

/// Requires: `value` is of the kind of the option, or says nothing.
void storeOption(Norvane::PropertySet& scheme, std::string_view option, const OptionValue& value);

/// The same values under another name.
Norvane::PropertySet renamedScheme(const Norvane::PropertySet& scheme, const std::string& name);

} // namespace NorvaneUI

#endif
