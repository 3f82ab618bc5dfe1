#include "tests/property/Checks.h"

#include <gtest/gtest.h>

namespace {

using Property::breaches;
using Property::breachesOrRefusals;
using Property::Demand;
using Property::Scheme;
using Property::Source;

const Scheme kEmpty{"empty", Norvane::PropertySet()};

TEST(EmptyScheme, GivesEverySourceBack) {
    EXPECT_EQ(breachesOrRefusals(kEmpty, Property::goldenSources(), Demand::giveBack), "");
    EXPECT_EQ(breachesOrRefusals(kEmpty, Property::smallFiles(), Demand::giveBack), "");
    EXPECT_EQ(breaches(kEmpty, Property::oddTexts(), Demand::giveBack), "");
    EXPECT_EQ(breaches(kEmpty, Property::randomTexts(), Demand::giveBack), "");
}

class ShippedScheme : public testing::TestWithParam<std::string> {};

TEST_P(ShippedScheme, KeepsTokensAndSettles) {
    const Scheme scheme = Property::shippedScheme(GetParam());
    EXPECT_EQ(breachesOrRefusals(scheme, Property::goldenSources(), Demand::settle), "");
    EXPECT_EQ(breachesOrRefusals(scheme, Property::smallFiles(), Demand::settle), "");
    EXPECT_EQ(breaches(scheme, Property::oddTexts(), Demand::settle), "");
}

// Nobody writes these, so that they may take two runs to settle; but nothing may be lost.
TEST_P(ShippedScheme, KeepsTheTokensOfRandomTexts) {
    EXPECT_EQ(breaches(Property::shippedScheme(GetParam()), Property::randomTexts(), Demand::keepTokens), "");
}

INSTANTIATE_TEST_SUITE_P(All, ShippedScheme, testing::ValuesIn(Property::shippedSchemeNames()),
                         [](const auto& row) { return row.param; });

class SingleOption : public testing::TestWithParam<std::string> {};

/// A part of the golden sources that is another one for each option and value, so that all of them
/// meet many options within the time of one test run.
std::vector<Source> sourcesFor(std::size_t turn) {
    constexpr std::size_t step = 7;
    const std::vector<Source>& all = Property::goldenSources();
    std::vector<Source> part = Property::smallFiles();
    for (std::size_t i = turn % step; i < all.size(); i += step) part.push_back(all[i]);
    return part;
}

TEST_P(SingleOption, KeepsTokens) {
    std::size_t turn = GetParam().size();
    for (const Scheme& scheme : Property::schemesOfOption(GetParam())) {
        EXPECT_EQ(breachesOrRefusals(scheme, sourcesFor(turn++), Demand::keepTokens), "");
    }
}

INSTANTIATE_TEST_SUITE_P(All, SingleOption, testing::ValuesIn(Property::optionNames()),
                         [](const auto& row) { return row.param; });

TEST(NarrowMargin, KeepsTokens) {
    for (const char* name : {"default", "gnu"}) {
        const Scheme scheme = Property::wrappedAt(1, Property::shippedScheme(name));
        EXPECT_EQ(breachesOrRefusals(scheme, Property::goldenSources(), Demand::keepTokens), "");
        EXPECT_EQ(breachesOrRefusals(scheme, Property::smallFiles(), Demand::keepTokens), "");
    }
}

// A list that is too long for a line without a line feed shows at the end of the text, so that all of it is laid
// out again. Elsewhere only what was too long is, and the rest has to be as if nothing had happened.
TEST(LongOneLiners, LeaveWhatStandsAroundThemAsItWas) {
    for (const char* name : {"default", "gnu", "whitesmiths"}) {
        for (const int margin : {30, 50}) {
            Scheme scheme = Property::wrappedAt(margin, Property::shippedScheme(name));
            for (const char* kept : {"KEEP_ONE_LINERS", "KEEP_SHAPE"}) scheme.options.setBool(kept, true);
            for (const char* list : {"WS_BETWEEN_FN_PARAMS", "WS_BETWEEN_TP_PARAMS", "WS_BETWEEN_CLASS_INITS"}) {
                scheme.options.setString(list, "\n");
            }
            const std::string tail = "\nvoid tail(int aaaaaaaaaaaaaaaaaaaa, int bbbbbbbbbbbbbbbbbbbb);\n";
            EXPECT_EQ(Property::changesWithoutFeed(scheme, Property::goldenSources(), tail), "");
            EXPECT_EQ(Property::changesWithoutFeed(scheme, Property::smallFiles(), tail), "");
        }
    }
}

} // namespace
