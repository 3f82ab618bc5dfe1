#include "cli/guide/Cli_ManPages.h"

#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string withEscapedDashes(std::string_view text) {
    std::string roff;
    for (const char c : text) roff += c == '-' ? std::string("\\-") : std::string(1, c);
    return roff;
}

TEST(ProgramManual, TellsOfEverySwitchAndCommand) {
    const std::string page = Cli::programManual();
    for (const Cli::Switch& row : Cli::switchTable()) {
        EXPECT_TRUE(page.find("\\fB\\-\\-" + withEscapedDashes(row.name) + "\\fR") < page.size()) << row.name;
    }
    for (const Cli::Command& command : Cli::commandTable()) {
        EXPECT_TRUE(page.find(".TP\n\\fB" + std::string(command.name) + "\\fR") < page.size())
            << command.name;
    }
}

TEST(SchemeManual, TellsOfEveryOption) {
    const std::string page = Cli::schemeManual();
    for (const auto table : {Norvane::propertyCatalogue(), Norvane::pageKeyCatalogue()}) {
        for (const Norvane::PropertyInfo& option : table) {
            const std::string start = ".TP\n\\fB" + std::string(option.name) + "\\fR (";
            EXPECT_NE(page.find(start), std::string::npos) << option.name;
        }
    }
    // The escapes of a scheme file must not be taken for those of the page.
    EXPECT_NE(page.find("3 WS_BEFORE_FN_OPEN_BRACE \"\\en\""), std::string::npos);
}

} // namespace
