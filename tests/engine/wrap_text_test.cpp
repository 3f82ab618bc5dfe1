#include "src/wrap/Norvane_WrapFinders.h"
#include "src/wrap/Norvane_WrapText.h"

#include "cpp/Cpp_Tokens.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace Norvane;

// ---- Brackets ----

/// The text with each bracket that has a mate in square quotes, such as "f[(]a[)]".
std::string pairsOf(std::string_view source) {
    const WrapText text(source);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text.gap(i);
        const bool paired = text.opens(i) || text.closes(i);
        if (paired && text.mate(i) != WrapText::npos) {
            result += '[' + std::string(text.token(i)) + ']';
        } else {
            result += text.token(i);
        }
    }
    return result + std::string(text.gap(text.size()));
}

struct PairCase {
    const char* name;
    const char* source;
    const char* paired;
};

const PairCase kPairs[] = {
    {"Nested", "f(a[1], {2})", "f[(]a[[]1[]], [{]2[}][)]"},
    {"UnclosedStaysAlone", "f(a, b", "f(a, b"},
    {"StrayCloseStaysAlone", "a), (b)", "a), [(]b[)]"},
    {"OfTwoKindsDoNotPair", "(a], b)", "[(]a], b[)]"},
    {"TemplateBehindAName", "vector<int> v", "vector[<]int[>] v"},
    {"NoNameNoTemplate", "1 < 2 > 0", "1 < 2 > 0"},
    {"OneCloseForTwoTemplates", "map<int, vector<int>> m", "map[<]int, vector[<]int[>>] m"},
    {"ShiftIsNoClose", "a >> b", "a >> b"},
    {"LogicalOperatorEndsTheLook", "a < b && c > d", "a < b && c > d"},
    {"SemicolonEndsTheLook", "a < b; c > d", "a < b; c > d"},
    {"ComparisonsInBracketsOfTheirOwn", "(a < b) + (c > d)", "[(]a < b[)] + [(]c > d[)]"},
    {"LogicalOperatorInInnerBracketsDoesNot", "f<(a && b)>(x)", "f[<][(]a && b[)][>][(]x[)]"},
    {"CastWhateverIsInIt", "static_cast<T &&>(x)", "static_cast[<]T &&[>][(]x[)]"},
    {"CommentDoesNotHideTheName", "f /* c */ <int> x", "f /* c */ [<]int[>] x"},
};

class WrapTextPairs : public testing::TestWithParam<PairCase> {};

TEST_P(WrapTextPairs, AreFound) {
    EXPECT_EQ(pairsOf(GetParam().source), GetParam().paired);
}

INSTANTIATE_TEST_SUITE_P(WrapText, WrapTextPairs, testing::ValuesIn(kPairs),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WrapText, HoldsWhatIsNoTokenAsOne) {
    const WrapText text("a \\\n @ + gr\xC3\xB6n");
    std::string outline;
    for (std::size_t i = 0; i < text.size(); ++i) {
        outline += (text.isJunk(i) ? "!" : "") + std::string(text.token(i)) + '|';
    }
    EXPECT_EQ(outline, "a|!\\\n @|+|gr\xC3\xB6n|");
    EXPECT_EQ(text.kind(text.size()), Cpp::tkEnd);
}

// ---- Groups ----

std::string groupsOf(std::string_view source, GroupFinder::Brackets brackets, std::size_t depth) {
    const WrapText text(source);
    GroupFinder groups(text, brackets, text.all(), depth);
    std::string result;
    while (groups.findNext()) {
        result += groups.precedingIsName() ? "name:" : "";
        for (std::size_t i = groups.inner().begin; i < groups.inner().end; ++i) result += text.token(i);
        result += ' ';
    }
    return result;
}

TEST(GroupFinder, WalksThePairsOfOneDepth) {
    const char* const source = "f(g(a), h(b)) + (c) * k(d)";
    EXPECT_EQ(groupsOf(source, GroupFinder::Brackets::kParens, 1), "name:g(a),h(b) c name:d ");
    EXPECT_EQ(groupsOf(source, GroupFinder::Brackets::kParens, 2), "name:a name:b ");
    EXPECT_EQ(groupsOf(source, GroupFinder::Brackets::kParens, 3), "");
    EXPECT_EQ(groupsOf("{{1}, {2}}", GroupFinder::Brackets::kBraces, 2), "1 2 ");
}

TEST(GroupFinder, SkipsParenthesesInSquareBracketsAndUnclosedOnes) {
    EXPECT_EQ(groupsOf("a[f(x)] + g(y) + (z", GroupFinder::Brackets::kParens, 1), "name:y ");
}

TEST(GroupFinder, StaysInItsRange) {
    const WrapText text("f(a); g(b); h(c)");
    GroupFinder groups(text, GroupFinder::Brackets::kParens, {5, 10}, 1);
    ASSERT_TRUE(groups.findNext());
    EXPECT_EQ(text.token(groups.preceding()), "g");
    EXPECT_FALSE(groups.findNext());
}

// ---- Places to break ----

/// The text with "|" behind each place that searches one behind the other find.
std::string breaksOf(std::string_view source, FirstWrapToken& finder) {
    const WrapText text(source);
    std::string result;
    WrapRange rest = text.all();
    while (!rest.empty()) {
        const std::size_t found = finder.find(text, rest);
        for (std::size_t i = rest.begin; i <= found && i < text.size(); ++i) {
            result += std::string(text.gap(i)) + std::string(text.token(i));
        }
        if (found < rest.end) result += '|';
        rest.begin = found + 1;
    }
    return result;
}

struct BreakCase {
    const char* name;
    const char* source;
    const char* broken;
};

class BinaryBreaks : public testing::TestWithParam<BreakCase> {};

TEST_P(BinaryBreaks, AreBetweenOperands) {
    FindFirstBinaryOp finder;
    EXPECT_EQ(breaksOf(GetParam().source, finder), GetParam().broken);
}

const BreakCase kBinaryBreaks[] = {
    {"Chain", "a + b - c", "a +| b -| c"},
    {"SignBehindOperator", "a - -b", "a -| -b"},
    {"SignBehindLogical", "a && -b", "a && -b"},
    {"SignBehindComment", "/* c */ -b", "/* c */ -b"},
    {"SignAtTheStart", "-a + b", "-a +| b"},
    {"SignBehindCloseParen", "(a) - b", "(a) -| b"},
    {"SignBehindPostfix", "i++ - j", "i++ -| j"},
    {"SignBehindShift", "a >> -b", "a >> -b"},
    {"Conditional", "p ? q : r", "p ?| q :| r"},
    {"Comparison", "a < b", "a <| b"},
    {"TemplateIsNone", "vector<int> + b", "vector<int> +| b"},
    {"ShiftHasItsOwnWay", "a << b + c", "a << b +| c"},
    {"ProductAndMember", "a * b & c->d", "a * b & c->d"},
    {"InBracketsNone", "f(a + b) + g[c / d]", "f(a + b) +| g[c / d]"},
    {"BehindUnclosedBracketNone", "a + (b + c", "a +| (b + c"},
    {"BehindStrayBracketNone", "a + b) + c", "a +| b) + c"},
};

INSTANTIATE_TEST_SUITE_P(Finders, BinaryBreaks, testing::ValuesIn(kBinaryBreaks),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Finders, OfTwoAdjacentMembersNeitherIsABreak) {
    FindFirstElem commas(WrapKinds{Cpp::tkComma});
    EXPECT_EQ(breaksOf("a, b,, c, d", commas), "a,| b,, c,| d");
}

TEST(Finders, CastsBreakBehindTheirType) {
    FindFirstCast casts;
    EXPECT_EQ(breaksOf("a + static_cast<f<int>>(x) + (T) y", casts), "a + static_cast<f<int>>|(x) + (T) y");
    FindFirstOldCast oldCasts;
    EXPECT_EQ(breaksOf("(int) x + f(y) z + ((a)) b", oldCasts), "(int)| x + f(y) z + ((a))| b");
    EXPECT_EQ(breaksOf("(f(x)) y + (a) - b", oldCasts), "(f(x)) y + (a) - b");
}

} // namespace
