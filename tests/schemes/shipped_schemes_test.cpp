#include "schemes/NorvaneUI_SchemeChecker.h"
#include "cli/scheme/Cli_ShippedSchemes.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

Norvane::PropertySet read(const Cli::ShippedScheme& scheme) {
    std::istringstream in{std::string(scheme.text)};
    return Norvane::PropertySet(in);
}

class Shipped : public testing::TestWithParam<Cli::ShippedScheme> {};

TEST_P(Shipped, IsSpelledRight) {
    for (const NorvaneUI::SchemeProblem& problem : NorvaneUI::checkSchemeText(GetParam().text)) {
        ADD_FAILURE() << GetParam().name << ".kls:" << problem.line << ':' << problem.column << ": " << problem.text;
    }
}

TEST_P(Shipped, CarriesItsName) { EXPECT_EQ(read(GetParam()).getName(), GetParam().name); }

// A comparison such as "a < b && c > d" reads like a template argument list, and would be squeezed.
TEST_P(Shipped, LeavesTemplateBracketsAlone) {
    const Norvane::PropertySet scheme = read(GetParam());
    EXPECT_FALSE(scheme.exists("WS_AFTER_TP_OPEN_BRACKET"));
    EXPECT_FALSE(scheme.exists("WS_BEFORE_TP_CLOSE_BRACKET"));
}

// Content whose own indent is missing comes out flat as soon as anything around it is indented. That
// is what the content of namespaces is meant to do, and the rows of tables may keep their shape.
TEST_P(Shipped, SetsAllIndentsOrNone) {
    const Norvane::PropertySet scheme = read(GetParam());
    const std::vector<std::string> exempt = {"INDENT_CLASS_INITS", "INDENT_FN_PARAMS", "INDENT_NS_CONTENT",
                                             "INDENT_FURTHER_LINES", "INDENT_DD_CONTENT"};
    std::vector<std::string_view> missing;
    bool any = false;
    for (const Norvane::PropertyInfo& info : Norvane::propertyCatalogue()) {
        const bool isIndent = info.name.starts_with("INDENT_") || info.name == "GLOBAL_INDENT_CONTENT" ||
                              info.name == "LEFT_MARGIN";
        if (!isIndent || std::find(exempt.begin(), exempt.end(), info.name) != exempt.end()) continue;
        if (scheme.exists(info.name)) {
            any = true;
        } else {
            missing.push_back(info.name);
        }
    }
    EXPECT_TRUE(!any || missing.empty()) << (missing.empty() ? "" : missing.front());
}

INSTANTIATE_TEST_SUITE_P(Schemes, Shipped,
                         testing::ValuesIn(Cli::shippedSchemes().begin(), Cli::shippedSchemes().end()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ShippedSchemes, HoldTheOneThatIsUsedByDefault) {
    const auto schemes = Cli::shippedSchemes();
    const auto isDefault = [](const Cli::ShippedScheme& scheme) { return scheme.name == "default"; };
    EXPECT_TRUE(std::any_of(schemes.begin(), schemes.end(), isDefault));
}

} // namespace
