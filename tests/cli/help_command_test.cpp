#include "cli/run/Cli_CommandLine.h"
#include "cli/run/Cli_HelpCommand.h"
#include "help/Help_Topic.h"
#include "tests/cli/RanCommand.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Cli::ExitStatus;

RanCommand run(const std::vector<std::string>& arguments) {
    return ranCommand(Cli::runHelpCommand, arguments);
}

TEST(HelpCommand, StartsWithTheSwitchesAndListsTheTopics) {
    const RanCommand result = run({});
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.out.find(Cli::commandLineHelp()), 0U);
    for (const std::string_view name : Help::topicNames()) {
        EXPECT_NE(result.out.find("\n  " + std::string(name) + ' '), std::string::npos) << name;
    }
}

TEST(HelpCommand, TellsOfTopicsOptionsAndCommands) {
    const struct {
        std::vector<std::string> arguments;
        const char* start;
    } rows[] = {
        {{"Classes"}, "Classes\n=======\n"},
        {{"Classes.htm"}, "Classes\n=======\n"},
        {{"control", "statements"}, "Control Statements\n==================\n"},
        {{"TAB_SIZE"}, "Tab size\n\n  Columns from one tab stop to the next.\n"},
        {{"completion"}, "kerfline completion bash|zsh|fish\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.start);
        const RanCommand result = run(row.arguments);
        EXPECT_EQ(result.status, ExitStatus::done);
        EXPECT_EQ(result.out.find(row.start), 0U) << result.out.substr(0, 100);
        EXPECT_EQ(result.err, "");
    }
}

TEST(HelpCommand, KeepsTextWithinATerminal) {
    // Code is not broken; what surrounds it is.
    constexpr std::size_t widest = 84;
    for (const std::string_view name : Help::topicNames()) {
        std::istringstream text(run({std::string(name)}).out);
        for (std::string line; std::getline(text, line);) {
            EXPECT_LE(line.size(), widest) << line;
            EXPECT_FALSE(line.ends_with(' ')) << line;
        }
    }
}

TEST(HelpCommand, NamesTheNearestTopic) {
    const struct {
        std::vector<std::string> arguments;
        const char* message;
    } rows[] = {
        {{"Clases"}, "kerfline: error: there is no help on \"Clases\"; did you mean \"kerfline help "
                     "Classes\"?\n"},
        {{"--html", "Enum"}, "kerfline: error: there is no help on \"Enum\"; did you mean \"kerfline help "
                             "Enums\"?\n"},
        {{"xylophone-quartet"},
         "kerfline: error: there is no help on \"xylophone-quartet\"; kerfline help lists the topics\n"},
        {{"--pdf"}, "kerfline: error: \"kerfline help\" knows \"--html\", and no \"--pdf\"\n"},
    };
    for (const auto& row : rows) {
        const RanCommand result = run(row.arguments);
        EXPECT_EQ(result.status, ExitStatus::badUsageOrScheme);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, row.message);
    }
}

} // namespace
