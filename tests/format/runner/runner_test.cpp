#include "tests/cli/TempFolder.h"
#include "tests/format/runner/GoldenCheck.h"

#include <gtest/gtest.h>

namespace {

using Golden::Case;

Case onlyCase(const std::string& content) {
    const std::vector<Case> cases = Golden::parseCases("a.case", content);
    EXPECT_EQ(cases.size(), 1u);
    return cases.at(0);
}

TEST(CaseFile, SharesOptionsWithinASection) {
    const auto cases = Golden::parseCases("a.case", "### one\n2 TAB_SIZE 4\n>>>\na;\n<<< same\n\n>>> other\nb;\n<<<\nc;\n\n"
                                                    "### two\n>>>\nd;\n<<< same\n");
    ASSERT_EQ(cases.size(), 3u);
    EXPECT_EQ(cases[0].title, "one");
    EXPECT_EQ(cases[1].title, "other");
    EXPECT_EQ(cases[1].source, "b;\n");
    EXPECT_EQ(cases[1].expected.text, "c;\n");
    EXPECT_EQ(cases[1].scheme.size(), 1u);
    EXPECT_EQ(cases[2].title, "two");
    EXPECT_EQ(cases[2].scheme.size(), 0u);
    EXPECT_EQ(cases[2].expected.text, "d;\n");
}

TEST(CaseFile, StartsFromAShippedScheme) {
    const Case golden = onlyCase("### a\nscheme knr\n2 TAB_SIZE 3\n>>>\n<<< same\n");
    int tabSize = 0;
    EXPECT_TRUE(golden.scheme.getInt("TAB_SIZE", tabSize));
    EXPECT_EQ(tabSize, 3);
    EXPECT_TRUE(golden.scheme.exists("WS_BEFORE_FN_OPEN_BRACE"));
}

TEST(CaseFile, SpellsOutEscapesOnRequest) {
    EXPECT_EQ(onlyCase("### a\n>>> (escapes)\na\\tb\\x20\nc\\\\n\\\n<<< same\n").source, "a\tb \nc\\n");
    EXPECT_EQ(onlyCase("### a\n>>>\na\\tb\n<<< same\n").source, "a\\tb\n");
}

TEST(CaseFile, HoldsASecondTextIfUnstable) {
    const Case golden = onlyCase("### a\n>>> (unstable) why\na\n<<<\nb\n<<<\nc\n");
    EXPECT_EQ(golden.title, "why");
    ASSERT_TRUE(golden.second);
    EXPECT_EQ(golden.second->text, "c\n");
}

TEST(CaseFile, IsRefusedWhenWrong) {
    EXPECT_THROW(onlyCase("### a\n>>>\na\n"), Golden::FormatError);
    EXPECT_THROW(onlyCase("### a\n>>> (unstable)\na\n<<< same\n"), Golden::FormatError);
    EXPECT_THROW(onlyCase("### a\n2 TAB_SIZ 4\n>>>\na\n<<< same\n"), Golden::FormatError);
    EXPECT_THROW(onlyCase("### a\n>>>\na\n<<< sam\n"), Golden::FormatError);
    EXPECT_THROW(onlyCase("### a\n>>>\na\n<<< same\nb\n"), Golden::FormatError);
}

TEST(CaseFile, SpellsTextsThatReadBack) {
    for (const std::string text : {"", "a\n", "\n", "a\n\n\n", "a", "a\t\n", "a \n", "\\n\n", "a\\", "\x01\xff\n"}) {
        const auto lines = Golden::spellText(text, true);
        ASSERT_TRUE(lines) << text;
        EXPECT_EQ(onlyCase("### a\n>>>\nx\n<<< same\n\n").source, "x\n");
        EXPECT_EQ(onlyCase("### a\n>>> (escapes)\nx\n<<<\n" + *lines + "\n### b\n").expected.text, text);
    }
}

TEST(CaseFile, RefusesToHideWhiteSpace) {
    EXPECT_EQ(Golden::spellText("a b\n", false), "a b\n");
    for (const char* text : {"a", "a \n", "\ta\n", "a\n\n", "### a\n"}) EXPECT_FALSE(Golden::spellText(text, false)) << text;
}

constexpr const char* kRule = "### a\n3 WS_AFTER_CS_KEY \" \"\n";

TEST(UpdateGolden, RewritesOnlyExpectedTexts) {
    const TempFolder folder;
    const std::string head = std::string(kRule) + "# kept\n>>> first\nvoid f() { if(a); }\n";
    const std::string tail = "\n>>> second\nint a;\n<<< same\n\n>>> third\nvoid f() { if(b); }\n<<<\nvoid f() { if (b); }\n";
    const std::string path = folder.write("a.case", head + "<<< same\n" + tail);
    int refused = 0;
    EXPECT_EQ(Golden::updateFile(path, refused), path + ":4: rewritten\n");
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(folder.read("a.case"), head + "<<<\nvoid f() { if (a); }\n" + tail);
}

TEST(UpdateGolden, LeavesARefusedCaseAlone) {
    const TempFolder folder;
    const std::string content = std::string(kRule) + ">>>\nvoid f() { if (a }\n<<<\nold\n";
    const std::string path = folder.write("a.case", content);
    int refused = 0;
    EXPECT_EQ(Golden::updateFile(path, refused), path + ":3: refused: does not parse\n");
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(folder.read("a.case"), content);
}

TEST(UpdateGolden, RefusesATextThatNeedsEscapes) {
    const TempFolder folder;
    const std::string content = std::string(kRule) + ">>>\n\tvoid f() { if(a); }\n<<<\nold\n";
    const std::string path = folder.write("a.case", content);
    int refused = 0;
    Golden::updateFile(path, refused);
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(folder.read("a.case"), content);
}

} // namespace
