#include "streams/Zelmar_ITextDocStream.h"
#include "streams/Zelmar_LineBuf.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Zelmar::ITextDocStream;
using Zelmar::LineBuf;

using Place = std::pair<int, int>;

Place placeOf(const ITextDocStream& in) {
    return {in.line(), in.column()};
}

std::string readThroughLineBuf(const std::string& text) {
    std::stringbuf source(text);
    LineBuf buffer(&source, LineBuf::kLf);
    std::istream in(&buffer);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

TEST(LineBuf, MakesOneLineFeedOfEveryLineEnd) {
    EXPECT_EQ(readThroughLineBuf("a\r\nb\rc\nd"), "a\nb\nc\nd");
    EXPECT_EQ(readThroughLineBuf("a\r"), "a\n");
    EXPECT_EQ(readThroughLineBuf("\r\r\n\r"), "\n\n\n");
}

TEST(LineBuf, APairAcrossTheEndOfAFillIsOneLineFeed) {
    for (const std::size_t length : {16378u, 16379u, 16380u, 16381u}) {
        SCOPED_TRACE(length);
        const std::string front(length, 'x');
        EXPECT_EQ(readThroughLineBuf(front + "\r\nb"), front + "\nb");
    }
}

TEST(LineBuf, FourCharactersCanBePutBackAcrossAFill) {
    std::stringbuf source(std::string(16377, 'x') + "abcdef");
    LineBuf buffer(&source, LineBuf::kLf);
    for (int i = 0; i < 16380; ++i) buffer.sbumpc();
    ASSERT_EQ(buffer.sgetc(), 'd');
    std::string back;
    for (int i = 0; i < 4; ++i) back += static_cast<char>(buffer.sungetc());
    EXPECT_EQ(back, "cbax");
    EXPECT_EQ(buffer.sungetc(), LineBuf::traits_type::eof());
}

TEST(LineBuf, WritesLineFeedsByItsMode) {
    const std::pair<int, const char*> modes[] = {{1, "a\r\n\r\nb"}, {2, "a\n\nb"}, {0, "a\n\nb"}};
    for (const auto& [mode, expected] : modes) {
        SCOPED_TRACE(mode);
        std::stringbuf target;
        LineBuf buffer(&target, mode);
        std::ostream out(&buffer);
        out << "a\n" << '\n' << 'b';
        EXPECT_EQ(target.str(), expected);
    }
}

TEST(InputStream, CountsLinesFromOneAndColumnsFromZero) {
    ITextDocStream in("a\r\n\tb");
    EXPECT_EQ(placeOf(in), Place(1, 0));
    EXPECT_EQ(in.get(), 'a');
    EXPECT_EQ(placeOf(in), Place(1, 1));
    EXPECT_EQ(in.get(), '\n');
    EXPECT_EQ(placeOf(in), Place(2, 0));
    EXPECT_EQ(in.get(), '\t');
    EXPECT_EQ(placeOf(in), Place(2, 1)) << "a tab is one column wide on input";
    EXPECT_EQ(in.peek(), 'b');
    EXPECT_EQ(placeOf(in), Place(2, 1)) << "a look ahead moves nothing";
}

TEST(InputStream, RaisesAStartThatIsNoPlace) {
    ITextDocStream in("a", 0, 0, 0, -1);
    EXPECT_EQ(placeOf(in), Place(1, 0));
    EXPECT_EQ(in.tabSize(), 1);
    ITextDocStream later("a\nb", 0, 4, 7, 3);
    EXPECT_EQ(placeOf(later), Place(7, 3));
    later.get();
    later.get();
    EXPECT_EQ(placeOf(later), Place(8, 0));
}

TEST(InputStream, UngetOverALineEndBringsTheColumnBack) {
    ITextDocStream in("abc\nd");
    for (int i = 0; i < 5; ++i) in.get();
    EXPECT_EQ(placeOf(in), Place(2, 1));
    in.unget();
    in.unget();
    EXPECT_EQ(placeOf(in), Place(1, 3));
    EXPECT_EQ(in.get(), '\n');
    EXPECT_EQ(in.get(), 'd');
    EXPECT_EQ(placeOf(in), Place(2, 1));
}

TEST(InputStream, PutBackReplacesTheCharacter) {
    ITextDocStream in("abc");
    in.get();
    in.get();
    in.putback('X');
    EXPECT_EQ(placeOf(in), Place(1, 1));
    EXPECT_EQ(in.get(), 'X');
    EXPECT_EQ(in.get(), 'c');
}

TEST(InputStream, UngetWorksAtTheEndOfTheText) {
    ITextDocStream in("ab");
    in.get();
    in.get();
    EXPECT_EQ(in.peek(), EOF);
    in.clear();
    in.unget();
    EXPECT_EQ(placeOf(in), Place(1, 1));
    EXPECT_EQ(in.get(), 'b');
    EXPECT_EQ(in.get(), EOF);
}

TEST(InputStream, StepBackAtTheStartFailsAndMovesNothing) {
    ITextDocStream in("ab");
    in.putback('x');
    EXPECT_TRUE(in.bad());
    EXPECT_EQ(placeOf(in), Place(1, 0));
    in.clear();
    EXPECT_EQ(in.get(), 'a');
}

TEST(InputStream, AStepBackThatFailsLeavesThePlace) {
    ITextDocStream in(std::string(16380, 'x') + "abc");
    for (int i = 0; i < 16381; ++i) in.get();
    int stepsBack = 0;
    while (in.unget()) ++stepsBack;
    EXPECT_GE(stepsBack, 3);
    in.clear();
    EXPECT_EQ(in.column(), 16381 - stepsBack);
    EXPECT_EQ(in.get(), stepsBack == 0 ? 'b' : stepsBack == 1 ? 'a' : 'x');
    EXPECT_EQ(in.column(), 16382 - stepsBack);
}

TEST(InputStream, ByteFFIsNoEndOfText) {
    ITextDocStream in("a\xff" "b");
    in.get();
    EXPECT_EQ(in.get(), 0xff);
    EXPECT_EQ(in.get(), 'b');
    in.unget();
    in.unget();
    EXPECT_EQ(in.peek(), 0xff);
}

TEST(InputStream, RemembersTheColumnInFrontOfTheLastCharacter) {
    ITextDocStream in("ab\nc");
    EXPECT_EQ(in.lastLineCol(), -1);
    in.get();
    EXPECT_EQ(in.lastLineCol(), 0);
    in.get();
    in.get();
    EXPECT_EQ(in.lastLineCol(), 2);
}

TEST(InputStream, ReadsFromAGivenStream) {
    std::istringstream source("x\r\ny");
    ITextDocStream in(source);
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(line, "x");
    EXPECT_EQ(placeOf(in), Place(2, 0));
}

TEST(Rewind, GoesBackAndClearsTheState) {
    std::stringstream stream("ab");
    std::string word;
    stream >> word >> word;
    ASSERT_TRUE(stream.fail());
    EXPECT_TRUE(Zelmar::rewind(stream));
    EXPECT_EQ(stream.get(), 'a');
}

TEST(Rewind, OfAnEmptyTextSucceeds) {
    std::stringstream stream;
    EXPECT_TRUE(Zelmar::rewind(stream));
}

TEST(Rewind, FailsOnAStreamThatCannotSeek) {
    ITextDocStream stream("ab");
    EXPECT_FALSE(Zelmar::rewind(stream));
}

} // namespace
