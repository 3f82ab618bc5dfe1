#include "streams/Zelmar_Columns.h"

#include <gtest/gtest.h>

namespace {

using namespace Zelmar;

TEST(TextColumn, TabRunsToTheNextStop) {
    EXPECT_EQ(textColumn("a\tb", 0, 4), 5);
    EXPECT_EQ(textColumn("\t", 3, 4), 4);
    EXPECT_EQ(textColumn("\t\t", 4, 4), 12);
}

TEST(TextColumn, ALineFeedIsOneColumnWide) {
    EXPECT_EQ(textColumn("a\nb", 2, 4), 5);
}

TEST(TextColumn, WithoutAUsableStartGivesTheLength) {
    EXPECT_EQ(textColumn("a\tb", 2, 0), 3);
    EXPECT_EQ(textColumn("a\tb", -1, 4), 3);
}

TEST(TextColumnBack, WalksBackToTheStart) {
    EXPECT_EQ(textColumnBack("abc", 10, 4), 7);
    EXPECT_EQ(textColumnBack("a\t", 9, 4), 5);
}

TEST(TextColumnBack, NeverFallsBelowZero) {
    EXPECT_EQ(textColumnBack("abcdef", 3, 4), 0);
    EXPECT_EQ(textColumnBack("\t", 2, 4), 0);
    EXPECT_EQ(textColumnBack("a", 0, 4), 0);
    EXPECT_EQ(textColumnBack("a", 5, 0), 0);
}

TEST(Multiples, RoundUpAndTest) {
    EXPECT_EQ(roundUpToMultiple(0, 4), 0);
    EXPECT_EQ(roundUpToMultiple(1, 4), 4);
    EXPECT_EQ(roundUpToMultiple(8, 4), 8);
    EXPECT_TRUE(isMultipleOf(0, 4));
    EXPECT_TRUE(isMultipleOf(8, 4));
    EXPECT_FALSE(isMultipleOf(9, 4));
}

// A scheme may hold 0 for the tab size; nothing may be divided by it.
TEST(Multiples, OfABaseBelowOneAreAllValues) {
    EXPECT_EQ(roundUpToMultiple(7, 0), 7);
    EXPECT_TRUE(isMultipleOf(7, -3));
}

TEST(ColumnsBetween, CountsOnOneLineOnly) {
    EXPECT_EQ(columnsBetween({3, 2}, {3, 9}), 7);
    EXPECT_EQ(columnsBetween({3, 9}, {3, 2}), -7);
    EXPECT_EQ(columnsBetween({3, 2}, {4, 9}), 0);
}

struct IndentCase {
    const char* name;
    const char* indent;
    int wsMode;
    int tabSize;
    int width;
    const char* result;
};

const IndentCase kIndents[] = {
    {"NoWidth", "  ", 0, 4, 0, ""},
    {"NegativeWidth", "  ", 0, 4, -2, ""},
    {"OwnWidthGivesTheIndent", "\t ", 0, 4, 5, "\t "},
    {"BelowInSpaces", "\t\t", 1, 4, 6, "      "},
    {"BelowInTabs", "      ", 2, 4, 5, "\t "},
    {"BeyondInSpaces", "\t", 0, 4, 6, "\t  "},
    {"BeyondFromATabStop", "\t", 2, 4, 10, "\t\t  "},
    {"ShortOfTheTabStopFallsShort", "      ", 2, 4, 7, "      "},
    {"ExactlyToTheTabStop", "      ", 2, 4, 8, "        "},
    {"PastTheTabStop", "      ", 2, 4, 11, "           "},
    {"PastTheTabStopWithATab", "      ", 2, 4, 13, "        \t "},
    {"UnknownModeGivesNothing", "\t", 3, 4, 6, ""},
    {"UnknownModeBelow", "\t\t", 3, 4, 6, ""},
    {"UnknownModeStillGivesTheIndent", "\t", 3, 4, 4, "\t"},
    {"TabSizeZeroCountsAsOne", "", 2, 0, 3, "\t\t\t"},
};

class MakeIndent : public testing::TestWithParam<IndentCase> {};

TEST_P(MakeIndent, FillsTheWidth) {
    const IndentCase& c = GetParam();
    EXPECT_EQ(makeIndent(c.indent, c.wsMode, c.tabSize, c.width), c.result);
}

INSTANTIATE_TEST_SUITE_P(Columns, MakeIndent, testing::ValuesIn(kIndents),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
