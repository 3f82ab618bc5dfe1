#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* kBefore = "int f(int a) {\n    if(a)\n        b=1;\n    c=2;\n}\n";
constexpr const char* kAfter = "int f(int a) {\n    if(a)\n        b=1;\n    c=3;\n}\n";
constexpr const char* kOnlyTheChange = "int f(int a) {\n    if(a)\n        b=1;\n    c = 3;\n}\n";

TEST(Lines, LayOutNothingElse) {
    const TempFolder folder;
    folder.write("a.c", kBefore);
    const Surroundings here = {.folder = folder / ""};
    EXPECT_EQ(run({"--lines", "2:2", "a.c"}, here).out, "int f(int a) {\n    if (a)\n        b=1;\n    c=2;\n}\n");
    EXPECT_EQ(run({"--lines", "2:2", "--lines=4:9", "a.c"}, here).out,
              "int f(int a) {\n    if (a)\n        b=1;\n    c = 2;\n}\n");
    for (const char* wrong : {"3", "0:1", "2:1", "1:x", ":"}) {
        const Finished refused = run({"--lines", wrong, "a.c"}, here);
        EXPECT_EQ(refused.status, 2) << wrong;
        EXPECT_NE(refused.err.find("--lines takes two lines"), std::string::npos) << refused.err;
    }
}

TEST(Changed, LaysOutWhatGitSaysHasChanged) {
    if (!isInstalled("git")) GTEST_SKIP() << "git is not installed";
    const TempFolder folder;
    const Surroundings here = {.folder = folder / ""};
    const auto git = [&](std::vector<std::string> words) {
        words.insert(words.begin(), {"git", "-c", "user.name=a", "-c", "user.email=a@b"});
        return Process(words, here).finish();
    };
    ASSERT_EQ(git({"init", "-q", "."}).status, 0);
    for (const char* name : {"a.c", "b c.cpp", "notes.txt"}) folder.write(name, kBefore);
    ASSERT_EQ(git({"add", "."}).status, 0);
    ASSERT_EQ(git({"commit", "-qm", "a"}).status, 0);
    EXPECT_EQ(run({"--changed", "--check"}, here).status, 0);
    for (const char* name : {"a.c", "b c.cpp", "notes.txt"}) folder.write(name, kAfter);

    EXPECT_EQ(run({"--changed", "--check"}, here).out, "a.c\nb c.cpp\n");
    EXPECT_EQ(run({"--changed=HEAD", "--check", "a.c"}, here).out, "a.c\n");
    folder.write("patch", git({"diff", "-U0"}).out);
    EXPECT_EQ(Process({"sh", "-c", std::string(KERFLINE_PROGRAM) + " --from-diff --check < patch"}, here).finish().out,
              "a.c\nb c.cpp\n");
    EXPECT_EQ(run({"--changed", "-i"}, here).status, 0);
    EXPECT_EQ(folder.read("a.c"), kOnlyTheChange);
    EXPECT_EQ(folder.read("b c.cpp"), kOnlyTheChange);
    EXPECT_EQ(folder.read("notes.txt"), kAfter);

    EXPECT_EQ(run({"--changed=nothing", "--check"}, here).status, 3);
    EXPECT_EQ(run({"--changed=--output=x", "--check"}, here).status, 2);
}

} // namespace
