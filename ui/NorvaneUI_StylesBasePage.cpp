#include "ui/NorvaneUI_StylesBasePage.h"

#include "files/NorvaneUI_Text.h"
#include "ui/NorvaneUI_GlobalSettings.h"
#include "ui/NorvaneUI_Texts.h"
#include "ui/NorvaneUI_WhiteSpaceEntry.h"

#include <algorithm>
#include <utility>

namespace NorvaneUI {

namespace {

/// False for an empty key as well as for one that is absent.
bool isOn(const Norvane::PropertySet& scheme, const std::string& key) {
    bool on = false;
    scheme.getBool(key, on);
    return on;
}

/// Wrapped lines have an indent of their own under one style only.
bool actsNow(const Field& field, const Norvane::PropertySet& scheme) {
    constexpr std::int32_t styleWithIndent = 2;
    if (field.option != "WRAP_INDENT") return true;
    std::int32_t style = 0;
    return scheme.getInt("WRAP_STYLE", style) && style == styleWithIndent;
}

} // namespace

StylesBasePage::StylesBasePage(PageId id) : info_(pageInfo(id)) {
    for (const PageOption& option : info_.options) fields_.push_back(makeField(option));
}

void StylesBasePage::refreshPreview() {
    if (previewAction_) previewAction_();
}

void StylesBasePage::show(SchemeEdit* edit) {
    edit_ = edit;
    reload();
}

void StylesBasePage::reload() {
    dropEntries();
    Norvane::PropertySet scheme = edit_ != nullptr ? edit_->scheme() : Norvane::PropertySet();
    exchangeValues(Exchange::toControls, scheme);
}

void StylesBasePage::dropEntries() {
    typed_.clear();
    for (Field& field : fields_) field.problem.clear();
}

/// The number of fields if there is no such option.
std::size_t StylesBasePage::indexOf(std::string_view option) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const Field& field) { return field.option == option; });
    return static_cast<std::size_t>(found - fields_.begin());
}

const Field* StylesBasePage::find(std::string_view option) const {
    const std::size_t index = indexOf(option);
    return index == fields_.size() ? nullptr : &fields_[index];
}

std::string StylesBasePage::globalSettingsNote() const {
    if (edit_ == nullptr || useGlobalSettingsKey().empty()) return {};
    std::string names;
    for (const std::string_view name : missingGlobals(edit_->scheme(), info_)) {
        if (!names.empty()) names += ", ";
        names += name;
    }
    return names.empty() ? names : filled(Texts::kMissingGlobals, {names});
}

void StylesBasePage::exchangeValues(Exchange direction, Norvane::PropertySet& scheme) {
    if (direction == Exchange::toControls) {
        showSwitches(scheme);
        for (const Field& field : fields_) showOption(field.option, scheme);
        enableFields(scheme);
        return;
    }
    if (boxTouched_) storeBox(scheme);
    if (globalsTouched_) storeGlobalChoice(scheme);
    storePending(scheme);
}

void StylesBasePage::storePending(Norvane::PropertySet& scheme) {
    for (const auto& [option, value] : pending_) {
        const OptionValue before = readOption(scheme, option);
        const bool goes = std::holds_alternative<std::monostate>(value);
        if (goes) shelves_[SchemeEdit::kUnticked][std::string(option)] = before;
        storeOption(scheme, option, value);
    }
}

void StylesBasePage::storeGlobalChoice(Norvane::PropertySet& scheme) {
    scheme.setBool(useGlobalSettingsKey(), useGlobalSettings_);
    if (useGlobalSettings_) {
        keepOwn(scheme);
        copyFurtherGlobals(scheme, info_);
    } else {
        bringOwnBack(scheme);
    }
}

/// The copies of the global settings take the place of the values of the page's own.
void StylesBasePage::keepOwn(const Norvane::PropertySet& scheme) {
    SchemeEdit::Shelf own;
    for (const PageOption& option : info_.options) {
        if (!option.global.empty()) own.emplace(option.name, readOption(scheme, option.name));
    }
    shelves_[useGlobalSettingsKey()] = std::move(own);
}

/// What could be edited all the time is as the user wants it.
void StylesBasePage::bringOwnBack(Norvane::PropertySet& scheme) {
    for (const auto& [option, value] : shelves_[useGlobalSettingsKey()]) {
        const Field* field = find(option);
        if (field != nullptr && !field->enabled) storeOption(scheme, option, value);
    }
    shelves_.erase(useGlobalSettingsKey());
}

void StylesBasePage::showSwitches(const Norvane::PropertySet& scheme) {
    doNotFormat_ = isOn(scheme, doNotFormatKey());
    useGlobalSettings_ = isOn(scheme, useGlobalSettingsKey());
}

void StylesBasePage::showOption(std::string_view option, const Norvane::PropertySet& scheme) {
    const std::size_t index = indexOf(option);
    if (index == fields_.size()) return;
    Field& field = fields_[index];
    const OptionValue value = readOption(scheme, option);
    showValue(field, value);
    field.edited = edit_ != nullptr && readOption(edit_->original(), option) != value;
    // A backslash that waits for its letter must not vanish under the hands of the user.
    const auto typed = typed_.find(option);
    if (typed != typed_.end()) field.text = typed->second;
}

void StylesBasePage::disable(std::string_view option) {
    const std::size_t index = indexOf(option);
    if (index < fields_.size()) fields_[index].enabled = false;
}

void StylesBasePage::enableFields(const Norvane::PropertySet& scheme) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const std::string_view global = info_.options[i].global;
        const bool isCopied = useGlobalSettings_ && scheme.strings().count(global) != 0;
        fields_[i].enabled = edit_ != nullptr && !doNotFormat_ && !isCopied && actsNow(fields_[i], scheme);
    }
}

void StylesBasePage::storeBox(Norvane::PropertySet& scheme) {
    if (doNotFormat_) leaveAlone(scheme);
    else bringBack(scheme);
    scheme.setBool(doNotFormatKey(), doNotFormat_);
}

void StylesBasePage::leaveAlone(Norvane::PropertySet& scheme) {
    SchemeEdit::Shelf taken;
    for (const PageOption& option : info_.options) {
        const OptionValue value = readOption(scheme, option.name);
        if (!option.erasedByBox || std::holds_alternative<std::monostate>(value)) continue;
        taken.emplace(option.name, value);
        storeOption(scheme, option.name, {});
    }
    shelves_[doNotFormatKey()] = std::move(taken);
}

/// The global settings may have changed since the values were taken out.
void StylesBasePage::bringBack(Norvane::PropertySet& scheme) {
    for (const auto& [option, value] : shelves_[doNotFormatKey()]) storeOption(scheme, option, value);
    shelves_.erase(doNotFormatKey());
    if (useGlobalSettings_) copyGlobalsThatAreSet(scheme, info_);
}

void StylesBasePage::setDoNotFormat(bool on) {
    if (edit_ == nullptr || on == doNotFormat_ || doNotFormatKey().empty()) return;
    doNotFormat_ = on;
    boxTouched_ = true;
    dropEntries();
    save(doNotFormatKey());
}

void StylesBasePage::setUseGlobalSettings(bool on) {
    const bool isOffered = edit_ != nullptr && !useGlobalSettingsKey().empty() && !doNotFormat_;
    if (!isOffered || on == useGlobalSettings_) return;
    useGlobalSettings_ = on;
    globalsTouched_ = true;
    dropEntries();
    save(useGlobalSettingsKey());
}

Field* StylesBasePage::editable(std::string_view option, std::initializer_list<ControlKind> kinds) {
    const std::size_t index = indexOf(option);
    if (edit_ == nullptr || index == fields_.size()) return nullptr;
    Field& field = fields_[index];
    const bool fits = field.enabled && std::find(kinds.begin(), kinds.end(), field.kind) != kinds.end();
    return fits ? &field : nullptr;
}

Field* StylesBasePage::editable(std::string_view option) {
    return editable(option, {ControlKind::WhiteSpace, ControlKind::CountAndKind, ControlKind::Switch,
                             ControlKind::Number, ControlKind::Choice});
}

void StylesBasePage::typeText(std::string_view option, const std::string& typed) {
    Field* field = editable(option, {ControlKind::WhiteSpace, ControlKind::CountAndKind});
    if (field == nullptr) return;
    field->problem = entryProblem(*field, typed);
    typed_[field->option] = typed;
    if (field->problem.empty()) enter(*field, decodeWhiteSpace(typed), true);
    else field->text = typed;
}

void StylesBasePage::setCount(std::string_view option, std::int32_t count, bool tabs) {
    Field* field = editable(option, {ControlKind::CountAndKind});
    if (field == nullptr) return;
    const std::int32_t fitting = std::clamp(count, field->minimum, field->maximum);
    typed_.erase(field->option);
    enter(*field, std::string(static_cast<std::size_t>(fitting), tabs ? '\t' : ' '), true);
}

void StylesBasePage::setSwitch(std::string_view option, bool on) {
    if (Field* field = editable(option, {ControlKind::Switch})) enter(*field, on);
}

void StylesBasePage::setNumber(std::string_view option, std::int32_t value) {
    Field* field = editable(option, {ControlKind::Number, ControlKind::Choice});
    if (field == nullptr) return;
    const bool inRange = value >= field->minimum && value <= field->maximum;
    if (field->kind == ControlKind::Number && !inRange) {
        field->text = typed_[field->option] = std::to_string(value);
        field->problem = filled(Texts::kNumberRange,
                                {std::to_string(field->minimum), std::to_string(field->maximum)});
        return;
    }
    typed_.erase(field->option);
    // The digits of a number come one by one.
    enter(*field, numberValue(*field, value), field->kind == ControlKind::Number);
}

void StylesBasePage::setAsInSource(std::string_view option) {
    Field* field = editable(option);
    if (field == nullptr) return;
    typed_.erase(field->option);
    enter(*field, {});
}

void StylesBasePage::setFirstValue(std::string_view option) {
    Field* field = editable(option);
    if (field == nullptr || field->set) return;
    typed_.erase(field->option);
    const OptionValue last = edit_->untickedValue(option);
    enter(*field, std::holds_alternative<std::monostate>(last) ? firstValue(*field) : last);
}

void StylesBasePage::endTyping() {
    if (edit_ == nullptr) return;
    edit_->endTyping();
    const auto isGood = [this](const auto& entry) { return fields_[indexOf(entry.first)].problem.empty(); };
    std::erase_if(typed_, isGood);
    Norvane::PropertySet scheme = edit_->scheme();
    exchangeValues(Exchange::toControls, scheme);
}

void StylesBasePage::enter(Field& field, OptionValue value, bool typing) {
    field.problem.clear();
    pending_[field.option] = std::move(value);
    save(field.option, typing);
}

void StylesBasePage::save(std::string_view option, bool typing) {
    Norvane::PropertySet scheme = edit_->scheme();
    shelves_ = edit_->shelves();
    exchangeValues(Exchange::toScheme, scheme);
    boxTouched_ = false;
    globalsTouched_ = false;
    pending_.clear();
    edit_->change(scheme, std::move(shelves_), option, typing);
    exchangeValues(Exchange::toControls, scheme);
    refreshPreview();
}

bool StylesBasePage::check(DialogFace& face) const {
    for (const Field& field : fields_) {
        if (field.problem.empty() || !field.enabled) continue;
        face.notify(field.problem);
        face.setFocus(field.option);
        return false;
    }
    return true;
}

} // namespace NorvaneUI
