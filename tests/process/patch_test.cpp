#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";

struct PatchCase {
    const char* name;
    const char* file;
    std::string text;
};

std::string longText() {
    std::string text;
    for (int i = 0; i < 100; ++i) text += i % 9 == 0 ? "int g(int a)\n{\nif(a)b();\n}\n" : "int v = 1;\n\n";
    return text;
}

const PatchCase kPatches[] = {
    {"Plain", "a.c", kUntidy},
    {"Long", "a.c", longText()},
    {"NoLineFeedAtTheEnd", "a.c", "int a;\nvoid f()\n{\nif(a)b();\n}"},
    {"ChangeInALastLineWithoutLineFeed", "a.c", "int a;\nvoid f() { if(a)b(); }"},
    {"WindowsLineEnds", "a.c", "void f()\r\n{\r\nif(a)b();\r\n}\r\n"},
    {"MixedLineEnds", "a.c", "int a;\r\nvoid f()\n{\nif(a)b();\n}\n"},
    {"ByteOrderMark", "a.c", std::string("\xef\xbb\xbf") + kUntidy},
    {"BlanksInTheName", "a b.c", kUntidy},
    {"QuotesInTheName", "a\"b\\.c", kUntidy},
    {"ControlCharactersInTheName", "a\tb\n.c", kUntidy},
    {"OtherLettersInTheName", "\xc3\xa4.c", kUntidy},
    {"InAFolder", "x/y/a.c", kUntidy},
    {"DashInFront", "-a.c", kUntidy},
};

class Patch : public testing::TestWithParam<PatchCase> {};

TEST_P(Patch, IsAppliedByGit) {
    if (!isInstalled("git")) GTEST_SKIP() << "git is not installed";
    const TempFolder folder;
    const Surroundings here = {.folder = folder / ""};
    ASSERT_EQ(Process({"git", "init", "-q", "."}, here).finish().status, 0);
    const std::string path = std::string("./") + GetParam().file;
    std::filesystem::create_directories(std::filesystem::path(folder / path).parent_path());
    folder.write(path, GetParam().text);
    const std::string wanted = run({path}, here).out;
    ASSERT_NE(wanted, GetParam().text);

    const Finished made = run({"--diff", path}, here);
    EXPECT_EQ(made.status, 1) << made.err;
    EXPECT_EQ(folder.read(path), GetParam().text);
    folder.write("patch", made.out);
    const Finished applied = Process({"git", "apply", "--whitespace=nowarn", "patch"}, here).finish();
    EXPECT_EQ(applied.status, 0) << applied.err << made.out;
    EXPECT_EQ(folder.read(path), wanted) << made.out;
}

INSTANTIATE_TEST_SUITE_P(Git, Patch, testing::ValuesIn(kPatches),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Patch, OfAWholeFolderIsAppliedAtOnce) {
    if (!isInstalled("git")) GTEST_SKIP() << "git is not installed";
    const TempFolder folder;
    const Surroundings here = {.folder = folder / ""};
    ASSERT_EQ(Process({"git", "init", "-q", "."}, here).finish().status, 0);
    std::filesystem::create_directories(folder / "x");
    for (const char* name : {"a.c", "x/b.c", "x/tidy.c"})
        folder.write(name, name[2] == 't' ? "int a;\n" : kUntidy);
    folder.write("patch", run({"--diff", "."}, here).out);
    EXPECT_EQ(Process({"git", "apply", "patch"}, here).finish().status, 0);
    const Finished after = run({"--diff", "."}, here);
    EXPECT_EQ(after.status, 0);
    EXPECT_EQ(after.out, "");
}

} // namespace
