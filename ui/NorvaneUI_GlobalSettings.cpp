#include "ui/NorvaneUI_GlobalSettings.h"

#include <algorithm>

namespace NorvaneUI {

namespace {

constexpr std::size_t kBodyOptions = 4;

std::span<const PageOption> furtherOptions(const PageInfo& page) {
    return page.options.subspan(page.hasBody ? kBodyOptions : 0);
}

void copyThoseSet(Norvane::PropertySet& scheme, std::span<const PageOption> options) {
    std::string value;
    for (const PageOption& option : options) {
        const bool isSet = !option.global.empty() && scheme.getString(option.global, value);
        if (isSet) scheme.setString(option.name, value);
    }
}

bool isOn(const Norvane::PropertySet& scheme, std::string_view key) {
    bool on = false;
    scheme.getBool(key, on);
    return on;
}

} // namespace

BodyKeys bodyKeysOf(const PageInfo& page) {
    const auto name = [&](std::size_t i) { return std::string(page.options[i].name); };
    return {name(0), name(1), name(2), name(3)};
}

void copyBodyGlobals(Norvane::PropertySet& scheme, const BodyKeys& keys) {
    std::string value;
    const auto copy = [&](std::string_view global, const std::string& option) {
        scheme.getString(global, value);
        scheme.setString(option, value);
    };
    copy("GLOBAL_INDENT_CONTENT", keys.indentContent);
    copy("GLOBAL_WS_BEFORE_OPEN_BRACE", keys.wsBeforeOpenBrace);
    copy("GLOBAL_WS_AFTER_OPEN_BRACE", keys.wsAfterOpenBrace);
    copy("GLOBAL_WS_BEFORE_CLOSE_BRACE", keys.wsBeforeCloseBrace);
}

void copyFurtherGlobals(Norvane::PropertySet& scheme, const PageInfo& page) {
    copyThoseSet(scheme, furtherOptions(page));
}

void copyGlobalsThatAreSet(Norvane::PropertySet& scheme, const PageInfo& page) {
    copyThoseSet(scheme, page.options);
}

void refreshUsersOfGlobals(Norvane::PropertySet& scheme, GlobalCopy copy) {
    for (const PageInfo& page : pageTable()) {
        if (!isOn(scheme, page.useGlobalSettingsKey) || isOn(scheme, page.doNotFormatKey)) continue;
        if (page.hasBody && copy == GlobalCopy::everyRow) copyBodyGlobals(scheme, bodyKeysOf(page));
        copyGlobalsThatAreSet(scheme, page);
    }
}

std::vector<std::string_view> missingGlobals(const Norvane::PropertySet& scheme, const PageInfo& page) {
    std::vector<std::string_view> missing;
    for (const PageOption& option : page.options) {
        const bool counted = std::find(missing.begin(), missing.end(), option.global) != missing.end();
        if (!option.global.empty() && !counted && scheme.strings().count(option.global) == 0) {
            missing.push_back(option.global);
        }
    }
    return missing;
}

} // namespace NorvaneUI
