#include "src/wrap/Norvane_CppExprLineWrapper.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using Norvane::CppExprLineWrapper;
using Norvane::PropertySet;

/// The styles of a test as far as they are not the ones most tests take.
struct Styles {
    int wrap = 1;
    int comma = 2;
    int expr = 2;
    int shift = 1;
    int strategy = 0;
    int margin = 20;
};

PropertySet schemeOf(const Styles& styles) {
    PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    scheme.setInt("RIGHT_MARGIN", styles.margin);
    scheme.setInt("WRAP_STYLE", styles.wrap);
    scheme.setInt("COMMA_WRAP_STYLE", styles.comma);
    scheme.setInt("EXPR_WRAP_STYLE", styles.expr);
    scheme.setInt("SHIFT_WRAP_STYLE", styles.shift);
    scheme.setInt("LIST_WRAP_STRATEGY", styles.strategy);
    scheme.setString("WRAP_INDENT", "  ");
    return scheme;
}

/// A place at `column` of a line, in a block that is indented by four.
Zelmar::IndentStreamState placeAt(int column) {
    Zelmar::IndentStreamState state;
    state.indent = "    ";
    state.tabSize = 4;
    state.column = column;
    return state;
}

std::string wrapAt4(const Styles& styles, const std::string& text) {
    return CppExprLineWrapper(schemeOf(styles)).wrap(text, placeAt(4), false, false);
}

std::string listAt(int column, const Styles& styles, const std::string& text) {
    return CppExprLineWrapper(schemeOf(styles)).wrapList(text, placeAt(column), false);
}

// ---- Expressions, from column 4 on ----

struct ExprCase {
    const char* name;
    Styles styles;
    const char* source;
    const char* wrapped;
};

const ExprCase kExpressions[] = {
    {"FlushLast", {.wrap = 0}, "aaaa && bbbb && ccc", "aaaa &&\nbbbb &&\nccc"},
    {"FlushFirst", {.wrap = 0, .expr = 1}, "aaaa && bbbb && ccc", "aaaa\n&& bbbb\n&& ccc"},
    {"AlignedLast", {}, "aaaa && bbbb && ccc", "aaaa &&\n    bbbb &&\n    ccc"},
    {"AlignedFirstHangs", {.expr = 1}, "aaaa && bbbb && ccc", "aaaa\n && bbbb\n && ccc"},
    {"IndentedLast", {.wrap = 2}, "aaaa && bbbb && ccc", "aaaa &&\n      bbbb &&\n      ccc"},
    {"IndentedFirst", {.wrap = 2, .expr = 1}, "aaaa && bbbb && ccc", "aaaa\n      && bbbb\n      && ccc"},
    {"ExprStyle0IsAs1", {.expr = 0}, "aaaa && bbbb && ccc", "aaaa\n && bbbb\n && ccc"},
    {"ExprStyleOutOfRangeIs1", {.expr = 9}, "aaaa && bbbb && ccc", "aaaa\n && bbbb\n && ccc"},
    {"CommaStyleOutOfRangeIs2", {.comma = 7}, "ff(aaaaaa, bbbbb)", "ff(aaaaaa,\n       bbbbb)"},
    {"WrapStyleOutOfRangeIs0", {.wrap = -1}, "aaaa && bbbb && ccc", "aaaa &&\nbbbb &&\nccc"},

    {"ArgumentsBeforeAnythingAround", {}, "return ffff(aaa, bbb) && g(c);",
     "return ffff(aaa,\n                bbb) &&\n           g(c);"},
    {"ArgumentsThatFitStay", {}, "return f(a, b) && g(c);", "return f(a, b) &&\n           g(c);"},
    {"ArgumentsThatFitBreakForWhatCantBreak", {}, "xx = ff(aaa, b).cc;", "xx = ff(aaa,\n            b).cc;"},
    {"ButNotIfThatIsTooLongAnyway", {}, "x = f(a, b).ccccccc;", "x = f(a, b).ccccccc;"},
    {"CommasBeforeLogicals", {}, "ff(a && b, cc && dd)", "ff(a && b,\n       cc && dd)"},
    {"CommaFirst", {.comma = 1}, "fff(aaaaaa, bbbbb, cccc);", "fff(aaaaaa\n      , bbbbb\n      , cccc);"},
    {"CommaFirstByStyle0", {.comma = 0}, "fff(aaaaaa, bbbbb, cccc);",
     "fff(aaaaaa\n      , bbbbb\n      , cccc);"},
    {"WhatIsStuckBehindCounts", {}, "ff(aaaaaa, bbbbb);", "ff(aaaaaa,\n       bbbbb);"},
    {"NestedCalls", {}, "x = foo(a, bar(b, c));",
     "x = foo(a,\n            bar(b,\n                c));"},
    {"IndentedArguments", {.wrap = 2}, "ff(aaaaaa, bbbbb);", "ff(aaaaaa,\n      bbbbb);"},
    {"MeasuredWhereItStands", {}, "x = foo(a, bbbb + ccc);",
     "x = foo(a,\n            bbbb +\n            ccc);"},
    {"GroupWithoutAName", {}, "aaa(b)->c = (dddd, eeeeeee);",
     "aaa(b)->c = (dddd,\n                 eeeeeee);"},

    {"AssignmentKeepsItsLeftSide", {}, "a = bbbbbbb + cccccccc;", "a = bbbbbbb +\n        cccccccc;"},
    {"NeverBehindTheAssignment", {}, "aaaaaaa = bbbbbbbbbbbbbb;", "aaaaaaa = bbbbbbbbbbbbbb;"},
    {"OperatorInFrontOfTheAssignment", {.expr = 1}, "aaaaa + bbbbb = ccccc",
     "aaaaa\n  + bbbbb = ccccc"},
    {"ComparisonKeepsItsLeftSide", {}, "aaa >= bbb && ccccc", "aaa >= bbb &&\n           ccccc"},
    {"ReturnOfALambdaIsNoKeyword", {.margin = 30}, "sort(bbbb, eeee, [](int x) { return x; });",
     "sort(bbbb,\n         eeee,\n         [](int x) { return x; });"},

    {"SignStaysWithItsOperand", {}, "xxxxxxxx + -yyyyyyy", "xxxxxxxx + -yyyyyyy"},
    {"SignStaysWithItsOperandFirst", {.expr = 1}, "xxxxxxxx + -yyyyyyy", "xxxxxxxx\n  + -yyyyyyy"},
    {"SumsLastOneALine", {}, "a + b + c + d + e + f", "a +\n    b +\n    c +\n    d +\n    e +\n    f"},
    {"SumsFirstTwoALine", {.expr = 1}, "a + b + c + d + e + f", "a\n  + b + c\n  + d + e\n  + f"},
    {"SumsFirstOneWhereTwoAreTooLong", {.expr = 1}, "aaaaaa + bbbbbbbb + ccccccc + d",
     "aaaaaa\n  + bbbbbbbb\n  + ccccccc\n  + d"},
    {"ConditionalFirst", {.expr = 1}, "p = qqqqqqqq ? rrrr : ss", "p = qqqqqqqq\n      ? rrrr\n      : ss"},
    {"TextThatStartsWithTheOperator", {.expr = 1}, ": 33333333 : 444444444", ": 33333333\n  : 444444444"},
    {"OldCastLast", {}, "(int) xxxxxxxxxxxxxxx", "(int)\n    xxxxxxxxxxxxxxx"},
    {"NamedCastLast", {}, "static_cast<T>(xxxxxx)", "static_cast<T>\n    (xxxxxx)"},
    {"TemplateIsNoComparison", {}, "vector<int, allocator> v", "vector<int, allocator> v"},
    {"Braces", {}, "x = S{aaaaaa, bbbbbbbb};", "x = S{aaaaaa,\n          bbbbbbbb};"},

    {"ShiftsFill", {}, "cout << a << b << ccccc;", "cout << a << b\n         << ccccc;"},
    {"ShiftsKeepTheFirstTwo", {}, "xxxxxxxxxxx << yyyyyy << z",
     "xxxxxxxxxxx << yyyyyy\n                << z"},
    {"ShiftsBehind", {.shift = 2}, "cout << a << b << ccccc;", "cout << a <<\n         b << ccccc;"},
    {"ShiftsNever", {.shift = 0}, "cout << a << b << ccccc;", "cout << a << b << ccccc;"},
    {"ShiftsAreNoOtherOperators", {}, "x << \"aaaaaaaaaaaaaaaaa\" << z;",
     "x << \"aaaaaaaaaaaaaaaaa\"\n      << z;"},
    {"NoShiftNoBreak", {.shift = 2}, "return bbbbbbbbbbbbbbbbbb", "return bbbbbbbbbbbbbbbbbb"},

    {"LineCommentKeepsItsEnd", {}, "aaaa && // c\n  bbbb && cccc && ddd",
     "aaaa && // c\n    bbbb &&\n    cccc &&\n    ddd"},
    {"BlockCommentStaysBehindTheOperator", {}, "aaaa && /* c */ bbbb", "aaaa && /* c */\n    bbbb"},
    {"LastCommentStaysOnItsLine", {}, "f(aaaaa, bbbbb, // c\n  )", "f(aaaaa,\n      bbbbb, // c\n  )"},
    {"DirectiveKeepsItsLine", {}, "f(aaa, aaaaaaaaaaa,\n#if X\n  bbbbb,\n#endif\n  cccc)",
     "f(aaa,\n      aaaaaaaaaaa,\n#if X\n      bbbbb,\n#endif\n      cccc)"},
    {"LongStringStays", {}, "f(\"aaaaaaaaaaaaaaaaaaaa\")", "f(\"aaaaaaaaaaaaaaaaaaaa\")"},
    {"NoColumnBehindTheMargin", {}, "xxxxxxxxxxxxxxxxxxxxxxxxxx(a, b)",
     "xxxxxxxxxxxxxxxxxxxxxxxxxx(a,\n                    b)"},
    {"StrayBracketHidesTheRest", {}, "aaaaaaaa), bbbbbbbb, c", "aaaaaaaa), bbbbbbbb, c"},
    {"CharactersOfNoTokenAreKept", {}, "aaaaaaa && $bbbb && @", "aaaaaaa &&\n    $bbbb &&\n    @"},
};

class ExprLines : public testing::TestWithParam<ExprCase> {};

TEST_P(ExprLines, AreBroken) {
    EXPECT_EQ(wrapAt4(GetParam().styles, GetParam().source), GetParam().wrapped);
}

INSTANTIATE_TEST_SUITE_P(WrapExpr, ExprLines, testing::ValuesIn(kExpressions),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WrapExpr, TextThatFitsComesOutAsItIs) {
    for (const char* text : {"a && b", "f(a,\n  b)", "  // c\n", "", "\n\n   \n", "x = \"s\";"}) {
        EXPECT_EQ(wrapAt4({}, text), text);
    }
}

TEST(WrapExpr, WhatFollowsCountsOnlyAtTheEnd) {
    CppExprLineWrapper wrapper(schemeOf({}));
    EXPECT_EQ(wrapper.wrap("aaaaaa && bbbbb", placeAt(4), false, false), "aaaaaa && bbbbb");
    EXPECT_EQ(wrapper.wrap("aaaaaa && bbbbb", placeAt(4), false, false, ");"),
              "aaaaaa &&\n    bbbbb");
    EXPECT_EQ(wrapper.wrap("aaaaaa && bbbbb", placeAt(4), false, false, ")\n  cccccccccccc"),
              "aaaaaa && bbbbb");
}

TEST(WrapExpr, WithoutAMarginOrTheSwitchNothingIsBroken) {
    const std::string text = "cout << f(aaaaaaaaaaaaaa, \"b\" \"c\") << ddddddddddddddd && e";
    for (const int margin : {0, -5}) EXPECT_EQ(wrapAt4({.margin = margin}, text), text);
    PropertySet off = schemeOf({.strategy = 1});
    off.setBool("LINE_WRAP", false);
    CppExprLineWrapper wrapper(off);
    EXPECT_EQ(wrapper.wrap(text, placeAt(4), false, false), text);
    EXPECT_EQ(wrapper.wrapList(text, placeAt(4), false), text);
    EXPECT_EQ(wrapper.wrapStatementParts(text, placeAt(4)), text);
}

TEST(WrapExpr, AnIndentOfTheWrongKindOrWithCodeInItCountsAsNone) {
    PropertySet scheme = schemeOf({.wrap = 2});
    scheme.setString("WRAP_INDENT", "x ");
    EXPECT_EQ(CppExprLineWrapper(scheme).wrap("aaaaaaaaaa && bbbb", placeAt(4), false, false),
              "aaaaaaaaaa &&\n    bbbb");
    scheme.erase("WRAP_INDENT");
    scheme.setInt("WRAP_INDENT", 4);
    EXPECT_EQ(CppExprLineWrapper(scheme).wrap("aaaaaaaaaa && bbbb", placeAt(4), false, false),
              "aaaaaaaaaa &&\n    bbbb");
}

TEST(WrapExpr, WrapIndentIsLeftOutOnRequest) {
    CppExprLineWrapper wrapper(schemeOf({.wrap = 2}));
    EXPECT_EQ(wrapper.wrap("aaaaaaaaaa && bbbb", placeAt(4), false, true), "aaaaaaaaaa &&\n    bbbb");
    EXPECT_EQ(wrapper.wrap("aaaaaaaaaa && bbbb", placeAt(4), false, false), "aaaaaaaaaa &&\n      bbbb");
}

TEST(WrapExpr, AdjacentStringsGetALineEach) {
    EXPECT_EQ(wrapAt4({}, "x = \"aaaaaa\" \"bbbbbb\";"), "x = \"aaaaaa\"\n        \"bbbbbb\";");
    EXPECT_EQ(wrapAt4({}, "f(\"a\" \"b\")"), "f(\"a\"\n      \"b\")");
    EXPECT_EQ(wrapAt4({}, "f(\"a\" X \"b\")"), "f(\"a\" X \"b\")");
    EXPECT_EQ(wrapAt4({}, "x = \"a\\\n  b\" \"c\""), "x = \"a\\\n  b\"\n        \"c\"");
}

TEST(WrapExpr, NewLinesAreMadeOfTabsWhereTheTextIs) {
    Zelmar::IndentStreamState state = placeAt(8);
    state.wsMode = 2;
    state.indent = "\t\t";
    CppExprLineWrapper wrapper(schemeOf({.margin = 24}));
    EXPECT_EQ(wrapper.wrap("fffff(aaaa, bbbbb)", state, false, false), "fffff(aaaa,\n\t\t\t  bbbbb)");
    state.wsMode = 1;
    EXPECT_EQ(wrapper.wrap("fffff(aaaa, bbbbb)", state, false, false), "fffff(aaaa,\n              bbbbb)");
}

TEST(WrapExpr, TabsInTheLineAreMeasuredFromWhereTheyStand) {
    EXPECT_EQ(wrapAt4({.margin = 16}, "f(aa,\tbbbb, cc,\td)"), "f(aa,\n      bbbb,\n      cc,\n      d)");
    EXPECT_EQ(wrapAt4({.margin = 17}, "a\t+ bb + cc"), "a\t+ bb + cc");
    EXPECT_EQ(wrapAt4({.margin = 16}, "a\t+ bb + cc"), "a\t+\n    bb +\n    cc");
}

// ---- Lists ----

TEST(WrapList, StrategiesKeepFillOrPutOneToALine) {
    const std::string list = "11, 22, 33, 44";
    EXPECT_EQ(listAt(11, {.strategy = 0}, list), list);
    EXPECT_EQ(listAt(11, {.strategy = 1}, list), "11, 22,\n           33, 44");
    EXPECT_EQ(listAt(11, {.strategy = 2}, list), "11,\n           22,\n           33,\n           44");
    EXPECT_EQ(listAt(11, {.strategy = 5}, list), list);
}

TEST(WrapList, FillsInFrontOfTheComma) {
    EXPECT_EQ(listAt(11, {.comma = 1, .strategy = 1}, "11, 22, 33, 44"), "11, 22\n         , 33, 44");
    EXPECT_EQ(listAt(11, {.comma = 0, .strategy = 1}, "11, 22, 33, 44"), "11, 22, 33, 44");
}

TEST(WrapList, FillingLeavesLinesThatFit) {
    EXPECT_EQ(listAt(4, {.strategy = 1}, "1, 2,\n  3, // c\n  44444, 55555, 66666"),
              "1, 2,\n  3, // c\n  44444, 55555,\n    66666");
}

TEST(WrapList, TextThatFitsComesOutAsItIs) {
    const std::string list = "1,\n 2 , 3";
    for (const int strategy : {0, 1, 2}) EXPECT_EQ(listAt(4, {.strategy = strategy}, list), list);
}

// ---- Statement parts ----

std::string partsAt5(const std::string& text) {
    return CppExprLineWrapper(schemeOf({})).wrapStatementParts(text, placeAt(5), ") {");
}

TEST(WrapParts, BreakAtSemicolonsFirst) {
    EXPECT_EQ(partsAt5("int i = 0; i < n; i++"), "int i = 0;\n     i < n;\n     i++");
    EXPECT_EQ(partsAt5("i = 0; aaaaaa && bbbbbb; i++"), "i = 0;\n     aaaaaa &&\n     bbbbbb;\n     i++");
}

TEST(WrapParts, ThatFitOrHaveNothingBetweenThemStay) {
    EXPECT_EQ(partsAt5("; i < n;"), "; i < n;");
    EXPECT_EQ(partsAt5(";;"), ";;");
}

} // namespace
