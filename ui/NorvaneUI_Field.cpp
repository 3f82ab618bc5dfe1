#include "ui/NorvaneUI_Field.h"

#include "files/NorvaneUI_Text.h"
#include "ui/NorvaneUI_Texts.h"
#include "ui/NorvaneUI_WhiteSpaceEntry.h"

#include <algorithm>

namespace NorvaneUI {

namespace {

constexpr std::int32_t kLargestCount = 99;
/// An indent that does something: none at all would be taken for "no value" again.
constexpr const char* kFirstIndent = "    ";

/// Only tabs or only blanks, and no more than a count can say.
bool isPlainIndent(std::string_view value) {
    return value.size() <= kLargestCount &&
           (value.find_first_not_of(' ') == std::string_view::npos ||
            value.find_first_not_of('\t') == std::string_view::npos);
}

void showIndent(Field& field, const std::string& value) {
    field.count = static_cast<std::int32_t>(value.size());
    field.tabs = value.find('\t') != std::string::npos;
    if (!isPlainIndent(value)) field.text = encodeWhiteSpace(value);
}

void showNumber(Field& field, std::int32_t value) {
    field.value = value;
    const auto isValue = [value](const Norvane::PropertyChoice& choice) { return choice.value == value; };
    const bool offered = field.kind == ControlKind::Number
                             ? value >= field.minimum && value <= field.maximum
                             : std::any_of(field.choices.begin(), field.choices.end(), isValue);
    if (!offered) field.text = filled(Texts::kOtherValue, {std::to_string(value)});
}

} // namespace

Field makeField(const PageOption& option) {
    Field field;
    field.option = option.name;
    field.kind = option.kind;
    if (const Norvane::PropertyInfo* info = Norvane::findProperty(option.name)) {
        field.label = info->label;
        field.explanation = info->description;
    }
    if (option.kind == ControlKind::Choice) field.choices = Norvane::propertyChoices(option.name);
    field.first = option.first;
    field.minimum = option.minimum;
    field.maximum = option.kind == ControlKind::CountAndKind ? kLargestCount : option.maximum;
    return field;
}

void showValue(Field& field, const OptionValue& value) {
    field.set = !std::holds_alternative<std::monostate>(value);
    field.text.clear();
    field.count = 0;
    field.tabs = false;
    field.on = false;
    field.value = 0;
    if (const auto* flag = std::get_if<bool>(&value)) {
        field.on = *flag;
        if (field.kind == ControlKind::Choice) showNumber(field, *flag ? 1 : 0);
    }
    if (const auto* number = std::get_if<std::int32_t>(&value)) showNumber(field, *number);
    const auto* text = std::get_if<std::string>(&value);
    if (text != nullptr && field.kind == ControlKind::CountAndKind) showIndent(field, *text);
    else if (text != nullptr) field.text = encodeWhiteSpace(*text);
}

OptionValue firstValue(const Field& field) {
    switch (field.kind) {
    case ControlKind::WhiteSpace: return std::string();
    case ControlKind::CountAndKind: return std::string(kFirstIndent);
    case ControlKind::Switch: return true;
    case ControlKind::Number: return field.first;
    case ControlKind::Choice: break;
    }
    const std::int32_t first = field.choices.empty() ? 0 : field.choices.front().value;
    return numberValue(field, first);
}

OptionValue numberValue(const Field& field, std::int32_t number) {
    const Norvane::PropertyInfo* info = Norvane::findProperty(field.option);
    const bool isBool = info != nullptr && info->kind == Norvane::PropertyKind::Bool;
    return isBool ? OptionValue(number != 0) : OptionValue(number);
}

std::string entryProblem(const Field& field, std::string_view typed) {
    const std::string value = decodeWhiteSpace(typed);
    if (!isWhiteSpaceOnly(value)) return std::string(Texts::kWhiteSpaceOnly);
    const bool isIndent = field.kind == ControlKind::CountAndKind;
    if (isIndent && value.find_first_of("\n\r") != std::string::npos) return std::string(Texts::kNoLineBreak);
    return {};
}

} // namespace NorvaneUI
