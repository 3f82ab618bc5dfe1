#include "streams/Zelmar_IndentWriter.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Zelmar::IndentStreamState;
using Zelmar::IndentWriter;

struct WriteCase {
    const char* name;
    IndentStreamState state;
    const char* input;
    const char* output;
};

IndentStreamState plain(int wsMode, int tabSize, int column = 0) {
    return {"", true, wsMode, tabSize, 1, column};
}
IndentStreamState indented(const char* indent, int wsMode = 0, int tabSize = 4) {
    return {indent, false, wsMode, tabSize, 1, 0};
}

const WriteCase kWrites[] = {
    {"IndentsEveryLineButEmptyOnes", indented("    "), "{\n  a();\n\n}\n", "    {\n    a();\n\n    }\n"},
    {"DropsWhiteSpaceAtTheStartOfALine", indented(""), " \t\v\f\ra b\n  c", "a b\nc"},
    {"BlankLinesLoseTheirSpaces", indented("\t"), "a\n   \n b", "\ta\n\n\tb"},
    {"KeepsLeadingWhiteSpaceWhenTold", {"> ", true, 0, 4, 1, 0}, "  a\n\n b", ">   a\n\n>  b"},
    {"MidLineStartNeedsNoIndent", {"    ", false, 0, 4, 1, 7}, "  a\nb", "  a\n    b"},
    {"TabsToSpacesFromTheStart", plain(1, 4), "\ta\tb", "    a   b"},
    {"TabsToSpacesAtColumnOne", plain(1, 4, 1), "\t", "   "},
    {"TabsInLiteralsStay", plain(1, 4), "\"\t\" '\t' \t", "\"\t\" '\t'   "},
    {"TabIndentIsConvertedToo", indented("\t", 1), "a\n\tb", "    a\n    b"},
    {"FourSpacesAreATab", plain(2, 4), "    x", "\tx"},
    {"ThreeSpacesStay", plain(2, 4), "   x", "   x"},
    {"RunsStartOnATabStopOnly", plain(2, 4, 2), "      x", "  \tx"},
    {"SpacesInLiteralsStay", plain(2, 4), "\"     \"     ", "\"     \" \t"},
    {"ApostropheInACommentStopsConversion", plain(2, 4), "// a's     b\n    c", "// a's     b\n\tc"},
    {"EscapedQuoteDoesNotCloseALiteral", plain(1, 4), "\"\\\"\t\"\t", "\"\\\"\t\"   "},
    {"HeldSpacesComeOutInFrontOfALineFeed", plain(2, 4), "  \nx", "  \nx"},
    {"SpacesBecomeTabsInTheIndent", indented("      ", 2), "a", "\t  a"},
    {"TabSizeOneMakesNoTabs", plain(2, 1), "   x", "   x"},
    {"HighBytesAreCharacters", indented(" "), "\xff\n\xff", " \xff\n \xff"},
};

class Write : public testing::TestWithParam<WriteCase> {};

TEST_P(Write, GivesTheText) {
    IndentWriter writer(GetParam().state);
    writer.write(GetParam().input);
    EXPECT_EQ(writer.takeText(), GetParam().output);
}

INSTANTIATE_TEST_SUITE_P(IndentWriter, Write, testing::ValuesIn(kWrites),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(IndentWriter, ExactKeepsLeadingWhiteSpaceUnderTheIndent) {
    IndentWriter writer(indented("\t"));
    writer.writeExact("  a\n b");
    EXPECT_EQ(writer.text(), "\t  a\n\t b");
}

TEST(IndentWriter, RawWritesNoIndentAndLeavesTheSettings) {
    IndentWriter writer(indented("\t"));
    writer.writeRaw("  a\n b\n");
    writer.write(" c");
    EXPECT_EQ(writer.text(), "  a\n b\n\tc");
}

TEST(IndentWriter, RawTextOfManyLinesLeavesThePlaceOfItsLastLine) {
    IndentWriter writer(indented("    "));
    writer.write("ab");
    writer.writeRaw("cd\n\te\n  f");
    EXPECT_EQ(writer.text(), "    abcd\n\te\n  f");
    EXPECT_EQ(writer.line(), 3);
    EXPECT_EQ(writer.column(), 3);
    EXPECT_EQ(writer.lineIndent(), 2);
    writer.writeRaw("g\n");
    EXPECT_EQ(writer.column(), 0);
    EXPECT_EQ(writer.line(), 4);
}

TEST(IndentWriter, KeepsTheTextWhileItGrows) {
    IndentWriter writer;
    std::string expected;
    for (int i = 0; i < 500; ++i) {
        writer.write("token ");
        expected += "token ";
        ASSERT_EQ(writer.text(), expected);
        ASSERT_EQ(writer.column(), static_cast<int>(expected.size()));
    }
    EXPECT_EQ(writer.takeText(), expected);
    writer.write("x");
    EXPECT_EQ(writer.text(), "x");
}

TEST(IndentWriter, CountsLinesAndColumns) {
    IndentWriter writer(indented("  "));
    writer.write("a\n\tb");
    EXPECT_EQ(writer.line(), 2);
    EXPECT_EQ(writer.column(), 3);
    writer.write("\t");
    EXPECT_EQ(writer.column(), 4);
    writer.write("  \n  ");
    EXPECT_EQ(writer.column(), 0) << "dropped white space takes no column";
}

TEST(IndentWriter, HeldSpacesCountInTheColumnAtOnce) {
    IndentWriter writer(plain(2, 4));
    writer.write("   ");
    EXPECT_EQ(writer.column(), 3);
    EXPECT_EQ(writer.text(), "");
    writer.sync();
    EXPECT_EQ(writer.text(), "   ");
}

TEST(IndentWriter, ChangingTabSizeOrModeLetsHeldSpacesOut) {
    IndentWriter writer(plain(2, 4));
    writer.write("  ");
    writer.setTabSize(8);
    EXPECT_EQ(writer.text(), "  ");
    writer.setTabSize(2);
    writer.write(" ");
    writer.setWsMode(0);
    EXPECT_EQ(writer.text(), "   ");
}

struct JoinCase {
    const char* source;
    const char* result;
};

// A token goes on behind the line end, or two of them are kept apart by what white space there is.
TEST(IndentWriter, JoinedLinesKeepTheirTokens) {
    const JoinCase cases[] = {{"ab\\\ncd", ".ab\\\ncd"}, {"ab\\ \ncd\nx", ".ab\\ \ncd\n.x"}, {"f\\\n$", ".f\\\n$"},
                              {"\xc3\\\n\xa4", ".\xc3\\\n\xa4"}, {"+\\\n+", ".+\\\n+"}, {"1.\\\n5", ".1.\\\n5"},
                              {"ab\\\n  cd", ".ab\\\n.cd"}, {"ab \\\ncd", ".ab \\\n.cd"}, {"a,\\\nb", ".a,\\\n.b"},
                              {"a\nb", ".a\n.b"}, {"a\\\n\\\nb", ".a\\\n\\\nb"}};
    for (const JoinCase& row : cases) {
        SCOPED_TRACE(row.source);
        IndentWriter dotted(indented("."));
        dotted.write(row.source);
        EXPECT_EQ(dotted.text(), row.result);
    }
    IndentWriter bare;
    for (const char c : std::string_view("ab\\\n  cd\n e")) bare.put(c);
    EXPECT_EQ(bare.text(), "ab\\\n cd\ne");
}

TEST(IndentWriter, AModeThatDoesNotExistFails) {
    IndentWriter writer(plain(3, 4));
    writer.write("");
    EXPECT_FALSE(writer.failed());
    writer.write("a");
    EXPECT_TRUE(writer.failed());
    EXPECT_EQ(writer.text(), "");
}

TEST(IndentWriter, TabSizeZeroActsAsOne) {
    IndentWriter writer;
    writer.setTabSize(0);
    writer.setWsMode(1);
    writer.writeRaw("\ta\t");
    EXPECT_EQ(writer.text(), " a ");
    EXPECT_EQ(writer.column(), 3);
}

TEST(IndentWriter, AScratchWriterGoesOnWhereTheOtherStands) {
    IndentWriter writer(indented("\t", 1));
    writer.write("ab\ncd");
    IndentWriter scratch(writer.state());
    scratch.write("\te\nf");
    EXPECT_EQ(scratch.line(), 3);
    EXPECT_EQ(scratch.text(), "  e\n    f");
}

TEST(IndentWriter, GuardsPutTheSettingsBack) {
    IndentWriter writer(indented("\t"));
    {
        const Zelmar::IndentGuard indent(writer, "  ");
        const Zelmar::KeepWsGuard keep(writer, true);
        writer.write(" a\n");
    }
    writer.write(" b");
    EXPECT_EQ(writer.text(), "   a\n\tb");
}

/// The rules of the writer one character at a time, with no runs and no pieces.
class PlainModel {
public:
    explicit PlainModel(const IndentStreamState& state) : state_(state) {}

    void write(char c) {
        if (state_.column == 0 && c != '\n') {
            const bool blank = c == ' ' || (c >= '\t' && c <= '\r');
            dropped_ = dropped_ || blank;
            if (!state_.keepLeadingWs && blank) return;
            const bool joined = goesOnWith(c);
            if (!joined || dropped_) for (const char i : state_.indent) convert(i);
            if (joined && dropped_ && state_.indent.empty()) convert(' ');
        }
        dropped_ = false;
        convert(c);
    }

    // What was written ends in a character, and then in line feeds with a backslash in front of each.
    bool goesOnWith(char c) const {
        std::string text = text_;
        bool joined = false;
        for (; text.ends_with('\n'); joined = true) {
            text.erase(text.find_last_not_of(" \t\r", text.size() - 2) + 1);
            if (!text.ends_with('\\')) return false;
            text.pop_back();
        }
        if (!joined || text.empty() || std::string_view(" \t\r").find(text.back()) != std::string_view::npos) return false;
        constexpr std::string_view kOfWord = "ab'\"";
        return c == '\\' || (kOfWord.find(c) != std::string_view::npos && kOfWord.find(text.back()) != std::string_view::npos);
    }

    std::string finish() { return text_ + std::string(static_cast<std::size_t>(held_), ' '); }
    const IndentStreamState& state() const { return state_; }

private:
    int toTabStop() const { return state_.tabSize - state_.column % state_.tabSize; }

    void convert(char c) {
        if (state_.wsMode != 0) track(c);
        if (state_.wsMode == 1 && c == '\t' && !quote_) {
            for (int n = toTabStop(); n > 0; --n) put(' ');
        } else if (state_.wsMode == 2 && c == ' ' && !quote_ && (held_ > 0 || toTabStop() == state_.tabSize)) {
            ++state_.column;
            if (++held_ == state_.tabSize && held_ > 1) {
                held_ = 0;
                text_ += '\t';
            }
        } else {
            text_.append(static_cast<std::size_t>(held_), ' ');
            held_ = 0;
            put(c);
        }
    }

    void track(char c) {
        if (quote_) {
            if (c == '\n' || (c == quote_ && previous_ != '\\')) quote_ = 0;
        } else if ((c == '"' || c == '\'') && previous_ != '\\') {
            quote_ = c;
        }
        previous_ = c;
    }

    void put(char c) {
        text_ += c;
        state_.line += c == '\n' ? 1 : 0;
        state_.column = c == '\n' ? 0 : state_.column + (c == '\t' ? toTabStop() : 1);
    }

    IndentStreamState state_;
    std::string text_;
    int held_ = 0;
    bool dropped_ = false;
    char quote_ = 0;
    char previous_ = 0;
};

std::string randomText(std::mt19937& random) {
    static constexpr std::string_view kAlphabet = "ab     \t\t\n\n\"'\\\\\r";
    std::string text(random() % 60, ' ');
    for (char& c : text) c = kAlphabet[random() % kAlphabet.size()];
    return text;
}

// Runs are copied whole and text arrives in pieces of any size; neither may show in the result.
TEST(IndentWriter, PiecesAndRunsDoNotShow) {
    std::mt19937 random(20240501);
    const char* const indents[] = {"", "  ", "\t", "   \t ", "'"};
    for (int round = 0; round < 20000; ++round) {
        const IndentStreamState state{indents[random() % 5], random() % 2 == 0, static_cast<int>(random() % 3),
                                      1 + static_cast<int>(random() % 5), 1, static_cast<int>(random() % 6)};
        const std::string text = randomText(random);
        PlainModel model(state);
        for (const char c : text) model.write(c);
        IndentWriter writer(state);
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t length = 1 + random() % 20;
            writer.write(std::string_view(text).substr(at, length));
            at += length;
        }
        ASSERT_EQ(writer.line(), model.state().line) << testing::PrintToString(text);
        ASSERT_EQ(writer.column(), model.state().column) << testing::PrintToString(text);
        ASSERT_EQ(writer.takeText(), model.finish()) << testing::PrintToString(text);
    }
}

} // namespace
