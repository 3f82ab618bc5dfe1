#include "help/Help_Sample.h"

#include "help/Help_Difference.h"
#include "help/Help_SampleTable.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Help::compare;
using Help::Comparison;
using Help::Sample;
using Norvane::PropertyInfo;

std::vector<PropertyInfo> allOptions() {
    const auto options = Norvane::propertyCatalogue();
    return {options.begin(), options.end()};
}

std::string withoutSpace(std::string text) {
    text.erase(std::remove_if(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c) != 0; }),
               text.end());
    return text;
}

class SamplesOfOption : public testing::TestWithParam<PropertyInfo> {};

TEST_P(SamplesOfOption, ShowWhatItDoes) {
    const PropertyInfo& option = GetParam();
    const auto samples = Help::samplesOf(option.name);
    ASSERT_NE(samples.empty(), option.formats);
    for (const Sample& sample : samples) {
        SCOPED_TRACE(sample.value);
        const Comparison comparison = compare(sample);
        EXPECT_NE(comparison.before, comparison.after);
        EXPECT_EQ(withoutSpace(comparison.before), withoutSpace(comparison.after));
    }
}

TEST_P(SamplesOfOption, HaveValuesThatASchemeMayHold) {
    for (const Sample& sample : Help::samplesOf(GetParam().name)) {
        std::istringstream lines("Norvane::PropertySet\n1\n\"test\"\n" + std::string(sample.with) +
                                 Help::schemeLine(GetParam(), sample.value) + '\n');
        const Norvane::PropertySet scheme(lines);
        ASSERT_FALSE(lines.fail()) << sample.value;
        EXPECT_TRUE(scheme.exists(sample.option));
        for (const auto& [name, value] : scheme.bools()) {
            EXPECT_EQ(Norvane::checkBoolProperty(name, value), Norvane::PropertyFault::None) << name;
        }
        for (const auto& [name, value] : scheme.ints()) {
            EXPECT_EQ(Norvane::checkIntProperty(name, value), Norvane::PropertyFault::None) << name;
        }
        for (const auto& [name, value] : scheme.strings()) {
            EXPECT_EQ(Norvane::checkStringProperty(name, value), Norvane::PropertyFault::None) << name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Help, SamplesOfOption, testing::ValuesIn(allOptions()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Samples, BelongToOptionsAndStandTogether) {
    std::set<std::string_view> done;
    std::string_view current;
    for (const Sample& sample : Help::sampleTable()) {
        EXPECT_NE(Norvane::findProperty(sample.option), nullptr) << sample.option;
        if (sample.option != current) {
            EXPECT_TRUE(done.insert(sample.option).second) << sample.option;
        }
        current = sample.option;
    }
}

TEST(Samples, ShowEachChoiceButTheOneThatHoldsAnyway) {
    for (const PropertyInfo& option : Norvane::propertyCatalogue()) {
        SCOPED_TRACE(option.name);
        std::set<std::string> shown;
        for (const Sample& sample : Help::samplesOf(option.name)) shown.insert(std::string(sample.value));
        for (const Norvane::PropertyChoice& choice : Norvane::propertyChoices(option.name)) {
            const std::string value = std::to_string(choice.value);
            EXPECT_NE(shown.count(value) == 1, value == option.defaultValue) << value;
        }
    }
}

TEST(Samples, AnUnknownOptionHasNone) { EXPECT_TRUE(Help::samplesOf("NO_SUCH_OPTION").empty()); }

TEST(Comparisons, KeepWhatTheOptionNeedsOnBothSides) {
    const Comparison comparison = compare({"WRAP_INDENT", "\"  \"", "int a = bbbbbbbbbb + cccccccccc;\n",
                                           "1 LINE_WRAP 1\n2 RIGHT_MARGIN 20\n2 WRAP_STYLE 2\n"});
    EXPECT_EQ(comparison.setting, "3 WRAP_INDENT \"  \"");
    EXPECT_NE(comparison.before.find("\n+ c"), std::string::npos) << comparison.before;
    EXPECT_NE(comparison.after.find("\n  + c"), std::string::npos) << comparison.after;
}

TEST(Comparisons, RefuseASampleThatDoesNotParse) {
    EXPECT_THROW(compare({"TAB_SIZE", "4", "void f( {\n", ""}), std::logic_error);
    EXPECT_THROW(compare({"NO_SUCH_OPTION", "4", "int a;\n", ""}), std::logic_error);
}

std::string cutOut(std::string_view text, const std::vector<Help::Range>& ranges) {
    std::string cuts;
    for (const Help::Range& range : ranges) {
        cuts += '<' + std::string(text.substr(range.start, range.end - range.start)) + '>';
    }
    return cuts;
}

TEST(WhiteSpaceDifferences, AreTheRunsThatDiffer) {
    const struct {
        const char* before;
        const char* after;
        const char* removed;
        const char* added;
    } rows[] = {
        {"", "", "", ""},
        {"a b", "a b", "", ""},
        {"a b", "ab", "< >", "<>"},
        {"f(a)", "f( a )", "<><>", "< >< >"},
        {"a {b", "a\n{b", "< >", "<\n>"},
        {"  a\n", "\ta\n", "<  >", "<\t>"},
        {"a", "a\n", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.after);
        const Help::Differences differences = Help::whiteSpaceDifferences(row.before, row.after);
        EXPECT_EQ(cutOut(row.before, differences.before), row.removed);
        EXPECT_EQ(cutOut(row.after, differences.after), row.added);
    }
}

} // namespace
