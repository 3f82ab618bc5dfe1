#include "edits/Edits_PatchReader.h"

#include <gtest/gtest.h>

namespace {

std::string shown(const std::vector<Edits::ChangedFile>& files) {
    std::string text;
    for (const Edits::ChangedFile& file : files) {
        text += file.path + ':';
        for (const Edits::LineRange& lines : file.lines) {
            text += ' ' + std::to_string(lines.first) + '-' + std::to_string(lines.last);
        }
        text += '\n';
    }
    return text;
}

struct PatchCase {
    const char* name;
    const char* patch;
    const char* files;
};

const PatchCase kPatches[] = {
    {"Empty", "", ""},
    {"NoPatch", "hello\nworld\n@@ nothing @@\n", ""},
    {"NoContext", "--- a/x.c\n+++ b/x.c\n@@ -3 +3,2 @@ int f()\n-a\n+b\n+c\n", "x.c: 3-4\n"},
    {"Context", "--- a/x.c\n+++ b/x.c\n@@ -1,3 +1,4 @@\n a\n+b\n c\n-d\n+e\n", "x.c: 2-2 4-4\n"},
    {"BlankContextWithoutItsBlank", "--- a/x.c\n+++ b/x.c\n@@ -1,2 +1,3 @@\n\n a\n+b\n", "x.c: 3-3\n"},
    {"OnlyRemoved", "--- a/x.c\n+++ b/x.c\n@@ -3,2 +2,0 @@\n-a\n-b\n", "x.c:\n"},
    {"Deleted", "--- a/x.c\n+++ /dev/null\n@@ -1,2 +0,0 @@\n-a\n-b\n", ""},
    {"New", "--- /dev/null\n+++ b/d/x.c\n@@ -0,0 +1,2 @@\n+a\n+b\n", "d/x.c: 1-2\n"},
    {"ContentThatLooksLikeAHead", "--- a/x.c\n+++ b/x.c\n@@ -1 +1,2 @@\n--- a/y.c\n+++ b/y.c\n+z\n", "x.c: 1-2\n"},
    {"NoLineFeedAtTheEnd", "--- a/x.c\n+++ b/x.c\n@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+b\n",
     "x.c: 1-1\n"},
    {"TwoFilesAndABinary",
     "--- a/x.c\n+++ b/x.c\n@@ -1 +1 @@\n-a\n+b\nBinary files a/p.png and b/p.png differ\n"
     "--- a/y.c\n+++ b/y.c\n@@ -9 +9 @@\n-a\n+b\n",
     "x.c: 1-1\ny.c: 9-9\n"},
    {"QuotedName", "+++ \"b/a\\tb\\303\\244\\\".c\"\n@@ -1 +1 @@\n-a\n+b\n", "a\tb\303\244\".c: 1-1\n"},
    {"TimeBehindTheName", "+++ b/x y.c\t2020-01-01\r\n@@ -1 +1 @@\n-a\n+b\n", "x y.c: 1-1\n"},
};

class PatchRow : public testing::TestWithParam<PatchCase> {};

TEST_P(PatchRow, NamesTheNewLines) { EXPECT_EQ(shown(Edits::readPatch(GetParam().patch)), GetParam().files); }

INSTANTIATE_TEST_SUITE_P(Edits, PatchRow, testing::ValuesIn(kPatches),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Patch, StripsAsManyFoldersAsAsked) {
    const char* const patch = "+++ a/b/c.c\n@@ -1 +1 @@\n-a\n+b\n";
    EXPECT_EQ(shown(Edits::readPatch(patch, 0)), "a/b/c.c: 1-1\n");
    EXPECT_EQ(shown(Edits::readPatch(patch, 2)), "c.c: 1-1\n");
    EXPECT_EQ(shown(Edits::readPatch(patch, 9)), "c.c: 1-1\n");
}

} // namespace
