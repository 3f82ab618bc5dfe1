#include "ui/NorvaneUI_WhiteSpaceEntry.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace NorvaneUI;

struct EntryCase {
    const char* name;
    const char* typed;
    const char* stored;
    bool isWhiteSpace;
};
const EntryCase kEntries[] = {
    {"Empty", "", "", true},
    {"Newline", "\\n", "\n", true},
    {"CarriageReturn", "\\r", "\r", true},
    {"Space", "\\s", " ", true},
    {"Tab", "\\t", "\t", true},
    {"SeveralEscapes", "\\n\\n\\s\\s", "\n\n  ", true},
    {"TypedAsItIs", " \t", " \t", true},
    {"Letter", "x", "x", false},
    {"LetterBehindWhiteSpace", "\\s x", "  x", false},
    {"Quote", "\\\"", "\"", false},
    {"BackslashAtTheEnd", "\\s\\", " ", true},
    {"OnlyABackslash", "\\", "", true},
    {"EscapedBackslash", "\\\\", "\\", false},
    // There is no escape for a vertical tab.
    {"BackslashBeforeAnotherLetter", "\\v", "v", false},
    {"VerticalTabAndFormFeed", "\v\f", "\v\f", true},
};

class Entry : public testing::TestWithParam<EntryCase> {};

TEST_P(Entry, IsDecodedAndJudged) {
    const std::string value = decodeWhiteSpace(GetParam().typed);
    EXPECT_EQ(value, GetParam().stored);
    EXPECT_EQ(isWhiteSpaceOnly(value), GetParam().isWhiteSpace);
}

INSTANTIATE_TEST_SUITE_P(WhiteSpace, Entry, testing::ValuesIn(kEntries),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WhiteSpace, IsShownWithEscapes) {
    EXPECT_EQ(encodeWhiteSpace("\n\r\t "), "\\n\\r\\t\\s");
    EXPECT_EQ(encodeWhiteSpace("\v\f"), "\v\f");
    EXPECT_EQ(encodeWhiteSpace("a\\"), "a\\\\");
}

// A field that is opened and left again must not change the value, whatever it holds.
TEST(WhiteSpace, ShownAndReadBackIsTheSame) {
    std::mt19937 random(7);
    constexpr std::string_view characters = " \n\r\t\v\f\\\"'nrstvx";
    for (int run = 0; run < 2000; ++run) {
        std::string value;
        for (auto length = random() % 8; length > 0; --length) value += characters[random() % characters.size()];
        ASSERT_EQ(decodeWhiteSpace(encodeWhiteSpace(value)), value);
    }
}

} // namespace
