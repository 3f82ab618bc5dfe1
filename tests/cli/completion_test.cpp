#include "cli/console/Cli_SwitchTable.h"
#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_CompletionWords.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <sstream>

namespace {

std::string outputOf(const std::string& command) {
    std::string text;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    std::array<char, 4096> buffer;
    for (std::size_t size = 1; pipe && size > 0;) {
        size = std::fread(buffer.data(), 1, buffer.size(), pipe.get());
        text.append(buffer.data(), size);
    }
    return text;
}

bool hasShell(const std::string& name) {
    return std::system(("command -v " + name + " > /dev/null").c_str()) == 0;
}

std::set<std::string> wordsOf(const std::string& text) {
    std::istringstream in(text);
    std::set<std::string> words;
    for (std::string word; in >> word;) words.insert(word);
    return words;
}

struct Row {
    const char* name;
    /// The words of the line, as bash splits them; the last one is being typed.
    std::vector<std::string> typed;
    std::set<std::string> offered;
};

const Row kRows[] = {
    {"Command", {"kerfline", "compl"}, {"completion"}},
    {"Switch", {"kerfline", "--message"}, {"--message-format"}},
    {"Scheme", {"kerfline", "--scheme", "all"}, {"allman"}},
    {"SchemeBehindEquals", {"kerfline", "--scheme", "=", "all"}, {"allman"}},
    {"Choice", {"kerfline", "--color", ""}, {"auto", "always", "never"}},
    {"Option", {"kerfline", "--unset", "HANGING_A"}, {"HANGING_AMPERSAND", "HANGING_ASTERISK"}},
    {"OptionToSet", {"kerfline", "--set", "HANGING_AM"}, {"HANGING_AMPERSAND="}},
    {"Value", {"kerfline", "--set", "CONVERT_WS", "=", ""}, {"0", "1", "2"}},
    {"ValueRightBehindEquals", {"kerfline", "--set", "CONVERT_WS", "="}, {"0", "1", "2"}},
    {"OptionOfCommand", {"kerfline", "options", "TAB"}, {"TAB_SIZE"}},
    {"Topic", {"kerfline", "help", "Cl"}, {"Classes"}},
    {"Shell", {"kerfline", "completion", ""}, {"bash", "fish", "zsh"}},
    {"FilesAreLeftToBash", {"kerfline", "x.c", "y"}, {}},
};

class BashCompletion : public testing::TestWithParam<Row> {};

TEST_P(BashCompletion, Offers) {
    if (!hasShell("bash")) GTEST_SKIP() << "no bash here";
    const TempFolder folder;
    std::string script = Cli::bashCompletion() + "COMP_WORDS=(";
    for (const std::string& word : GetParam().typed) script += Cli::singleQuoted(word) + ' ';
    script += ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_kerfline\necho \"${COMPREPLY[@]}\"\n";
    const std::string path = folder.write("script", script);
    // Outside of a real completion bash cannot set the way in which words are added, and says so.
    EXPECT_EQ(wordsOf(outputOf("bash " + Cli::singleQuoted(path) + " 2> /dev/null")), GetParam().offered);
}

INSTANTIATE_TEST_SUITE_P(Words, BashCompletion, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FishCompletion, OffersWhatTheTablesHold) {
    if (!hasShell("fish")) GTEST_SKIP() << "no fish here";
    const TempFolder folder;
    const std::string path = folder.write("kerfline.fish", Cli::fishCompletion());
    const struct {
        const char* line;
        std::set<std::string> offered;
    } rows[] = {
        {"kerfline --unset HANGING_A", {"HANGING_AMPERSAND", "HANGING_ASTERISK"}},
        {"kerfline --color ", {"auto", "always", "never"}},
        {"kerfline completion ", {"bash", "fish", "zsh"}},
        {"kerfline --set CONVERT_WS=", {"CONVERT_WS=", "CONVERT_WS=0", "CONVERT_WS=1", "CONVERT_WS=2"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const std::string command = "source " + path + "; complete -C '" + row.line + "' | string split -f "
                                                                                      "1 \\t";
        const std::string fish = "HOME=/nonexistent fish -N -c " + Cli::singleQuoted(command) + " 2> /dev/null";
        EXPECT_EQ(wordsOf(outputOf(fish)), row.offered);
    }
}

TEST(Completion, KnowsEverySwitchAndOption) {
    for (const std::string& script : {Cli::bashCompletion(), Cli::zshCompletion(), Cli::fishCompletion()}) {
        SCOPED_TRACE(script.substr(0, 60));
        for (const Cli::Switch& row : Cli::switchTable()) {
            const std::string name(row.name);
            const std::size_t usual = script.find("--" + name);
            EXPECT_NE(usual == std::string::npos ? script.find("-l " + name) : usual, std::string::npos) << name;
        }
        for (const Norvane::PropertyInfo& option : Norvane::propertyCatalogue()) {
            if (!option.formats) continue;
            EXPECT_NE(script.find(option.name), std::string::npos) << option.name;
        }
    }
}

TEST(CompletionWords, LeaveOutOptionsWithoutEffect) {
    const std::set<std::string> words = wordsOf(Cli::inOneLine(Cli::optionWords()));
    EXPECT_EQ(words.count("WS_AFTER_FN_DECL"), 0U);
    EXPECT_EQ(words.count("WS_AFTER_FN_DECL_RETURN_TYPE"), 1U);
}

TEST(CompletionCommand, NeedsAShellThatItKnows) {
    const struct {
        std::vector<std::string> arguments;
        const char* message;
    } rows[] = {
        {{}, "kerfline: error: name one shell: kerfline completion bash, zsh or fish\n"},
        {{"bash", "zsh"}, "kerfline: error: name one shell: kerfline completion bash, zsh or fish\n"},
        {{"bsh"},
         "kerfline: error: no completion for \"bsh\"; there are bash, zsh and fish; did you mean "
         "\"bash\"?\n"},
    };
    for (const auto& row : rows) {
        std::istringstream in;
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(Cli::runCompletionCommand(row.arguments, {in, out, err}), Cli::ExitStatus::badUsageOrScheme);
        EXPECT_EQ(out.str(), "");
        EXPECT_EQ(err.str(), row.message);
    }
}

TEST(CompletionWords, AreQuotedForAShell) {
    EXPECT_EQ(Cli::singleQuoted("it's $HOME"), "'it'\\''s $HOME'");
    EXPECT_EQ(Cli::inOneLine(Cli::choiceWords("a|b||c")), "a b  c");
}

} // namespace
