#ifndef KERFLINE_NORVANEUI_SCHEMECHECKER_H
#define KERFLINE_NORVANEUI_SCHEMECHECKER_H

#include "src/scheme/Norvane_PropertySet.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// Something in a scheme that would not do what its author thinks. Lines and columns from 1.
struct SchemeProblem {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    std::string text;
    /// The value is of the right kind but probably a slip; it is taken as it stands.
    bool isWarning = false;
};

/// Lists what is wrong with the text of a scheme file. The engine skips or keeps such lines without
/// a word; a person who typed a name wrong wants to hear of it. Without an error, a property set reads
/// the text as it stands.
std::vector<SchemeProblem> checkSchemeText(std::string_view text);

/// Checks one line such as `3 WS_AFTER_CS_KEY " "`, and puts its value into `scheme` unless
/// that is an error.
std::optional<SchemeProblem> readRecord(std::string_view line, Norvane::PropertySet& scheme);

/// "unknown option "X"; did you mean "Y"?", or what to do about a name of older versions.
std::string unknownOptionText(std::string_view name);

} // namespace NorvaneUI

#endif
