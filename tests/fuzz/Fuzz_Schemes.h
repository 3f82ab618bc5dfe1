#ifndef KERFLINE_TESTS_FUZZ_SCHEMES_H
#define KERFLINE_TESTS_FUZZ_SCHEMES_H

#include "src/scheme/Norvane_PropertySet.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace Fuzz {

/// The schemes that come with the program; the first one is the empty scheme.
std::span<const Norvane::PropertySet> baseSchemes();

/// The options that change a result, in the order of the catalogue.
std::span<const std::string_view> options();

/// Gives the option its value of number `choice`, which counts on from the first again behind the last.
void setOption(Norvane::PropertySet& scheme, std::string_view option, std::uint8_t choice);

/// The choice that gives `option` the value that it has in `scheme`. Nothing if none does.
std::optional<std::uint8_t> choiceOf(const Norvane::PropertySet& scheme, std::string_view option);

} // namespace Fuzz

#endif
