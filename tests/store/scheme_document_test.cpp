#include "schemes/NorvaneUI_PropertySetStore.h"
#include "schemes/NorvaneUI_SchemeDocument.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Norvane::PropertySet;

const std::string kHead = "# of the team\nNorvane::PropertySet\n  1\n\n\"Mine\"  \n";

struct Edit {
    const char* name;
    std::string text;
    std::function<void(PropertySet&)> edit;
    std::string expected;
};

const Edit kEdits[] = {
    {"ChangesTheValueWithinItsLine", kHead + "# tabs\n\t2  TAB_SIZE\t4 # four\n1 LINE_WRAP 1\n",
     [](PropertySet& s) { s.setInt("TAB_SIZE", 8); }, kHead + "# tabs\n\t2  TAB_SIZE\t8 # four\n1 LINE_WRAP 1\n"},
    {"TakesALineOut", kHead + "# a\n2 TAB_SIZE 4\n# b\n", [](PropertySet& s) { s.erase("TAB_SIZE"); }, kHead + "# a\n# b\n"},
    {"AddsBehindTheLastRecord", kHead + "2 TAB_SIZE 4\n\n# the end\n", [](PropertySet& s) { s.setString("A", "\n\""); },
     kHead + "2 TAB_SIZE 4\n3 A \"\\n\\\"\"\n\n# the end\n"},
    {"AddsToAHead", kHead, [](PropertySet& s) { s.setBool("A", true); }, kHead + "1 A 1\n"},
    {"AddsToALastLineWithoutALineFeed", kHead + "2 B 4", [](PropertySet& s) { s.setBool("A", true); }, kHead + "2 B 4\n1 A 1"},
    {"KeepsLineEndsAndMark", "\xef\xbb\xbfNorvane::PropertySet\r\n1\r\n\"Mine\"\r\n2 B 4\r\n",
     [](PropertySet& s) { s.setInt("B", 5), s.setBool("A", true); },
     "\xef\xbb\xbfNorvane::PropertySet\r\n1\r\n\"Mine\"\r\n2 B 5\r\n1 A 1\r\n"},
    {"ChangesTheOneThatCounts", kHead + "2 B 1\n3 B \"x\"\n2 B 2 # last\n", [](PropertySet& s) { s.setInt("B", 3); },
     kHead + "2 B 1\n3 B \"x\"\n2 B 3 # last\n"},
    {"TakesAllOfANameOut", kHead + "2 B 1\n3 B \"x\"\n2 B 2\n", [](PropertySet& s) { s.erase("B"), s.erase("B"); }, kHead},
    {"LeavesWhatTheEngineSkips", kHead + "1 A x\n2 B 99999999999\n1\n", [](PropertySet& s) { s.setBool("A", true); },
     kHead + "1 A x\n2 B 99999999999\n1\n1 A 1\n"},
    {"GivesAMissingValue", kHead + "3 A  \n", [](PropertySet& s) { s.setString("A", " "); }, kHead + "3 A \" \"  \n"},
    {"MendsAnOpenQuote", kHead + "3 A \"a\n", [](PropertySet& s) { s.setString("A", "b"); }, kHead + "3 A \"b\"\n"},
    {"ReplacesAWord", kHead + "3 A a tail\n", [](PropertySet& s) { s.setString("A", "b"); }, kHead + "3 A \"b\" tail\n"},
    {"Renames", kHead + "2 B 1\n", [](PropertySet& s) { PropertySet(s = PropertySet("Other")), s.setInt("B", 1); },
     "# of the team\nNorvane::PropertySet\n  1\n\n\"Other\"  \n2 B 1\n"},
    {"NothingChangesNothing", kHead + "3 A bare # x\n\n 1 B 1\n#", [](PropertySet&) {}, kHead + "3 A bare # x\n\n 1 B 1\n#"},
    {"WritesAnewWhatItCannotEdit", kHead + "2A 4\n", [](PropertySet& s) { s.setInt("A", 5); },
     "Norvane::PropertySet\n1\n\"Mine\"\n2 A 5\n"},
};

class SchemeDocument : public testing::TestWithParam<Edit> {};

TEST_P(SchemeDocument, ChangesOnlyWhatWasEdited) {
    PropertySet scheme;
    ASSERT_TRUE(NorvaneUI::parseScheme(GetParam().text, scheme));
    GetParam().edit(scheme);
    const std::string edited = NorvaneUI::editedSchemeText(GetParam().text, scheme);
    EXPECT_EQ(edited, GetParam().expected);
    PropertySet back;
    ASSERT_TRUE(NorvaneUI::parseScheme(edited, back));
    EXPECT_TRUE(NorvaneUI::isSameScheme(back, scheme));
}

INSTANTIATE_TEST_SUITE_P(Scheme, SchemeDocument, testing::ValuesIn(kEdits),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
