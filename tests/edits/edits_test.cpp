#include "cli/scheme/Cli_ShippedSchemes.h"
#include "edits/Edits_Edit.h"
#include "edits/Edits_Ranges.h"
#include "src/Norvane_FormatDriver.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace {

std::string shown(const Edits::EditList& edits) {
    std::string text;
    for (const Edits::Edit& edit : edits) {
        text += std::to_string(edit.range.begin) + '-' + std::to_string(edit.range.end) + '[' + edit.text + ']';
    }
    return text;
}

struct EditCase {
    const char* name;
    const char* source;
    const char* result;
    const char* edits;
};

const EditCase kEdits[] = {
    {"Equal", "a b", "a b", ""},
    {"Empty", "", "", ""},
    {"Inserted", "a=b", "a = b", "1-1[ ]2-2[ ]"},
    {"Removed", "f ( a )", "f(a)", "1-2[]3-4[]5-6[]"},
    {"KeepsHeadAndTail", "a\n    b", "a\n  b", "4-6[]"},
    {"LineFeedBecomesBlank", "a\nb", "a b", "1-2[ ]"},
    {"AtBothEnds", " a", "a\n", "0-1[]2-2[\n]"},
    {"GapInOneOnly", "ab c", "a bc", "1-1[ ]2-3[]"},
    {"WithinAComment", "/* a\n b */", "/* a\n   b */", "6-6[  ]"},
};

class EditRow : public testing::TestWithParam<EditCase> {};

TEST_P(EditRow, AreAsSmallAsCanBe) {
    const EditCase& row = GetParam();
    const auto edits = Edits::editsBetween(row.source, row.result);
    EXPECT_EQ(shown(edits), row.edits) << row.source;
    EXPECT_EQ(Edits::applied(row.source, edits), row.result);
}

INSTANTIATE_TEST_SUITE_P(Edits, EditRow, testing::ValuesIn(kEdits),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Gaps, EndWhereTheTextsPart) { EXPECT_EQ(Edits::differingGaps("a  b c", "a x c").size(), 1u); }

struct RangeCase {
    const char* name;
    const char* source;
    const char* result;
    std::vector<Edits::LineRange> lines;
    const char* expected;
};

const RangeCase kRanges[] = {
    {"NoRange", "a=1;\nb=2;\n", "a = 1;\nb = 2;\n", {}, "a=1;\nb=2;\n"},
    {"OneLine", "a=1;\nb=2;\nc=3;\n", "a = 1;\nb = 2;\nc = 3;\n", {{2, 2}}, "a=1;\nb = 2;\nc=3;\n"},
    {"WholeText", " a=1;\n", "a = 1;\n", {{1, 9}}, "a = 1;\n"},
    {"IndentBelongsToTheLine", "{\na;\n  b;\n}\n", "{\n    a;\n    b;\n}\n", {{2, 2}}, "{\n    a;\n  b;\n}\n"},
    {"FollowsTheLineAround", "  f {\na;\n  }\n", "f {\n    a;\n}\n", {{2, 2}}, "  f {\n      a;\n  }\n"},
    {"DirectiveEnclosesNothing", "  f {\n#if 1\na;\n  }\n", "f {\n#if 1\n    a;\n}\n", {{3, 3}}, "  f {\n#if 1\n      a;\n  }\n"},
    {"LabelEnclosesNothing", "  f {\nout:\na;\n  }\n", "f {\nout:\n    a;\n}\n", {{3, 3}}, "  f {\nout:\n      a;\n  }\n"},
    {"LinesOfTheRangeKeepTheirSteps", "  f {\nif {\nb;\n}\n  }\n", "f {\n  if {\n    b;\n  }\n}\n", {{2, 4}},
     "  f {\n    if {\n      b;\n    }\n  }\n"},
    {"IsNotJoinedWithALineOutside", "f\n{\n}\n", "f {\n}\n", {{2, 3}}, "f\n{\n}\n"},
    {"JoinsWithin", "f\n{\n}\ng\n{}\n", "f {\n}\ng {}\n", {{1, 3}}, "f {\n}\ng\n{}\n"},
    {"TrailingBlanksAreOfTheLine", "a;  \n  b;\n", "a;\nb;\n", {{1, 1}}, "a;\n  b;\n"},
    {"BlankLinesWithin", "a;\n\n\n\nb;\n", "a;\n\nb;\n", {{2, 4}}, "a;\n\nb;\n"},
    {"BlankLinesBehind", "a; \n\n\nb;\n", "a;\n\nb;\n", {{1, 1}}, "a;\n\n\nb;\n"},
    {"LineBreakWithin", "a; b;\nc;\n", "a;\nb;\nc;\n", {{1, 1}}, "a;\nb;\nc;\n"},
    {"BehindTheEnd", "a=1;\n", "a = 1;\n", {{5, 7}}, "a=1;\n"},
};

class RangeRow : public testing::TestWithParam<RangeCase> {};

TEST_P(RangeRow, ChangesNothingOutside) {
    const RangeCase& row = GetParam();
    EXPECT_EQ(Edits::layOutWithin(row.source, row.result, Edits::bytesOf(row.source, row.lines), 4), row.expected)
        << row.source;
}

INSTANTIATE_TEST_SUITE_P(Edits, RangeRow, testing::ValuesIn(kRanges),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Ranges, WithinALineLeaveHalvesOfGapsAlone) {
    EXPECT_EQ(Edits::layOutWithin("a  =  1;", "a = 1;", {{2, 5}}, 4), "a  =  1;");
    EXPECT_EQ(Edits::layOutWithin("a  =  1;", "a = 1;", {{1, 5}}, 4), "a =  1;");
    EXPECT_EQ(Edits::layOutWithin("a=1;", "a = 1;", {{0, 2}}, 4), "a =1;");
}

/// Code whose lines stand anywhere, made from `seed`.
std::string untidySource(std::mt19937& random) {
    const char* const lines[] = {"int f(int a){",   "if(a){",  "b=a ;",  "}",         "#define X(y) \\\n  y",
                                 "/* a\n   b */",   "g(a,b);", "// c",   "for(;;)",   "while (a) {",
                                 "x = { 1,2,\n3 };", "",        "else {", "switch(a) { case 1:break;"};
    std::string text;
    int depth = 0;
    for (int i = 0; i < 40; ++i) {
        std::string line = lines[random() % std::size(lines)];
        if (line == "}" && depth == 0) continue;
        if (line.ends_with('{')) ++depth;
        if (line == "}") --depth;
        text += std::string(random() % 7, random() % 4 == 0 ? '\t' : ' ') + line + '\n';
    }
    for (; depth > 0; --depth) text += "}\n";
    return text;
}

std::string laidOut(const std::string& source, const std::string& scheme) {
    std::istringstream schemeText(scheme);
    const Norvane::PropertySet options(schemeText);
    std::istringstream in(source);
    std::ostringstream out;
    Trn::MessageList messages;
    Norvane::UpdateFunctor update;
    const Norvane::FormatOptions all(options, Norvane::defaultFormatMarkers());
    return Norvane::FormatDriver().format(all, in, out, messages, update) == 0 ? out.str() : source;
}

std::string withoutSpace(std::string text) {
    std::erase_if(text, Edits::isWhite);
    return text;
}

/// What `text` has in front of `head` bytes and behind all but its last `tail` ones.
std::string outside(const std::string& text, std::size_t head, std::size_t tail) {
    return text.substr(0, head) + '|' + text.substr(text.size() - tail);
}

TEST(Ranges, RandomOnesKeepWhatIsOutside) {
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        const std::string source = untidySource(random);
        const auto& schemes = Cli::shippedSchemes();
        const std::string result = laidOut(source, std::string(schemes[random() % schemes.size()].text));
        ASSERT_EQ(withoutSpace(source), withoutSpace(result));
        const std::size_t begin = random() % source.size();
        const std::size_t end = begin + random() % (source.size() - begin + 1);
        const std::string part = Edits::layOutWithin(source, result, {{begin, end}}, 4);
        ASSERT_EQ(withoutSpace(part), withoutSpace(source));
        ASSERT_EQ(outside(part, begin, source.size() - end), outside(source, begin, source.size() - end)) << source;
        ASSERT_EQ(Edits::layOutWithin(source, result, {{begin, source.size()}, {0, begin}}, 4), result);
    }
}

} // namespace
