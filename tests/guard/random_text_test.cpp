#include "guard/Guard_Difference.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// A directive and a line comment bring their line feed along, a directive the one in front too.
constexpr std::string_view kPieces[] = {
    "a", "b1", "\xc3\xa4", "R", "u8", "L", "0b1'0", "1e+5", ".5", "7_km", "\"s t\"", "L\"x\\\"\"", "'c'", "u8R\"d( \n )\" )d\"", "\"x\"_s",
    "+", "++", "-", "->*", "<", "<:", ":", "::", "%", "%>", ".", "...", "<=>", ">", ">>=", "/", "*", "=", "&", "##", "@",
    "(", ")", "[", "]", ";", "\\", "\\u00e4", "do\\\nne", "/* c\n d */", "// l\n", "// l \\\n m\n", "\n#define F(x) x\n", "\n#if a \\\n b\n",
    "\n#error don't\n", "\n#include <a b>\n", " \\\n",
};
constexpr std::string_view kWhite[] = {" ", "\n", "\t", "  \n", "\n\n ", "\f", "\v "};

using Random = std::mt19937;

template <class Choices> auto pick(Random& random, const Choices& choices) {
    return choices[std::uniform_int_distribution<std::size_t>(0, std::size(choices) - 1)(random)];
}

using Pieces = std::vector<std::string_view>;

// A backslash in front of a line feed would be a splice.
std::string spread(Random& random, const Pieces& pieces) {
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
        text += piece == "\\" ? " . " : pick(random, kWhite);
    }
    return text;
}

class RandomText : public testing::TestWithParam<unsigned> {
protected:
    RandomText() : random(GetParam()) {
        for (int i = 0; i < 12; ++i) pieces.push_back(pick(random, kPieces));
        text = spread(random, pieces);
    }

    Random random;
    Pieces pieces;
    std::string text;
};

TEST_P(RandomText, MayBeSpacedInAnyWay) {
    for (int i = 0; i < 20; ++i) {
        const std::string other = spread(random, pieces);
        EXPECT_FALSE(Guard::firstDifference(text, other)) << '[' << text << "]\n[" << other << ']';
    }
}

TEST_P(RandomText, LosesNoVisibleByte) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (std::string_view(" \t\n\f\v").find(text[at]) != std::string_view::npos) continue;
        const std::string other = std::string(text).erase(at, 1);
        EXPECT_TRUE(Guard::firstDifference(text, other)) << '[' << text << "]\n[" << other << ']';
    }
}

TEST_P(RandomText, GetsNoVisibleByte) {
    for (std::size_t at = 0; at <= text.size(); ++at) {
        const std::string other = std::string(text).insert(at, 1, pick(random, std::string_view("a0'\"/*\\#.+<:")));
        EXPECT_TRUE(Guard::firstDifference(text, other)) << '[' << text << "]\n[" << other << ']';
    }
}

TEST_P(RandomText, HasNoTokenSplit) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::string_view piece = pieces[i];
        if (piece.find_first_of(" \n") != std::string_view::npos || piece == "<:" || piece.size() < 2) continue;
        for (std::size_t at = 1; at < piece.size(); ++at) {
            const std::string split = std::string(piece).insert(at, " ");
            Pieces other = pieces;
            other[i] = split;
            EXPECT_TRUE(Guard::firstDifference(text, spread(random, other))) << '[' << text << "]\n[" << split << ']';
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomText, testing::Range(0u, 200u));

} // namespace
