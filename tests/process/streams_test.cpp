#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";

struct StatusCase {
    const char* name;
    Words arguments;
    const char* input;
    int status;
};

const StatusCase kStatuses[] = {
    {"Done", {}, "int a;\n", 0},
    {"WouldChange", {"--check", "-"}, kUntidy, 1},
    {"WouldPatch", {"--diff", "-"}, kUntidy, 1},
    {"WrongUse", {"--chekc"}, "", 2},
    {"WrongScheme", {"--scheme", "knrr"}, "", 2},
    {"Missing", {"/nonexistent/a.c"}, "", 3},
    {"Refused", {"--strict"}, "void f() { if (a }\n", 4},
};

class Status : public testing::TestWithParam<StatusCase> {};

TEST_P(Status, IsThatOfTheProcess) {
    const Finished finished = run(GetParam().arguments, {.input = GetParam().input});
    EXPECT_EQ(finished.status, GetParam().status) << finished.err;
    EXPECT_EQ(finished.err.empty(), GetParam().status < 2) << finished.err;
}

INSTANTIATE_TEST_SUITE_P(Process, Status, testing::ValuesIn(kStatuses),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Output, ThatCannotBeWrittenIsTold) {
    const Finished finished = Process({"sh", "-c", std::string(KERFLINE_PROGRAM) + " > /dev/full"},
                                      {.input = "int a;\n"}).finish();
    EXPECT_EQ(finished.status, 3);
    EXPECT_NE(finished.err.find("No space left on device"), std::string::npos) << finished.err;
}

TEST(Output, OfAPipeIsThatOfAFile) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    const Finished piped =
        Process({"sh", "-c", "cat " + path + " | " + KERFLINE_PROGRAM + " /dev/stdin"}).finish();
    EXPECT_EQ(piped.status, 0) << piped.err;
    EXPECT_EQ(piped.out, run({path}).out);
}

TEST(Output, OfSeveralThreadsIsInTheOrderOfTheFiles) {
    const TempFolder folder;
    Words files;
    for (int i = 0; i < 200; ++i) {
        const std::string name = "f" + std::to_string(i) + ".c";
        const std::string text = i % 7 == 0
                                     ? "void broken" + std::to_string(i) + "( { if (a }\n"
                                     : "int v" + std::to_string(i) + "=  1;\n" + std::string(i % 50, '\n');
        files.push_back(folder.write(name, text));
    }
    for (const Words& how : {Words{}, Words{"--check"}, Words{"--diff"}}) {
        Words one = how;
        one.insert(one.end(), files.begin(), files.end());
        Words several = one;
        several.insert(several.begin(), {"-j", "4"});
        const Finished alone = run(one);
        const Finished together = run(several);
        EXPECT_EQ(together.out, alone.out);
        EXPECT_EQ(together.err, alone.err);
        EXPECT_EQ(together.status, alone.status);
    }
}

TEST(Color, GoesToTerminalsOnly) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    const auto isColored = [](const std::string& text) { return text.find("\x1b[3") != std::string::npos; };
    EXPECT_FALSE(isColored(run({"--diff", path}).out));
    EXPECT_TRUE(isColored(run({"--diff", "--color=always", path}).out));
    EXPECT_TRUE(isColored(runOnTerminal({"--diff", path}, "", "").out));
    EXPECT_FALSE(isColored(runOnTerminal({"--diff", path}, "", "", {.environment = {"NO_COLOR=1"}}).out));
    EXPECT_FALSE(isColored(runOnTerminal({"--diff", "--color=never", path}, "", "").out));
}

TEST(Name, OfStandardInputIsInMessages) {
    const Finished finished = run({"--stdin-filename", "x/a.cpp"}, {.input = "void f() { if (a }\n"});
    EXPECT_EQ(finished.err.rfind("x/a.cpp:1:", 0), 0u) << finished.err;
}

} // namespace
