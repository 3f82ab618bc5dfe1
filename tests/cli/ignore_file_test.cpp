#include "cli/files/Cli_IgnoreFile.h"

#include <gtest/gtest.h>

namespace {

struct PatternCase {
    const char* text;
    const char* path;
    bool isFolder;
    bool isIgnored;
};

const PatternCase kPatterns[] = {
    {"*.c\n", "a.c", false, true},
    {"*.c\n", "x/y/a.c", false, true},
    {"*.c\n!a.c\n", "x/a.c", false, false},
    {"!a.c\n*.c\n", "a.c", false, true},
    {"/a.c\n", "a.c", false, true},
    {"/a.c\n", "x/a.c", false, false},
    {"x/a.c\n", "x/a.c", false, true},
    {"x/a.c\n", "y/x/a.c", false, false},
    {"**/x/a.c\n", "y/x/a.c", false, true},
    {"x/**/a.c\n", "x/a.c", false, true},
    {"x/**/a.c\n", "x/y/z/a.c", false, true},
    {"x/**\n", "x", true, false},
    {"x/**\n", "x/y/a.c", false, true},
    {"x/*\n", "x/y/a.c", false, false},
    {"build/\n", "y/build", true, true},
    {"build/\n", "y/build", false, false},
    {"[a-c]?.h\n", "bx.h", false, true},
    {"[!a-c]?.h\n", "bx.h", false, false},
    {"# a.c\n", "# a.c", false, false},
    {"\\#a.c\n", "#a.c", false, true},
    {"a.c  \n", "a.c", false, true},
    {"a.c\\ \n", "a.c ", false, true},
    {"a.c\r\n", "a.c", false, true},
    {"\xef\xbb\xbf" "a.c\n", "a.c", false, true},
    {"\n\n", "a.c", false, false},
};

TEST(IgnoreFile, MatchesLikeThoseOfGit) {
    for (const PatternCase& row : kPatterns) {
        const auto match = Cli::IgnoreFile(row.text).match(row.path, row.isFolder);
        EXPECT_EQ(match.verdict == Cli::IgnoreFile::Verdict::ignored, row.isIgnored) << row.text << row.path;
    }
}

TEST(IgnoreFile, TellsTheLineThatDecides) {
    EXPECT_EQ(Cli::IgnoreFile("# x\n*.h\n\n*.c\n").match("a.c", false).line, 4u);
}

TEST(IgnoreFile, ManyStarsCostLittle) {
    std::string pattern;
    for (int i = 0; i < 200; ++i) pattern += "*a";
    const std::string text(5000, 'a');
    EXPECT_FALSE(Cli::matchesPath(pattern + 'b', text));
}

} // namespace
