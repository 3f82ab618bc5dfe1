#include "cli/guide/Cli_OptionGuide.h"

#include "cli/console/Cli_OtherProgram.h"
#include "tests/cli/RanCommand.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <sys/stat.h>

namespace {

using Cli::ExitStatus;

RanCommand run(const std::vector<std::string>& arguments) {
    return ranCommand(Cli::runOptionsCommand, arguments);
}

TEST(OptionsCommand, ListsAllByFamily) {
    const RanCommand result = run({});
    EXPECT_EQ(result.status, ExitStatus::done);
    const std::size_t family = result.out.find("\nEnums\n");
    ASSERT_NE(family, std::string::npos);
    EXPECT_LT(family, result.out.find("  INDENT_ENUM_CONTENT  (indent, default: not set)\n"));
    EXPECT_NE(result.out.find("kerfline options NAME"), std::string::npos);
}

TEST(OptionsCommand, ExplainsOneWithAnExampleMadeNow) {
    EXPECT_EQ(run({"WS_AFTER_CS_KEY"}).out,
              "After the keyword\n\n"
              "  White space between \"if\", \"for\", \"while\", \"switch\" or \"catch\" and the \"(\".\n\n"
              "  Option   WS_AFTER_CS_KEY\n"
              "  Kind     white space\n"
              "  Values   the exact white space for the place: \" \" is one blank, \"\\n\" a new\n"
              "           line, \"\\t\" a tab, \"\" nothing\n"
              "  Not set  the place keeps the white space of the source\n\n"
              "    3 WS_AFTER_CS_KEY \" \"\n\n"
              "      void check()               |  void check()\n"
              "      {                          |  {\n"
              "          if(ready){ start(); }  |      if (ready){ start(); }\n"
              "      }                          |  }\n\n"
              "\"kerfline help ControlStatements\" tells of all options like it.\n");
}

TEST(OptionsCommand, ExplainsSeveralInTheOrderInWhichTheyAreNamed) {
    const RanCommand result = run({"TAB_SIZE", "CLASS_DO_NOT_FORMAT"});
    const std::size_t second = result.out.find("Option  CLASS_DO_NOT_FORMAT");
    ASSERT_NE(second, std::string::npos) << result.out;
    EXPECT_LT(result.out.find("TAB_SIZE"), second);
}

TEST(OptionsCommand, NamesTheNearestOfAMisspeltOne) {
    const struct {
        std::vector<std::string> arguments;
        const char* message;
    } rows[] = {
        {{"WS_AFTER_CS_KEYS"},
         "kerfline: error: unknown option \"WS_AFTER_CS_KEYS\"; did you mean \"WS_AFTER_CS_KEY\"?\n"},
        {{"tab_size"}, "kerfline: error: unknown option \"tab_size\"; did you mean \"TAB_SIZE\"?\n"},
        {{"TAB_SIZE", "zzzzzzzz"}, "kerfline: error: unknown option \"zzzzzzzz\"; kerfline options lists "
                                   "all\n"},
        {{"--all"}, "kerfline: error: \"kerfline options\" takes names of options or \"--edit\", and no "
                    "\"--all\"\n"},
    };
    for (const auto& row : rows) {
        const RanCommand result = run(row.arguments);
        EXPECT_EQ(result.status, ExitStatus::badUsageOrScheme);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, row.message);
    }
}

TEST(OptionsCommand, SaysWhenThereIsNoWindow) {
    const std::string path = std::getenv("PATH");
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("PATH", "/nonexistent", 1);
    const RanCommand result = run({"--edit"});
    ::setenv("PATH", path.c_str(), 1);
    ::unsetenv("QT_QPA_PLATFORM");
    EXPECT_EQ(result.status, ExitStatus::fileFailed);
    EXPECT_EQ(result.err, "kerfline: error: the window for options, kerfline-options, is not installed\n");
}

TEST(OptionsCommand, SaysWhatToDoWithoutAScreen) {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) ::unsetenv(name);
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--edit"}, {"--edit", "a.cpp"}}) {
        const RanCommand result = run(words);
        EXPECT_EQ(result.status, ExitStatus::fileFailed);
        EXPECT_EQ(result.err.find("kerfline: error: there is no screen"), 0U) << result.err;
        EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
    }
    EXPECT_EQ(run({"--edit", "a.cpp", "b.cpp"}).status, ExitStatus::badUsageOrScheme);
}

// The window program stands in for itself: what matters are the words that it gets.
TEST(OptionsCommand, PassesTheFileToPreviewOn) {
    const TempFolder folder;
    const std::string said = folder / "said";
    ::chmod(folder.write("kerfline-options", "#!/bin/sh\necho \"$@\" > " + said + "\n").c_str(), 0755);
    const std::string path = std::getenv("PATH");
    ::setenv("DISPLAY", ":0", 1);
    ::setenv("PATH", (folder / "" + ":" + path).c_str(), 1);
    const RanCommand result = run({"--edit", "-odd name.cpp"});
    ::setenv("PATH", path.c_str(), 1);
    ::unsetenv("DISPLAY");
    EXPECT_EQ(result.status, ExitStatus::done) << result.err;
    EXPECT_EQ(folder.read("said"), "-- -odd name.cpp\n");
}

TEST(OtherPrograms, TellTheirStatus) {
    EXPECT_EQ(Cli::runOtherProgram({"sh", "-c", "exit 7"}), std::optional<int>(7));
    EXPECT_EQ(Cli::runOtherProgram({"sh", "-c", "kill -9 $$"}), std::optional<int>(128 + 9));
    EXPECT_EQ(Cli::runOtherProgram({"/nonexistent/program"}), std::nullopt);
}

} // namespace
