#include "derive/Derive_Deriver.h"

#include <gtest/gtest.h>

namespace {

TEST(Gaps, AreKnownByTheInkInFrontOfThem) {
    const auto gaps = Derive::gapsOf(" a b\n");
    ASSERT_EQ(gaps.size(), 3u);
    EXPECT_EQ(gaps[1].ink, 1u);
    EXPECT_EQ(gaps[1].begin, 2u);
    EXPECT_EQ(gaps[2].end, 5u);
}

} // namespace
