#include "streams/Zelmar_SourceText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Trn::Position;
using Zelmar::SourceReader;
using Zelmar::SourceText;

std::string normalised(std::string text) {
    Zelmar::normaliseLineEnds(text);
    return text;
}

TEST(LineEnds, EachKindGivesOneLineFeed) {
    EXPECT_EQ(normalised("a\r\nb\rc\nd"), "a\nb\nc\nd");
    EXPECT_EQ(normalised("\r\r\n\n\r"), "\n\n\n\n");
    EXPECT_EQ(normalised("no return"), "no return");
    EXPECT_EQ(normalised(""), "");
}

TEST(LineEnds, APairAcrossTwoReadsIsStillOne) {
    const std::string front(65535, 'x');
    std::istringstream in(front + "\r\nb");
    EXPECT_EQ(Zelmar::readAll(in), front + "\nb");
}

TEST(ReadAll, TakesNulAndHighBytes) {
    const std::string text("a\0\xff\x80z", 5);
    std::istringstream in(text);
    EXPECT_EQ(Zelmar::readAll(in), text);
}

TEST(SourceText, EveryOffsetComesBackFromItsPlace) {
    for (const char* text : {"", "a", "\n", "ab\n\ncd", "ab\n", "\n\n\nx\n"}) {
        SCOPED_TRACE(text);
        const SourceText source{std::string(text)};
        for (std::size_t i = 0; i < source.size(); ++i) EXPECT_EQ(source.offsetOf(source.positionOf(i)), i);
    }
}

TEST(SourceText, PlacesGrowWithTheTextAndALineFeedOpensTheNextLine) {
    const SourceText source("ab\nc");
    EXPECT_EQ(source.positionOf(0), (Position{1, 1}));
    EXPECT_EQ(source.positionOf(1), (Position{1, 2}));
    EXPECT_EQ(source.positionOf(2), (Position{2, 0}));
    EXPECT_EQ(source.positionOf(3), (Position{2, 1}));
    EXPECT_EQ(source.positionOf(4), (Position{2, 2}));
}

TEST(SourceText, PlacesOutsideTheText) {
    const SourceText source("ab\nc");
    EXPECT_EQ(source.offsetOf({0, 0}), SourceText::npos);
    EXPECT_EQ(source.offsetOf({1, 0}), SourceText::npos);
    EXPECT_EQ(source.offsetOf({2, 9}), source.size());
    EXPECT_EQ(source.offsetOf({3, 0}), source.size());
    EXPECT_EQ(source.offsetOf({9, 9}), source.size());
}

TEST(SourceReader, ReadsUpToAndThroughAPlace) {
    const SourceText source("ab\ncd");
    SourceReader reader(source);
    EXPECT_EQ(reader.readUpTo({1, 2}), "a");
    EXPECT_EQ(reader.peekUpTo({2, 1}), "b\n");
    EXPECT_EQ(reader.readThrough({2, 0}), "b\n");
    EXPECT_EQ(reader.readThrough({2, 1}), "c");
    EXPECT_EQ(reader.readRest(), "d");
    EXPECT_EQ(reader.readRest(), "");
}

// A comment ends at the line feed, which is column 0 of the next line: counting columns down from
// there would run off to the end of the text.
TEST(SourceReader, APlaceAtColumnZeroIsTheLineFeedInFront) {
    const SourceText source("x\ny\nz");
    SourceReader reader(source);
    EXPECT_EQ(reader.readUpTo({2, 0}), "x");
    EXPECT_EQ(reader.readThrough({2, 0}), "\n");
    EXPECT_EQ(reader.readThrough({2, 0}), "");
}

TEST(SourceReader, PassedPlacesAndNoPlaceReadNothing) {
    const SourceText source("abc");
    SourceReader reader(source);
    reader.readThrough({1, 2});
    EXPECT_EQ(reader.readThrough({1, 1}), "");
    EXPECT_EQ(reader.readUpTo({0, 0}), "");
    EXPECT_EQ(reader.readThrough({0, 0}), "");
    EXPECT_EQ(reader.offset(), 2u);
    EXPECT_EQ(reader.readThrough({7, 7}), "c");
}

} // namespace
