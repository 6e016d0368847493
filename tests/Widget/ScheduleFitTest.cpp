#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Widget/ScheduleFit.h"

namespace kelmar::widget {
namespace {

struct FitRow {
    const char* what;
    double height;
    std::size_t past;
    std::size_t live;
    ScheduleFit fit;
};

TEST(ScheduleFit, SharesTheHeightAmongTheRows) {
    const std::vector<FitRow> rows{
        {"room to spare for the finished ones", 190, 2, 3, {6, 2, 3, 34, 4}},
        {"room for one", 50, 0, 5, {1, 0, 1, 40, 8}},
        {"room for one and none to come", 50, 5, 0, {1, 1, 0, 40, 8}},
        {"the large family with four", 328, 0, 4, {10, 0, 4, 40, 8}},
        {"the large family with seven", 328, 2, 5, {10, 2, 5, 40, 48.0 / 7}},
        {"the large family with eight", 328, 0, 8, {10, 0, 8, 37, 4}},
        {"the large family full", 328, 9, 4, {10, 6, 4, 30, 2.8}},
        {"the large family full of what is to come", 328, 9, 14, {10, 0, 10, 30, 2.8}},
        {"a day that is over", 328, 20, 0, {10, 10, 0, 30, 2.8}},
        {"no blocks", 328, 0, 0, {10, 0, 0, 40, 8}},
        {"rows of the least height touch", 60, 0, 2, {2, 0, 2, 30, 0}},
        {"no height at all", 0, 3, 3, {1, 0, 1, 30, 0}},
        {"less than no height", -500, 3, 0, {1, 1, 0, 30, 0}},
    };
    for (const FitRow& row : rows) {
        const ScheduleFit fit = fitSchedule(row.height, row.past, row.live);
        EXPECT_EQ(fit.capacity, row.fit.capacity) << row.what;
        EXPECT_EQ(fit.past, row.fit.past) << row.what;
        EXPECT_EQ(fit.live, row.fit.live) << row.what;
        EXPECT_DOUBLE_EQ(fit.rowHeight, row.fit.rowHeight) << row.what;
        EXPECT_NEAR(fit.spacing, row.fit.spacing, 1e-12) << row.what;
    }
}

TEST(ScheduleFit, NeverExceedsAHeightThatOneRowFits) {
    EXPECT_TRUE(rc::check([] {
        const double height = *rc::gen::inRange(300, 10'000) / 10.0;
        const auto past = *rc::gen::inRange<std::size_t>(0, 100);
        const auto live = *rc::gen::inRange<std::size_t>(0, 100);
        const ScheduleFit fit = fitSchedule(height, past, live);

        // The flexible space below the rows has a spacing before it, too.
        const int rows = fit.past + fit.live;
        RC_ASSERT(rows * (fit.rowHeight + fit.spacing) <= height + 1e-9);
        RC_ASSERT(fit.rowHeight >= 30 && fit.rowHeight <= 40);
        RC_ASSERT(fit.spacing >= 0 && fit.spacing <= 8);
    }));
}

TEST(ScheduleFit, ShowsFinishedBlocksOnlyWhereAllOthersAreShown) {
    EXPECT_TRUE(rc::check([] {
        const double height = *rc::gen::inRange(-100, 1000);
        const auto past = *rc::gen::inRange<std::size_t>(0, 50);
        const auto live = *rc::gen::inRange<std::size_t>(0, 50);
        const ScheduleFit fit = fitSchedule(height, past, live);

        RC_ASSERT(fit.capacity >= 1);
        RC_ASSERT(fit.past + fit.live == std::min(fit.capacity, static_cast<int>(past + live)));
        RC_ASSERT(fit.past == 0 || static_cast<std::size_t>(fit.live) == live);
        RC_ASSERT(static_cast<std::size_t>(fit.past) <= past);
    }));
}

}  // namespace
}  // namespace kelmar::widget
