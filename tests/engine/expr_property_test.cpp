#include "tests/engine/ExprTestTools.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace Norvane {
namespace {

const char* const kPieces[] = {
    "a", "b", "foo", "A::B", "::c", "A::", "int", "char", "const", "unsigned", "auto", "1", "0x1F", "1.5e+3f",
    "\"s\"", "'c'", "L\"w\"", "R\"(x\n  y)\"", "+", "-", "*", "&", "&&", "||", "!", "~", "/", "%", "<", ">",
    "<<", ">>", "<=", ">=", "==", "!=", "=", "+=", "|", "^", "?", ":", ",", ";", ".", "->", "++", "--",
    "(", ")", "[", "]", "{", "}", "(", ")", "(", ")", "<", ">", "f(", "={", "}", "a<", "operator", "new",
    "sizeof", "return", "throw", "static_cast", "template", "if", "/* c */", "/* d\n    e */", "// l\n",
    "#define X 1\n", "größe", "foo$bar", "\\\n", "@", "'un\n", "\"un\n", "123abc", ".*", "->*", "...",
};

const char* const kSpaces[] = {"", "", "", " ", " ", " ", "  ", "\n", "\n    ", "\t", "\n\n  "};

const char* const kValues[] = {"", " ", "  ", "\n", "\t"};

const char* const kWhiteSpaceOptions[] = {
    "WS_BETWEEN_EXPR_OP_OPERANDS", "WS_AFTER_FN_CALL_NAME", "WS_BEFORE_FN_CALL_COMMA",
    "WS_BETWEEN_FN_CALL_ARGS", "WS_AFTER_EXPR_OPEN_PAREN", "WS_BEFORE_EXPR_CLOSE_PAREN",
    "WS_AFTER_LBRACKET", "WS_BEFORE_RBRACKET", "WS_AFTER_TP_OPEN_BRACKET", "WS_BEFORE_TP_CLOSE_BRACKET",
    "WS_BETWEEN_TP_PARAMS", "WS_BEFORE_DD_OPEN_BRACE", "WS_AFTER_DD_OPEN_BRACE",
    "WS_BEFORE_DD_CLOSE_BRACE", "WS_BEFORE_DD_COMMA", "WS_BETWEEN_DD_ELEMENTS",
};

/// Random texts, schemes and places, the same in every run of the test.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    std::size_t below(std::size_t count) { return engine_() % count; }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <class T, std::size_t N> const T& pick(const T (&all)[N]) { return all[below(N)]; }

    std::string text() {
        std::string result;
        for (std::size_t count = below(24); count > 0; --count) {
            result += pick(kSpaces);
            result += pick(kPieces);
        }
        return result + pick(kSpaces);
    }

    PropertySet scheme() {
        PropertySet scheme;
        const std::size_t rarity = 1 + below(6);
        for (const char* name : kWhiteSpaceOptions) {
            if (oneIn(rarity)) scheme.setString(name, pick(kValues));
        }
        if (oneIn(2)) setAnchor(scheme, "ASTERISK_ANCHOR", "WS_BETWEEN_ASTERISK_ANCHOR");
        if (oneIn(2)) setAnchor(scheme, "AMPERSAND_ANCHOR", "WS_BETWEEN_AMPERSAND_ANCHOR");
        if (oneIn(3)) scheme.setBool("ALIGN_PPD_LEFT_MOST", oneIn(2));
        if (oneIn(3)) scheme.setString("LEFT_MARGIN", "");
        if (oneIn(2)) scheme.setString("INDENT_DD_CONTENT", oneIn(2) ? "  " : "\t");
        if (oneIn(4)) scheme.setBool("LINE_WRAP", true);
        scheme.setInt("TAB_SIZE", 4);
        return scheme;
    }

    Zelmar::IndentStreamState place(std::string_view text) {
        Zelmar::IndentStreamState state = stateAt(static_cast<int>(below(3)) * 4, oneIn(2));
        if (state.keepLeadingWs) state.indent.clear();
        // The writer that converts white space knows literals by their quotes alone.
        const bool oddQuotes = text.find('\'') != text.npos || text.find("\"un") != text.npos;
        const bool rawStrings = text.find("R\"") != text.npos;
        if (!oddQuotes && !rawStrings) state.wsMode = static_cast<int>(below(3));
        if (oneIn(2)) state.column = static_cast<int>(below(3)) * 4 + 2;
        return state;
    }

private:
    void setAnchor(PropertySet& scheme, const char* anchor, const char* ws) {
        scheme.setInt(anchor, static_cast<int>(below(3)) - 1);
        scheme.setString(ws, oneIn(2) ? "" : " ");
    }

    std::mt19937 engine_;
};

std::string schemeText(const PropertySet& scheme) {
    std::ostringstream text;
    scheme.write(text);
    return text.str();
}

std::string placeText(const Zelmar::IndentStreamState& state) {
    return "column " + std::to_string(state.column) + ", indent " + std::to_string(state.indent.size()) +
           ", mode " + std::to_string(state.wsMode) + (state.keepLeadingWs ? ", white space kept" : "");
}

std::string layOut(CppExprFormatter& formatter, const std::string& text,
                   const Zelmar::IndentStreamState& state, const OptionalString* separator) {
    return separator ? formatter.formatDeclaration(text, state, *separator) : formatter.format(text, state);
}

class RandomText : public testing::TestWithParam<int> {};

TEST_P(RandomText, KeepsItsTokensAndSettles) {
    constexpr unsigned kRounds = 1500;
    for (unsigned round = 0; round < kRounds; ++round) {
        Dice dice(static_cast<unsigned>(GetParam()) * kRounds + round);
        const std::string text = dice.text();
        const PropertySet scheme = dice.scheme();
        const Zelmar::IndentStreamState state = dice.place(text);
        const OptionalString separators[] = {{false, ""}, {true, " "}, {true, "\n"}};
        const OptionalString* const separator = dice.oneIn(2) ? &dice.pick(separators) : nullptr;
        CppExprFormatter formatter(scheme);

        const std::string once = layOut(formatter, text, state, separator);
        SCOPED_TRACE("scheme:\n" + schemeText(scheme) + placeText(state) + "\ntext: [" + text + "]\nonce: [" +
                     once + "]" + (separator ? "\ndeclaration [" + separator->value + "]" : ""));
        ASSERT_EQ(withoutSpace(once), withoutSpace(text));
        ASSERT_EQ(tokenTexts(once), tokenTexts(text));
        ASSERT_EQ(layOut(formatter, once, state, separator), once);
    }
}

INSTANTIATE_TEST_SUITE_P(ExprFormatter, RandomText, testing::Range(0, 4));

TEST(ExprFormatterBase, RandomListsKeepTheirTokensAndSettle) {
    constexpr unsigned kRounds = 4000;
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        Dice dice(seed);
        const std::string text = dice.text();
        const OptionalString before{dice.oneIn(2), dice.pick(kValues)};
        const OptionalString between{dice.oneIn(2), dice.pick(kValues)};
        CppExprFormatter formatter(dice.scheme());
        const Zelmar::IndentStreamState state = dice.oneIn(2) ? stateAt(4) : stateAt(0, true);
        const bool aligned = dice.oneIn(2);
        const auto layOutList = [&](const std::string& list) {
            return aligned ? formatter.formatAlignedList(list, Cpp::tkComma, before, between, state)
                           : formatter.formatList(list, Cpp::tkComma, before, between, state);
        };
        const std::string once = layOutList(text);
        SCOPED_TRACE(placeText(state) + (aligned ? ", aligned" : "") + "\nbefore [" + before.value + "] " +
                     (before.set ? "set" : "unset") + ", between [" + between.value + "] " +
                     (between.set ? "set" : "unset") + "\ntext: [" + text + "]\nonce: [" + once + "]");
        ASSERT_EQ(tokenTexts(once), tokenTexts(text));
        ASSERT_EQ(layOutList(once), once);
    }
}

TEST(ExprFormatter, AnEmptySchemeChangesNothing) {
    CppExprFormatter formatter{PropertySet()};
    for (unsigned seed = 0; seed < 4000; ++seed) {
        const std::string text = Dice(seed).text();
        ASSERT_EQ(formatter.format(text, stateAt(0, true)), text);
        ASSERT_EQ(formatter.formatDeclaration(text, stateAt(0, true), OptionalString()), text);
    }
}

} // namespace
} // namespace Norvane
