#include "src/wrap/Norvane_WrapIndexSet.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using Norvane::WrapIndexSet;

std::size_t nextIn(const std::set<std::size_t>& members, std::size_t index) {
    const auto found = members.lower_bound(index);
    return found == members.end() ? WrapIndexSet::npos : *found;
}

std::size_t previousIn(const std::set<std::size_t>& members, std::size_t index) {
    auto found = members.upper_bound(index);
    return found == members.begin() ? WrapIndexSet::npos : *--found;
}

// Sizes around the powers of 64, where the tree grows by a level.
class WrapIndexSetSizes : public testing::TestWithParam<std::size_t> {};

TEST_P(WrapIndexSetSizes, FindsTheNeighboursThatAnOrderedSetFinds) {
    const std::size_t size = GetParam();
    std::mt19937 random(static_cast<unsigned>(size));
    WrapIndexSet tested(size);
    std::set<std::size_t> model;
    for (int step = 0; step < 2000; ++step) {
        const std::size_t index = random() % size;
        if (random() % 3 == 0) {
            tested.erase(index);
            model.erase(index);
        } else if (random() % 4 == 0) {
            tested.insert(index);
            model.insert(index);
        }
        ASSERT_EQ(tested.next(index), nextIn(model, index));
        ASSERT_EQ(tested.previous(index), previousIn(model, index));
        ASSERT_EQ(tested.contains(index), model.count(index) == 1);
        ASSERT_EQ(tested.empty(), model.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, WrapIndexSetSizes, testing::Values(1, 63, 64, 65, 4096, 4097, 300000));

TEST(WrapIndexSet, NothingLiesBehindTheLastIndex) {
    WrapIndexSet tested(64);
    tested.insert(63);
    EXPECT_EQ(tested.next(64), WrapIndexSet::npos);
    EXPECT_EQ(tested.next(WrapIndexSet::npos), WrapIndexSet::npos);
}

} // namespace
