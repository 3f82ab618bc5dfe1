#include "src/wrap/Norvane_CppExprLineWrapper.h"

#include "cpp/Cpp_Scanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Norvane::CppExprLineWrapper;
using Norvane::PropertySet;

PropertySet schemeOf(int wrap, int comma, int expr, int shift, int strategy, int margin) {
    PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    scheme.setInt("RIGHT_MARGIN", margin);
    scheme.setInt("WRAP_STYLE", wrap);
    scheme.setInt("COMMA_WRAP_STYLE", comma);
    scheme.setInt("EXPR_WRAP_STYLE", expr);
    scheme.setInt("SHIFT_WRAP_STYLE", shift);
    scheme.setInt("LIST_WRAP_STRATEGY", strategy);
    scheme.setString("WRAP_INDENT", "\t");
    return scheme;
}

Zelmar::IndentStreamState stateOf(int column, int wsMode) {
    Zelmar::IndentStreamState state;
    state.indent = "  ";
    state.tabSize = 4;
    state.column = column;
    state.wsMode = wsMode;
    return state;
}

/// Without what stands in front of the further lines of a comment, which move with the first.
std::string withoutMargins(std::string_view comment) {
    std::string result;
    for (const char c : comment) {
        const bool inMargin = !result.empty() && result.back() == '\n' && (c == ' ' || c == '\t');
        if (!inMargin) result += c;
    }
    return result;
}

/// The tokens with their text. Comments and directives bring their line feed, so one that took in
/// what stood on the next line, or lost its own, shows.
std::string tokensOf(std::string_view text) {
    std::vector<Cpp::RawToken> tokens;
    Cpp::scanAll(text, tokens);
    std::string result;
    for (const Cpp::RawToken& token : tokens) {
        result += std::to_string(token.type) + ':';
        const std::string_view range = text.substr(token.begin, token.end - token.begin);
        result += token.type == Cpp::tkBlockComment ? withoutMargins(range) : std::string(range);
        result += ' ';
    }
    return result;
}

/// What is no white space, in order: also what forms no token.
std::string inkOf(std::string_view text) {
    std::string ink;
    for (const char c : text) {
        if (!Cpp::isSpace(c)) ink += c;
    }
    return ink;
}

std::string randomText(std::mt19937& random) {
    static constexpr std::array kPieces = {
        "a", "bbbb", "f(", "(", ")", "{", "}", "[", "]", ",", ";", "&&", "||", "+", "-", "*", "&", "<<", ">>",
        "<", ">", "=", ">=", "?", ":", "int", "\"str\"", "'c'", "42", "1.5e+3", "x::y", "static_cast<T>(",
        "/* c */", "/* c\n   d */", "// c\n", "\n#if X\n", "\n#endif\n", "return", "vector<int>", "$",
        "\\\n", "\xC3\xB6",
        "\"a\\\n b\"", "R\"(r\n  s)\"", "->", "++", "\n", "\t", "  ", "'", "\"open\n",
    };
    std::string text;
    for (std::size_t count = random() % 30; count > 0; --count) {
        text += kPieces[random() % kPieces.size()];
        if (random() % 4 != 0) text += ' ';
    }
    return text;
}

TEST(WrapProperty, OnlyWhiteSpaceChangesAndNoTokenStandsOtherwise) {
    std::mt19937 random(20240517);
    for (int round = 0; round < 6000; ++round) {
        const auto pick = [&random](unsigned count) { return static_cast<int>(random() % count); };
        const int margin = 1 + pick(40);
        CppExprLineWrapper wrapper(schemeOf(pick(3), pick(3), pick(3), pick(3), pick(3), margin));
        const Zelmar::IndentStreamState state = stateOf(pick(30), pick(3));
        const std::string text = randomText(random);
        const std::string wrapped = round % 3 == 0   ? wrapper.wrap(text, state, false, false, ");")
                                    : round % 3 == 1 ? wrapper.wrapList(text, state, true)
                                                     : wrapper.wrapStatementParts(text, state);
        ASSERT_EQ(inkOf(wrapped), inkOf(text)) << text;
        ASSERT_EQ(tokensOf(wrapped), tokensOf(text)) << text << "\n-> " << wrapped;
    }
}

// ---- Cost ----

std::string repeated(std::string_view piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
}

double secondsFor(const std::string& text) {
    CppExprLineWrapper wrapper(schemeOf(1, 2, 2, 1, 0, 80));
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        const std::clock_t start = std::clock();
        const std::string wrapped = wrapper.wrap(text, stateOf(4, 0), false, false);
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        EXPECT_EQ(inkOf(wrapped), inkOf(text));
    }
    return best;
}

struct CostCase {
    const char* name;
    std::string (*text)(int count);
};

const CostCase kCosts[] = {
    {"Sum", [](int n) { return "x = " + repeated("aa + ", n) + "b;"; }},
    {"SumWithTabs", [](int n) { return "x = " + repeated("aa\t+ ", n) + "b;"; }},
    {"Logicals", [](int n) { return "x = " + repeated("aa && ", n) + "b;"; }},
    {"Shifts", [](int n) { return "cout" + repeated(" << aaaa", n); }},
    {"Calls", [](int n) { return "x = " + repeated("f(aa, bb) + ", n) + "b;"; }},
    {"NestedCalls", [](int n) { return repeated("f(a, ", n) + "b" + repeated(")", n); }},
    {"NestedParens", [](int n) { return repeated("(", n) + "a" + repeated(")", n); }},
    {"NestedBraces", [](int n) { return repeated("{", n) + "aa, b" + repeated("}", n); }},
    {"OpenParens", [](int n) { return repeated("f(", n); }},
    {"OpenAngles", [](int n) { return repeated("a<", n); }},
    {"Comparisons", [](int n) { return "f(" + repeated("a < b, ", n) + "b);"; }},
};

class WrapCost : public testing::TestWithParam<CostCase> {};

// Eight times the text would cost 64 times as much if some step looked at all of it again for each
// token; the bound leaves room for a busy machine.
TEST_P(WrapCost, GrowsWithTheText) {
    const double small = secondsFor(GetParam().text(2000));
    const double large = secondsFor(GetParam().text(16000));
    EXPECT_LT(large, 32 * small + 0.01);
}

INSTANTIATE_TEST_SUITE_P(WrapProperty, WrapCost, testing::ValuesIn(kCosts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WrapProperty, DeepNestingDoesNotOverflowTheStack) {
    for (const char* open : {"(", "{", "[", "f(", "a<", "{f("}) {
        const std::string text = repeated(open, 100000);
        CppExprLineWrapper wrapper(schemeOf(1, 2, 2, 1, 2, 80));
        EXPECT_EQ(inkOf(wrapper.wrapList(text, stateOf(0, 0), false)), text);
    }
}

} // namespace
