#include "tests/fuzz/Fuzz_Schemes.h"

#include "cli/scheme/Cli_ShippedSchemes.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

namespace Fuzz {

namespace {

using Norvane::PropertyInfo;
using Norvane::PropertyKind;
using Norvane::PropertySet;

constexpr auto kSpaces = std::to_array<std::string_view>({"", " ", "\n", "\t", "  ", "\n\n", "\n\t", "\n    "});
constexpr auto kIndents = std::to_array<std::string_view>({"", "    ", "\t", "  ", " "});
constexpr auto kWidths = std::to_array<std::int32_t>({1, 0, 8, 20, 40, 80, 4, 78});

std::string_view textOf(PropertyKind kind, std::uint8_t choice) {
    return kind == PropertyKind::Indent ? kIndents[choice % kIndents.size()] : kSpaces[choice % kSpaces.size()];
}

std::int32_t numberOf(const PropertyInfo& info, std::uint8_t choice) {
    constexpr std::int32_t kFewChoices = 16;
    if (info.maximum - info.minimum < kFewChoices) return info.minimum + choice % (info.maximum - info.minimum + 1);
    return std::clamp(kWidths[choice % kWidths.size()], info.minimum, info.maximum);
}

std::vector<PropertySet> makeBaseSchemes() {
    std::vector<PropertySet> schemes(1);
    for (const Cli::ShippedScheme& shipped : Cli::shippedSchemes()) {
        std::istringstream in{std::string(shipped.text)};
        schemes.emplace_back(in);
    }
    return schemes;
}

std::vector<std::string_view> makeOptions() {
    std::vector<std::string_view> names;
    for (const PropertyInfo& info : Norvane::propertyCatalogue()) {
        if (info.formats && info.kind != PropertyKind::Text) names.push_back(info.name);
    }
    return names;
}

bool hasSameValue(const PropertySet& a, const PropertySet& b, std::string_view option) {
    const auto same = [option](const auto& left, const auto& right) {
        const auto found = left.find(option);
        const auto other = right.find(option);
        return found != left.end() && other != right.end() && found->second == other->second;
    };
    return same(a.bools(), b.bools()) || same(a.ints(), b.ints()) || same(a.strings(), b.strings());
}

} // namespace

std::span<const PropertySet> baseSchemes() {
    static const std::vector<PropertySet> schemes = makeBaseSchemes();
    return schemes;
}

std::span<const std::string_view> options() {
    static const std::vector<std::string_view> names = makeOptions();
    return names;
}

void setOption(PropertySet& scheme, std::string_view option, std::uint8_t choice) {
    const PropertyInfo& info = *Norvane::findProperty(option);
    switch (info.kind) {
    case PropertyKind::Bool: return scheme.setBool(option, choice % 2 == 0);
    case PropertyKind::Int: return scheme.setInt(option, numberOf(info, choice));
    default: return scheme.setString(option, textOf(info.kind, choice));
    }
}

std::optional<std::uint8_t> choiceOf(const PropertySet& scheme, std::string_view option) {
    for (std::uint8_t choice = 0; choice < 16; ++choice) {
        PropertySet other;
        setOption(other, option, choice);
        if (hasSameValue(scheme, other, option)) return choice;
    }
    return std::nullopt;
}

} // namespace Fuzz
