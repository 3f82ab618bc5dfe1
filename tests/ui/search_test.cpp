#include "ui/NorvaneUI_OptionSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using namespace NorvaneUI;

bool finds(std::string_view text, std::string_view option) {
    const auto hits = searchOptions(text);
    return std::any_of(hits.begin(), hits.end(), [&](const SearchHit& hit) { return hit.option->name == option; });
}

TEST(Search, FindsEveryOptionByItsNameItsLabelAndItsExplanation) {
    for (const Norvane::PropertyInfo& info : Norvane::propertyCatalogue()) {
        EXPECT_TRUE(finds(info.name, info.name)) << info.name;
        EXPECT_TRUE(finds(info.label, info.name)) << info.label;
        EXPECT_TRUE(finds(info.description, info.name)) << info.description;
    }
}

TEST(Search, TellsThePage) {
    for (const SearchHit& hit : searchOptions("wrap_indent")) EXPECT_EQ(hit.page->id, PageId::LineWrapping);
    const auto unused = searchOptions("WS_BETWEEN_CS_CASES");
    ASSERT_EQ(unused.size(), 1u);
    EXPECT_EQ(unused.front().page, nullptr);
}

TEST(Search, TakesWordsInAnyOrderAndCase) {
    EXPECT_TRUE(finds("  BRACE   class_open ", "WS_BEFORE_CLASS_OPEN_BRACE"));
    EXPECT_FALSE(finds("brace no-such-word", "WS_BEFORE_CLASS_OPEN_BRACE"));
}

TEST(Search, PutsNamesBeforeExplanations) {
    const auto hits = searchOptions("margin");
    ASSERT_GE(hits.size(), 2u);
    const auto isNamed = [](const SearchHit& hit) {
        return hit.option->name.find("MARGIN") != std::string_view::npos ||
               hit.option->label.find("argin") != std::string_view::npos;
    };
    EXPECT_TRUE(std::is_partitioned(hits.begin(), hits.end(), isNamed));
    EXPECT_TRUE(isNamed(hits.front()));
}

TEST(Search, FindsNothingWithoutWords) {
    EXPECT_TRUE(searchOptions("").empty());
    EXPECT_TRUE(searchOptions(" \t").empty());
}

} // namespace
