#include "src/expr/Norvane_Gap.h"
#include "streams/Zelmar_IndentWriter.h"

#include <gtest/gtest.h>

namespace Norvane {
namespace {

struct GapCase {
    const char* gap;
    const char* ws;
    const char* expected;
};

TEST(Gap, TellsWhatItStartsAndEndsIn) {
    const struct {
        const char* text;
        bool starts, ends, holdsLine, holdsAny;
    } cases[] = {
        {"", false, false, false, false},
        {" \n ;", false, false, false, false},
        {" // c\n", true, true, true, true},
        {"; // c\n  ", false, true, true, true},
        {" /* c */ ", false, false, false, true},
        {"\n#if A\n ;", true, false, false, true},
        {" a / b ", false, false, false, false},
        // A comment in a literal is none, and neither is one that a comment has swallowed.
        {"\"// c\"", false, false, false, false},
        {"/* // */", false, false, false, true},
        // Nothing may follow on the line of a literal that is not closed, or of a joined line.
        {" 'c\n", false, true, false, false},
        {" \"c\n", false, true, false, false},
        {" \\\n", false, true, false, false},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(startsInLineComment(row.text), row.starts);
        EXPECT_EQ(endsInLineComment(row.text), row.ends);
        EXPECT_EQ(holdsLineComment(row.text), row.holdsLine);
        EXPECT_EQ(holdsComment(row.text), row.holdsAny);
    }
}

TEST(Gap, ReplacesItsEndAndKeepsWhatEndsALine) {
    const GapCase cases[] = {
        {"  ", "\n", "\n"},
        {";  ", " ", "; "},
        {" /* c */  ", "", " /* c */"},
        {" // c\n   ", " ", " // c\n"},
        {" // c\n\n   ", "", " // c\n\n"},
        {" // c\n   ", "\n", " // c\n"},
        {" // c\n   ", "\n\n", " // c\n\n"},
        {" // c", " ", " // c"},
        {"\n#if A\n  ", " ", "\n#if A\n"},
        // The last line of this macro is empty: with one line feed less it would take in what follows.
        {"#define A \\\n\n", "\n", "#define A \\\n\n"},
        {" \\\n  ", " ", " \\\n"},
        {"\\\n  ", " ", "\\\n "},
    };
    for (const GapCase& row : cases) {
        SCOPED_TRACE(row.gap);
        std::string text = row.gap;
        replaceGapEnd(text, row.ws);
        EXPECT_EQ(text, row.expected);
        replaceGapEnd(text, row.ws);
        EXPECT_EQ(text, row.expected) << "moves again";
    }
}

TEST(Gap, ReplacesItsStartBehindTheCommentThatItStartsWith) {
    const GapCase cases[] = {
        {"  ", "\n", "\n"},
        {"  ;", " ", " ;"},
        {" // c\n   ;", " ", " // c\n ;"},
        // The line feed is the comment's, not the one in front of it.
        {"\n  // c\n   ;", "", "\n  // c\n;"},
        // Neither is it one that only joins the lines of a macro.
        {"#define A \\\n 1\n ;", "\n", "#define A \\\n 1\n\n;"},
        // The line of a directive goes on behind its comment.
        {"#define A // c\n ;", "\n", "#define A // c\n\n;"},
        {" /* c */;", "\n", "\n/* c */;"},
        // The end of a file can cut the line feed off.
        {" // c", " ", ""},
    };
    for (const GapCase& row : cases) {
        SCOPED_TRACE(row.gap);
        std::string text = row.gap;
        replaceGapStart(text, row.ws);
        EXPECT_EQ(text, row.expected);
    }
}

TEST(Gap, ReplacesBothEndsInTurn) {
    const struct {
        const char *gap, *left, *right, *expected;
    } cases[] = {
        {"", " ", "", ""},
        {"   ", "", " ", " "},
        {"  i < n ", " ", "", " i < n"},
        {" // c\n i ", "\n", " ", " // c\n\ni "},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.gap);
        std::string text = row.gap;
        replaceGapEnds(text, row.left, row.right);
        EXPECT_EQ(text, row.expected);
    }
}

TEST(Gap, TrimsOnlyWhatNoCommentOwns) {
    const struct {
        const char *gap, *left, *right, *both;
    } cases[] = {
        {" ; ", "; ", " ;", ";"},
        {" // c\n  ", " // c\n", " // c\n", " // c\n  "},
        {"\n // c\n  ;\n ", "\n // c\n;\n ", "\n // c\n  ;", "\n // c\n  ;\n "},
        {" ; // c\n  ", "; // c\n  ", " ; // c\n", " ; // c\n  "},
        {" /* c */ ", "/* c */ ", " /* c */", "/* c */"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.gap);
        std::string left = row.gap, right = row.gap, both = row.gap;
        trimGapLeft(left);
        trimGapRight(right);
        trimGapBoth(both);
        EXPECT_EQ(left, row.left);
        EXPECT_EQ(right, row.right);
        EXPECT_EQ(both, row.both);
    }
}

TEST(Gap, ReplacesCharactersOutsideCommentsAndLiterals) {
    const char* const cases[][2] = {
        {"unsigned\nint\n", "unsigned int "},
        {"a /* x\ny */\nb", "a /* x\ny */ b"},
        {"\"a\\\nb\"\nc", "\"a\\\nb\" c"},
        {"a // c\nb\n", "a // c\nb\n"},
        {"\n#if A\n b", "\n#if A\n b"},
        // A backslash in front of a line feed joins two lines; in front of a blank it is an error.
        {"a \\\n b\nc", "a \\\n b c"},
    };
    for (const auto& row : cases) {
        std::string text = row[0];
        replaceInGap(text, '\n', ' ');
        EXPECT_EQ(text, row[1]);
    }
}

TEST(Gap, FindsPointerMarksAtTheEnd) {
    EXPECT_TRUE(endsInAsterisk("char * \n"));
    EXPECT_TRUE(endsInAmpersand("T&"));
    EXPECT_FALSE(endsInAsterisk("char * p"));
    EXPECT_FALSE(endsInAsterisk("*")) << "the first character is not looked at";
    EXPECT_FALSE(endsInAsterisk("char // *\n")) << "the mark is part of a comment";
}

TEST(Gap, WritesUpToTheFirstCharacter) {
    Zelmar::IndentWriter output;
    output.setIndent("    ");
    std::string text = "  int x";
    EXPECT_EQ(writeToFirstChar(output, text), 4);
    EXPECT_EQ(text, "nt x");
    std::string blank = " \n ";
    EXPECT_EQ(writeToFirstChar(output, blank), 0);
    EXPECT_EQ(blank, "");
    EXPECT_EQ(output.text(), "    i \n");
}

} // namespace
} // namespace Norvane
