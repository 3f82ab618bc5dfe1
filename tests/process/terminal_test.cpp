#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";
constexpr const char* kQuestion = "Are you sure you wish to continue?";

struct AnswerCase {
    const char* name;
    const char* typed;
    bool isDone;
};

const AnswerCase kAnswers[] = {
    {"Yes", "y\n", true},        {"LongYes", "Yes\n", true},  {"No", "n\n", false},
    {"Cancel", "c\n", false},    {"EndOfInput", "\x04", false}, {"AskedAgain", "what\ny\n", true},
};

class Answer : public testing::TestWithParam<AnswerCase> {};

TEST_P(Answer, DecidesAboutAFolder) {
    const TempFolder folder;
    folder.write("a.c", kUntidy);
    const Finished finished =
        runOnTerminal({"-i", "."}, kQuestion, GetParam().typed, {.folder = folder / ""});
    EXPECT_EQ(finished.status, 0) << finished.out;
    EXPECT_NE(finished.out.find("You have chosen to format all C/C++ files under the directory tree \".\". "),
              std::string::npos)
        << finished.out;
    EXPECT_EQ(folder.read("a.c") != kUntidy, GetParam().isDone);
}

INSTANTIATE_TEST_SUITE_P(Terminal, Answer, testing::ValuesIn(kAnswers),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Terminal, IsNotAskedAboutFilesThatWereNamed) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    const Finished finished = runOnTerminal({"-i", path}, kQuestion, "n\n");
    EXPECT_EQ(finished.out.find(kQuestion), std::string::npos) << finished.out;
    EXPECT_NE(folder.read("a.c"), kUntidy);
}

TEST(Terminal, ThatIsMissingNeedsAYes) {
    const TempFolder folder;
    folder.write("a.c", kUntidy);
    Finished finished = run({"-i", folder / ""});
    EXPECT_EQ(finished.status, 2);
    EXPECT_NE(finished.err.find("-y"), std::string::npos) << finished.err;
    EXPECT_EQ(folder.read("a.c"), kUntidy);
    finished = run({"-i", "-y", folder / ""});
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_NE(folder.read("a.c"), kUntidy);
    // What only looks needs no yes.
    EXPECT_EQ(run({"--check", folder / ""}).status, 0);
}

TEST(Terminal, ShowsProgressAndATotalForBatches) {
    const TempFolder folder;
    folder.write("a.c", kUntidy);
    folder.write("b.c", "int b;\n");
    const Finished finished = runOnTerminal({"-i", "-y", folder / ""}, "", "");
    EXPECT_NE(finished.out.find("Formatting file 1 of 2 ["), std::string::npos) << finished.out;
    EXPECT_NE(finished.out.find("2 files: 1 formatted, 1 unchanged"), std::string::npos) << finished.out;
    EXPECT_EQ(runOnTerminal({"-q", "-i", "-y", folder / ""}, "", "").out, "");
    EXPECT_EQ(run({"-i", "-y", folder / ""}).err, "");
}

TEST(Verbose, TellsOfEveryStep) {
    const TempFolder folder;
    folder.write("a.c", kUntidy);
    folder.write("b.c", "int b;\n");
    folder.write(".kerflineignore", "b.c\n");
    const Finished finished = run({"-v", "-i", "-y", "--scheme", "knr", "."}, {.folder = folder / ""});
    const std::string ignoreFile = std::filesystem::canonical(folder / ".kerflineignore").string();
    EXPECT_EQ(finished.err, "kerfline: note: Creating the list of C/C++ files in the directory tree .\n"
                            "kerfline: note: Formatting files under directory \".\" using scheme \"knr\".\n"
                            "a.c: note: Formatting \"a.c\".\n"
                            "b.c: note: left alone by " +
                                ignoreFile +
                                ":1\n"
                                "kerfline: note: 2 files: 1 formatted, 1 skipped\n"
                                "kerfline: note: Finished formatting directory tree.\n");
}

} // namespace
