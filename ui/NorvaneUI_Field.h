#ifndef KERFLINE_NORVANEUI_FIELD_H
#define KERFLINE_NORVANEUI_FIELD_H

#include "src/scheme/Norvane_PropertyCatalogue.h"
#include "ui/NorvaneUI_OptionValue.h"
#include "ui/NorvaneUI_PageTable.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace NorvaneUI {

/// What a window shows of one option: everything to draw its control from.
struct Field {
    // Fixed.
    std::string_view option;
    ControlKind kind = ControlKind::WhiteSpace;
    std::string_view label;
    std::string_view explanation;
    /// The values to choose from. Only for Choice.
    std::span<const Norvane::PropertyChoice> choices;
    /// Both ends included. Only for Number and CountAndKind.
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    /// What it begins with when it gets a value. Only for Number.
    std::int32_t first = 0;

    // The value. Those that do not belong to `kind`, or whose option is not set, are empty, 0, false.
    /// The scheme says something of the option. Without it, the source decides: that is different
    /// from an empty value.
    bool set = false;
    /// White space with escapes, as typed as long as it is typed. Of the other kinds, an entry that is
    /// no value, or a value that
    /// the control cannot show: an indent of blanks and tabs, or "other (7)" for none of the choices.
    std::string text;
    /// For CountAndKind: so many blanks, or tabs.
    std::int32_t count = 0;
    bool tabs = false;
    bool on = false;
    std::int32_t value = 0;

    // Where it stands.
    /// The value is not the one that the scheme was opened with.
    bool edited = false;
    bool enabled = true;
    /// Why what was entered is no value, in words for the user. The scheme still has the value from
    /// before. Empty: all is well.
    std::string problem;
};

/// A control as the table has it, with no value.
Field makeField(const PageOption& option);

/// Shows a value. What is fixed, and where the field stands, stays.
void showValue(Field& field, const OptionValue& value);

/// A number that was entered, as the kind of value that the option has.
OptionValue numberValue(const Field& field, std::int32_t number);

/// What the option begins with when the user ticks it, and has not said a value yet.
OptionValue firstValue(const Field& field);

/// Why `typed` is no value for the field; empty if it is one.
std::string entryProblem(const Field& field, std::string_view typed);

} // namespace NorvaneUI

#endif
