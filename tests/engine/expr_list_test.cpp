#include "tests/engine/ExprTestTools.h"

#include <gtest/gtest.h>

namespace Norvane {
namespace {

const OptionalString kUnset;
const OptionalString kNothing{true, ""};
const OptionalString kBlank{true, " "};
const OptionalString kLineFeed{true, "\n"};

struct ListCase {
    const char* name;
    const char* text;
    const OptionalString& before;
    const OptionalString& between;
    const char* plain;
    const char* aligned;
};

std::ostream& operator<<(std::ostream& out, const ListCase& row) { return out << row.name; }

class Lists : public testing::TestWithParam<ListCase> {};

TEST_P(Lists, PutWhiteSpaceAroundTheirSeparators) {
    const ListCase& row = GetParam();
    CppExprFormatter formatter{PropertySet()};
    EXPECT_EQ(formatter.formatList(row.text, Cpp::tkComma, row.before, row.between, stateAt(0)), row.plain);
    EXPECT_EQ(formatter.formatAlignedList(row.text, Cpp::tkComma, row.before, row.between, stateAt(0)),
              row.aligned);
}

const ListCase kLists[] = {
    {"NoSeparator", "a + f( x, y )", kBlank, kBlank, "a + f( x, y )", "a + f( x, y )"},
    {"UnsetKeepsAll", "a ,\n  b", kUnset, kUnset, "a ,\nb", "a ,\nb"},
    {"EmptyRemoves", "a ,  b", kNothing, kNothing, "a,b", "a,b"},
    {"BlankReplacesALineFeed", "a,\n  b", kUnset, kBlank, "a, b", "a, b"},
    {"AngleBracketsHide", "a<b, c>d,e", kUnset, kBlank, "a<b, c>d, e", "a<b, c>d, e"},
    {"ALoneLessHidesTheRest", "a,b<c,d", kUnset, kBlank, "a, b<c,d", "a, b<c,d"},
    {"ALoneGreaterHidesTheRest", "a,b>c,d", kUnset, kBlank, "a, b>c,d", "a, b>c,d"},
    {"LineCommentKeepsItsPlace", "a,  // c\nb", kUnset, kNothing, "a,  // c\nb", "a,  // c\nb"},
    {"LineCommentInFrontOfASeparator", "a // c\n , b", kBlank, kBlank, "a // c\n, b", "a // c\n, b"},
    {"BlockCommentBehindASeparator", "a,  /* c */ b", kUnset, kNothing, "a,  /* c */ b", "a,/* c */ b"},
    {"TrailingSeparator", "a,b,  ", kUnset, kBlank, "a, b, ", "a, b, "},
    {"AColonStaysApartFromAScope", ", ::a", kUnset, kNothing, ",::a", ",::a"},
    {"LineFeedLinesUp", "  first,second,\n  third", kUnset, kLineFeed, "first,\nsecond,\nthird",
     "first,\nsecond,\nthird"},
    {"SkippedBytesStay", "a @ ,@ b", kBlank, kBlank, "a @ ,@ b", "a @ ,@ b"},
};

INSTANTIATE_TEST_SUITE_P(ExprFormatterBase, Lists, testing::ValuesIn(kLists),
                         [](const auto& row) { return std::string(row.param.name); });

std::string alignedAt(int column, const std::string& text, const OptionalString& before,
                      const OptionalString& between, const OptionRows& options = {}) {
    Zelmar::IndentStreamState state = stateAt(4);
    state.column = column;
    CppExprFormatter formatter(schemeOf(options));
    return formatter.formatAlignedList(text, Cpp::tkComma, before, between, state);
}

TEST(AlignedList, StartsEveryElementUnderTheFirstCharacterOfTheFirst) {
    EXPECT_EQ(alignedAt(6, "a,b, /* x\n y */ c", kUnset, kLineFeed), "a,\n      b,\n      /* x\n y */ c");
}

TEST(AlignedList, HangsASeparatorThatStartsTheLineToTheLeft) {
    EXPECT_EQ(alignedAt(8, "a,b", kLineFeed, kUnset), "a\n       ,b");
    EXPECT_EQ(alignedAt(8, "a,b", kLineFeed, kBlank), "a\n      , b");
    // One character in front of the line feed stays, and counts.
    EXPECT_EQ(alignedAt(8, "a,b", {true, "  \n"}, kUnset), "a  \n     ,b");
}

TEST(AlignedList, PutsADirectiveOnALineOfItsOwn) {
    const char* const text = "a,\n  #if X\n b";
    EXPECT_EQ(alignedAt(6, text, kUnset, kBlank), "a,\n  #if X\n    b");
    EXPECT_EQ(alignedAt(6, text, kUnset, kLineFeed), "a,\n  #if X\n    b");
    EXPECT_EQ(alignedAt(6, text, kUnset, kLineFeed, {{"ALIGN_PPD_LEFT_MOST", "false"}}),
              "a,\n      #if X\n    b");
    EXPECT_EQ(alignedAt(6, text, kUnset, kBlank, {{"ALIGN_PPD_LEFT_MOST", "true"}, {"LEFT_MARGIN", ""}}),
              "a,\n#if X\n    b");
}

TEST(AlignedList, SettlesASeparatorBehindADirective) {
    const std::string once = alignedAt(6, "\n#if X\n   , ", kUnset, kLineFeed);
    EXPECT_EQ(once, "\n#if X\n    ,\n");
    EXPECT_EQ(alignedAt(6, once, kUnset, kLineFeed), once);
}

TEST(AlignedList, KeepsTheScopeOfABaseClassApartFromTheColon) {
    CppExprFormatter formatter{PropertySet()};
    EXPECT_EQ(formatter.formatList(" : ::N::B", Cpp::tkColon, kBlank, kNothing, stateAt(0, true)), " : ::N::B");
}

// The token runs from the first "/" or "#" to the end of the text.
std::string movedTo(int indent, const std::string& text, bool keepLeadingWs = false) {
    const Zelmar::SourceText source(text);
    Zelmar::SourceReader input(source);
    Zelmar::IndentWriter output(stateAt(indent, keepLeadingWs));
    CppExprFormatter formatter{PropertySet()};
    formatter.formatMultiLineToken(source.positionOf(text.find_first_of("/#")),
                                   source.positionOf(text.size() - 1), input, output);
    return output.takeText();
}

TEST(MultiLineToken, MovesItsFurtherLinesWithItsFirst) {
    EXPECT_EQ(movedTo(4, "/* a\n   b\n c */"), "    /* a\n       b\n     c */");
    EXPECT_EQ(movedTo(0, "    /* a\n       b\n\n     c */"), "/* a\n   b\n\n c */");
    // White space in front of the old column goes, what is behind it stays.
    EXPECT_EQ(movedTo(0, "    /* a\n  b */"), "/* a\nb */");
}

TEST(MultiLineToken, KeepsItsLinesWhereItDoesNotMove) {
    EXPECT_EQ(movedTo(4, "    /* a\n  b */"), "    /* a\n  b */");
    EXPECT_EQ(movedTo(0, "\t\t/* a\n\t\t   b */", true), "\t\t/* a\n\t\t   b */");
}

TEST(MultiLineToken, LeavesTheLineBehindADirectiveAlone) {
    const Zelmar::SourceText source("#if A\n    x");
    Zelmar::SourceReader input(source);
    Zelmar::IndentWriter output(stateAt(0, true));
    CppExprFormatter formatter{PropertySet()};
    formatter.formatMultiLineToken(source.positionOf(0), source.positionOf(5), input, output);
    EXPECT_EQ(output.text(), "#if A\n");
    EXPECT_EQ(input.readRest(), "    x");
}

TEST(Directive, GoesWhereTheSchemeSays) {
    const struct {
        OptionRows options;
        const char* expected;
    } cases[] = {
        {{}, "  #define A \\\n      1\n"},
        {{{"ALIGN_PPD_LEFT_MOST", "false"}}, "        #define A \\\n            1\n"},
        {{{"ALIGN_PPD_LEFT_MOST", "true"}}, "        #define A \\\n            1\n"},
        {{{"ALIGN_PPD_LEFT_MOST", "true"}, {"LEFT_MARGIN", " "}}, " #define A \\\n     1\n"},
    };
    for (const auto& row : cases) {
        const Zelmar::SourceText source("  #define A \\\n      1\n");
        Zelmar::SourceReader input(source);
        Zelmar::IndentWriter output(stateAt(8));
        CppExprFormatter formatter(schemeOf(row.options));
        formatter.formatDirective(source.positionOf(2), source.positionOf(source.size() - 1), input, output);
        EXPECT_EQ(output.text(), row.expected);
    }
}

TEST(TokenClasses, HoldTheUnaryTildeAndNoComma) {
    EXPECT_TRUE(CppExprFormatter::isBinaryOperator(Cpp::tkTilde));
    EXPECT_TRUE(CppExprFormatter::isBinaryOperator(Cpp::tkShiftRightAssign));
    EXPECT_FALSE(CppExprFormatter::isBinaryOperator(Cpp::tkComma));
    EXPECT_FALSE(CppExprFormatter::isBinaryOperator(Cpp::tkExclamation));
    EXPECT_FALSE(CppExprFormatter::isBinaryOperator(Cpp::tkArrow));
    EXPECT_FALSE(CppExprFormatter::isBinaryOperator(Cpp::tkIncrement));
    EXPECT_FALSE(CppExprFormatter::isBinaryOperator(Cpp::tkEnd));
    EXPECT_TRUE(CppExprFormatter::isAssignmentOrEnd(Cpp::tkEnd));
    EXPECT_FALSE(CppExprFormatter::isAssignmentOrEnd(Cpp::tkEqual));
    EXPECT_TRUE(CppExprFormatter::isBuiltinType(Cpp::tkVoid));
    EXPECT_FALSE(CppExprFormatter::isBuiltinType(Cpp::tkUnsigned));
}

} // namespace
} // namespace Norvane
