#include "cli/run/Cli_OrderedWork.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

namespace {

TEST(OrderedWork, TakesResultsInOrder) {
    for (const unsigned jobs : {1u, 2u, 7u}) {
        std::vector<std::size_t> taken;
        const auto work = [](std::size_t index) {
            // The first of each few takes longest, so that the others are ready before it.
            if (index % 5 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));
            return index * 3;
        };
        const std::size_t count = Cli::doInOrder<std::size_t>(
            200, jobs, work,
            [&](std::size_t index, std::size_t result) {
                EXPECT_EQ(result, index * 3);
                taken.push_back(index);
            },
            [] { return false; });
        EXPECT_EQ(count, 200u);
        ASSERT_EQ(taken.size(), 200u);
        for (std::size_t i = 0; i < taken.size(); ++i) EXPECT_EQ(taken[i], i);
    }
}

TEST(OrderedWork, TakesWhatWasBegunWhenItStops) {
    for (const unsigned jobs : {1u, 4u}) {
        std::atomic<std::size_t> begun = 0;
        std::size_t taken = 0;
        const std::size_t count = Cli::doInOrder<int>(
            1000, jobs,
            [&](std::size_t) {
                ++begun;
                return 0;
            },
            [&](std::size_t, int) { ++taken; }, [&] { return begun >= 20; });
        EXPECT_EQ(count, taken);
        EXPECT_EQ(taken, begun);
        EXPECT_LT(taken, 1000u);
    }
}

} // namespace
