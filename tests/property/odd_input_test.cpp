#include "tests/property/Checks.h"

#include <gtest/gtest.h>

namespace {

using Property::breaches;
using Property::Demand;
using Property::Scheme;
using Property::Source;

std::vector<Scheme> someSchemes() {
    return {{"empty", Norvane::PropertySet()},
            Property::shippedScheme("default"),
            Property::shippedScheme("gnu"),
            Property::wrappedAt(20, Property::shippedScheme("default"))};
}

class CutFile : public testing::TestWithParam<std::size_t> {};

TEST_P(CutFile, KeepsTokensWhereverItEnds) {
    const Source& whole = Property::smallFiles()[GetParam()];
    std::vector<Source> cuts;
    for (std::size_t length = 0; length < whole.text.size(); ++length) {
        cuts.push_back({"first " + std::to_string(length) + " bytes", whole.text.substr(0, length)});
    }
    for (const Scheme& scheme : someSchemes()) EXPECT_EQ(breaches(scheme, cuts, Demand::keepTokens), "");
}

INSTANTIATE_TEST_SUITE_P(SmallFiles, CutFile, testing::Range(std::size_t{0}, Property::smallFiles().size()),
                         [](const auto& row) { return Property::smallFiles()[row.param].name; });

class CommentInGap : public testing::TestWithParam<const char*> {};

TEST_P(CommentInGap, IsNeverLost) {
    for (const Source& file : Property::smallFiles()) {
        const std::vector<Source> sources = Property::withCommentInEachGap(file, GetParam());
        for (const Scheme& scheme : someSchemes()) EXPECT_EQ(breaches(scheme, sources, Demand::keepTokens), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, CommentInGap, testing::Values("/* c */", " // c\n", "/* c\n   d */", "\n#pragma p\n"),
                         [](const auto& row) { return "Kind" + std::to_string(row.index); });

// Two lines may be joined anywhere, and a compiler sees nothing of it but in raw strings.
class JoinedLine : public testing::TestWithParam<std::size_t> {};

TEST_P(JoinedLine, LeavesEveryTokenWhole) {
    const Source& whole = Property::smallFiles()[GetParam()];
    std::vector<Source> joined;
    for (std::size_t at = 0; at < whole.text.size(); ++at) {
        std::string text = whole.text;
        text.insert(at, at % 3 == 0 ? "\\ \n" : at % 3 == 1 ? "\\\n" : "\\\n\\\n");
        joined.push_back({"joined at byte " + std::to_string(at), std::move(text)});
    }
    for (const Scheme& scheme : someSchemes()) EXPECT_EQ(breaches(scheme, joined, Demand::keepTokens), "");
}

INSTANTIATE_TEST_SUITE_P(SmallFiles, JoinedLine, testing::Range(std::size_t{0}, Property::smallFiles().size()),
                         [](const auto& row) { return Property::smallFiles()[row.param].name; });

// The default scheme wraps lines too, so that every stage meets the nests.
TEST(DeepNest, IsLaidOutOrRefused) {
    EXPECT_EQ(breaches(Property::shippedScheme("default"), Property::deepNests(), Demand::keepTokens), "");
}

TEST(DeepNest, ComesBackUnderTheEmptyScheme) {
    const Scheme empty{"empty", Norvane::PropertySet()};
    EXPECT_EQ(breaches(empty, Property::deepNests(), Demand::giveBack), "");
}

} // namespace
