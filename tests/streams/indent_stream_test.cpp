#include "streams/Zelmar_OIndentStream.h"
#include "streams/Zelmar_RawText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Zelmar::IndentStreamState;
using Zelmar::OIndentStream;
using Zelmar::RawText;

/// Takes a number of characters, then refuses all others.
class FullBuffer : public std::stringbuf {
public:
    explicit FullBuffer(std::size_t room) : room_(room) {}

protected:
    int_type overflow(int_type c) override {
        if (room_ == 0) return traits_type::eof();
        --room_;
        return std::stringbuf::overflow(c);
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        std::streamsize done = 0;
        while (done < count && overflow(traits_type::to_int_type(text[done])) != traits_type::eof()) ++done;
        return done;
    }

private:
    std::size_t room_;
};

TEST(OutputStream, WritesThroughToTheDestination) {
    std::ostringstream target;
    OIndentStream out(target, "\t", false, 0, 4, 1, 0);
    out << "  a = " << 12 << '\n' << " b";
    EXPECT_EQ(target.str(), "\ta = 12\n\tb");
    EXPECT_EQ(out.line(), 2);
    EXPECT_EQ(out.column(), 5);
}

TEST(OutputStream, HoldsItsOwnText) {
    OIndentStream out("  ", false, 2, 2, 1, 0);
    out << "a    ";
    EXPECT_EQ(out.str(), "\ta \t ");
}

TEST(OutputStream, AnInitialTextStaysInFront) {
    OIndentStream out(std::string("head;"), std::string("  "), false, 0, 4, 3, 0);
    out << "a";
    EXPECT_EQ(out.str(), "head;  a");
    EXPECT_EQ(out.line(), 3);
}

TEST(OutputStream, ACopyGoesOnAtTheSamePlaceWithoutTheText) {
    OIndentStream out("  ", true, 1, 8, 1, 0);
    out << "a\nbcd";
    OIndentStream copy(out);
    copy << "\te";
    EXPECT_EQ(copy.str(), "   e");
    EXPECT_EQ(copy.line(), 2);
    std::ostringstream target;
    OIndentStream onTarget(target, out);
    onTarget << "\n e";
    EXPECT_EQ(target.str(), "\n   e");
}

TEST(OutputStream, ASnapshotGivesAScratchStream) {
    OIndentStream out("  ", false, 0, 4, 1, 0);
    out << "ab";
    const IndentStreamState state = out;
    OIndentStream scratch(state);
    scratch << " c\nd";
    EXPECT_EQ(scratch.str(), " c\n  d");
}

TEST(OutputStream, RawTextKeepsItsLeadingSpaceAndGetsTheIndent) {
    OIndentStream out("\t", false, 0, 4, 1, 0);
    out << " a\n" << RawText("  b\n c\n") << " d";
    EXPECT_EQ(out.str(), "\ta\n\t  b\n\t c\n\td");
    std::ostringstream other;
    other << RawText(" x");
    EXPECT_EQ(other.str(), " x");
}

TEST(OutputStream, GuardsWorkOnAStream) {
    OIndentStream out("\t", false, 0, 4, 1, 0);
    {
        const Zelmar::IndentGuard indent(out, "  ");
        const Zelmar::KeepWsGuard keep(out, true);
        out << " a\n";
    }
    out << " b";
    EXPECT_EQ(out.str(), "   a\n\tb");
}

TEST(OutputStream, MakeIndentTakesItsSettings) {
    OIndentStream out("      ", false, 2, 4, 1, 0);
    EXPECT_EQ(makeIndent(out, 7), "      ");
    EXPECT_EQ(makeIndent(out, 8), "        ");
}

TEST(OutputStream, TheDestructorWritesHeldSpaces) {
    std::ostringstream target;
    {
        OIndentStream out(target, "", true, 2, 4, 1, 0);
        out << "a\n  ";
        EXPECT_EQ(target.str(), "a\n");
    }
    EXPECT_EQ(target.str(), "a\n  ");
}

TEST(OutputStream, AChangeOfModeWritesHeldSpaces) {
    OIndentStream out("", true, 2, 4, 1, 0);
    out << "  ";
    out.setWsMode(0);
    out << "  ";
    EXPECT_EQ(out.str(), "    ");
}

TEST(OutputStream, AModeThatDoesNotExistFailsEveryWrite) {
    OIndentStream out("", false, 7, 4, 1, 0);
    out << 'a';
    EXPECT_TRUE(out.fail());
    out.clear();
    out << "abc";
    EXPECT_TRUE(out.fail());
    EXPECT_EQ(out.str(), "");
}

TEST(OutputStream, ARefusedCharacterIsNotCounted) {
    FullBuffer target(2);
    OIndentStream out(&target, "", false, 2, 4, 1, 0);
    out.put('a').put('b').put('\t');
    EXPECT_TRUE(out.bad());
    EXPECT_EQ(out.column(), 2);
    EXPECT_EQ(target.str(), "ab");
}

TEST(OutputStream, TheDestructorSwallowsWhatTheDestinationThrows) {
    struct Throwing : std::stringbuf {
        int sync() override { throw std::runtime_error("full"); }
    } target;
    { OIndentStream out(&target, "", false, 0, 4, 1, 0); }
    EXPECT_EQ(target.str(), "");
}

} // namespace
