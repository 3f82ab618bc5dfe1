#include "cli/run/Cli_TokenCheck.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct CheckCase {
    const char* name;
    const char* source;
    const char* result;
    /// Line and column of the first difference, or 0 and 0.
    Trn::Position difference;
};

const CheckCase kCases[] = {
    {"SameText", "int a;", "int a;", {0, 0}},
    {"MovedSpace", "int a ;\n", "int\na;", {0, 0}},
    {"Glued", "int a;", "inta;", {1, 1}},
    {"GluedOperators", "b = a - -c;", "b = a --c;", {1, 7}},
    {"LostSemicolon", "a;\nb;\n", "a;\nb\n", {2, 2}},
    {"LostEnd", "a; b", "a;", {1, 4}},
    {"AddedEnd", "a;", "a; b", {1, 3}},
    {"ChangedString", "a = \"b  c\";", "a = \"b c\";", {1, 5}},
    {"CommentMoved", "/* a\n   b */", "/* a\n       b */", {0, 0}},
    {"CommentChanged", "/* a\n   b */", "/* a\n   c */", {1, 1}},
    {"CommentWordsGlued", "/* a b */", "/* ab */", {1, 1}},
    {"LineCommentLostItsEnd", "// a\nb;", "// a b;", {1, 1}},
    {"DirectiveContinuationMoved", "#define A \\\n  b\n", "#define A \\\n      b\n", {0, 0}},
    {"DirectiveStringChanged", "#define A \"b\\\n\tc\"\n", "#define A \"b\\\n    c\"\n", {1, 1}},
    {"DirectiveBehindStringMoved", "#define A \"b\" \\\n\tc\n", "#define A \"b\" \\\n    c\n", {0, 0}},
    {"DirectiveStringEndsInBackslash", "#define A \"\\\\\" \\\n\tc\n", "#define A \"\\\\\" \\\n    c\n", {0, 0}},
    {"DirectiveQuoteCharacter", "#define A '\"' \\\n\tc\n", "#define A '\"' \\\n    c\n", {0, 0}},
    {"DirectiveEscapedQuoteCharacter", "#define A '\\\"' \\\n\tc\n", "#define A '\\\"' \\\n    c\n", {0, 0}},
    {"DirectiveQuoteThatNothingCloses", "#error 5\" \\ \n\tc\n", "#error 5\" \\ \n    c\n", {0, 0}},
    {"LastLineEndIsNoToken", "#endif\n", "#endif", {0, 0}},
    {"StrayCharacterLost", "a; @\nb;", "a;\nb;", {1, 3}},
    {"StrayCharacterMoved", "a @ b;", "a\n@ b;", {0, 0}},
    {"GuardedLineEndJoined", "a \\\nb;", "a \\ b;", {1, 2}},
    {"MacroGetsArguments", "#define A (b)\n", "#define A(b)\n", {1, 1}},
};

class TokenCheck : public testing::TestWithParam<CheckCase> {};

TEST_P(TokenCheck, FindsTheFirstDifference) {
    const auto place = Cli::firstTokenDifference(GetParam().source, GetParam().result);
    EXPECT_EQ(place.has_value(), !GetParam().difference.isNone());
    if (place) {
        EXPECT_EQ(place->line, GetParam().difference.line);
        EXPECT_EQ(place->column, GetParam().difference.column);
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, TokenCheck, testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TokenCheckCost, AQuoteThatNothingClosesIsSearchedOnce) {
    std::string source = "#error \"";
    for (int i = 0; i < 1000000; ++i) source += "\\\"";
    EXPECT_FALSE(Cli::firstTokenDifference(source + " x\n", source + "  x\n"));
}

} // namespace
