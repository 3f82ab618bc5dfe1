#include "tests/ui/SchemeTools.h"

#include "cli/scheme/Cli_ShippedSchemes.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <gtest/gtest.h>

namespace {

std::string randomText(std::mt19937& random) {
    constexpr std::string_view pieces = "  \t\t\n\n\r\v\fx\\\"'q ";
    std::string text;
    for (auto count = random() % 6; count > 0; --count) text += pieces[random() % pieces.size()];
    return text;
}

void setAny(Norvane::PropertySet& scheme, const std::string& name, std::mt19937& random) {
    switch (random() % 6) {
    case 0: scheme.setBool(name, random() % 2 == 0); break;
    case 1: scheme.setInt(name, static_cast<std::int32_t>(random() % 12) - 3); break;
    case 2:
    case 3: scheme.setString(name, randomText(random)); break;
    default: break;
    }
}

} // namespace

std::vector<Norvane::PropertySet> shippedSchemes() {
    std::vector<Norvane::PropertySet> schemes;
    for (const Cli::ShippedScheme& shipped : Cli::shippedSchemes()) {
        Norvane::PropertySet scheme;
        EXPECT_TRUE(NorvaneUI::parseScheme(std::string(shipped.text), scheme)) << shipped.name;
        schemes.push_back(scheme);
    }
    return schemes;
}

Norvane::PropertySet randomScheme(std::mt19937& random) {
    Norvane::PropertySet scheme("Random");
    for (const auto& table : {Norvane::propertyCatalogue(), Norvane::pageKeyCatalogue()}) {
        for (const Norvane::PropertyInfo& info : table) setAny(scheme, std::string(info.name), random);
    }
    setAny(scheme, "NOT_IN_ANY_CATALOGUE", random);
    // One name can have a value of each kind.
    setAny(scheme, "WS_BEFORE_CLASS_OPEN_BRACE", random);
    return scheme;
}

Norvane::PropertySet schemeOf(const std::string& name,
                              const std::vector<std::pair<std::string, std::string>>& options) {
    Norvane::PropertySet scheme(name);
    for (const auto& [option, value] : options) scheme.setString(option, value);
    return scheme;
}

std::string optionText(const Norvane::PropertySet& scheme, const std::string& option) {
    bool flag = false;
    std::int32_t number = 0;
    std::string text;
    if (scheme.getString(option, text)) return '"' + text + '"';
    if (scheme.getInt(option, number)) return std::to_string(number);
    if (scheme.getBool(option, flag)) return flag ? "true" : "false";
    return "not set";
}
