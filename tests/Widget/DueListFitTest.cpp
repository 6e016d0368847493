#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Metrics.h"
#include "Widget/DueTodayView.h"

namespace kelmar::widget {
namespace {

using kit::Family;

struct FitRow {
    const char* what;
    double height;
    Family family;
    UndoBar undoBar;
    std::size_t items;
    std::size_t rest;
    DueListFit fit;
};

TEST(DueListFit, SharesTheHeightAmongRowsAndGaps) {
    const auto absent = UndoBar::absent;
    const auto present = UndoBar::present;
    const std::vector<FitRow> rows{
        {"medium with room for two", 130, Family::medium, absent, 5, 5, {28, 30, 2, 2, 0, 6, 0}},
        {"medium as it is", 138, Family::medium, absent, 5, 0, {28, 30, 3, 3, 0, 6, 0}},
        {"medium with an undo bar", 138, Family::medium, present, 5, 0, {28, 30, 2, 2, 0, 6, 0}},
        {"medium with one item", 138, Family::medium, absent, 1, 0, {28, 30, 3, 1, 0, 6, 0}},
        {"medium with rest", 138, Family::medium, absent, 1, 9, {28, 30, 3, 1, 2, 0, 0}},
        {"large full", 350, Family::large, absent, 20, 0, {34, 36, 8, 8, 0, 3.5, 0}},
        {"large full with rest", 350, Family::large, absent, 4, 9, {34, 36, 8, 4, 4, 8.0 / 9, 0}},
        {"large full with undo", 350, Family::large, present, 20, 0, {34, 36, 7, 7, 0, 6, 0}},
        {"large with a little", 350, Family::large, absent, 3, 0, {34, 36, 8, 3, 0, 16, 18}},
        {"large with some rest", 350, Family::large, absent, 3, 4, {34, 36, 8, 3, 4, 26.0 / 8, 18}},
        {"large with nothing", 350, Family::large, absent, 0, 0, {34, 36, 8, 0, 0, 16, 18}},
        {"large with nothing but an undo bar",
         350,
         Family::large,
         present,
         0,
         0,
         {34, 36, 7, 0, 0, 16, 18}},
        {"no height at all", 0, Family::medium, absent, 3, 3, {28, 30, 1, 1, 0, 0, 0}},
        {"less than no height", -500, Family::large, present, 3, 3, {34, 36, 1, 1, 0, 0, 0}},
    };
    for (const FitRow& row : rows) {
        const DueListFit fit = fitDueList(row.height, row.family, row.undoBar, row.items, row.rest);
        EXPECT_EQ(fit.headerHeight, row.fit.headerHeight) << row.what;
        EXPECT_EQ(fit.rowHeight, row.fit.rowHeight) << row.what;
        EXPECT_EQ(fit.capacity, row.fit.capacity) << row.what;
        EXPECT_EQ(fit.shown, row.fit.shown) << row.what;
        EXPECT_EQ(fit.restShown, row.fit.restShown) << row.what;
        EXPECT_DOUBLE_EQ(fit.gap, row.fit.gap) << row.what;
        EXPECT_EQ(fit.reserve, row.fit.reserve) << row.what;
    }
}

TEST(DueListFit, NeverReachesOutOfTheWidget) {
    EXPECT_TRUE(rc::check([] {
        const Family family = *rc::gen::element(Family::medium, Family::large);
        const UndoBar undoBar = *rc::gen::element(UndoBar::absent, UndoBar::present);
        const auto items = *rc::gen::inRange<std::size_t>(0, 30);
        const auto rest = *rc::gen::inRange<std::size_t>(0, 30);
        const double height = kit::contentSize(family).height;
        const DueListFit fit = fitDueList(height, family, undoBar, items, rest);

        const int elements = 1 + fit.shown + fit.restShown + (fit.restShown > 0 ? 1 : 0);
        double used = fit.headerHeight + fit.rowHeight * (fit.shown + fit.restShown) +
                      (fit.restShown > 0 ? sectionHeight : 0) + fit.gap * (elements - 1);
        if (undoBar == UndoBar::present) {
            used += undoBarHeight + fit.gap;
        } else if (fit.reserve > 0) {
            used += kit::lineHeight(11) + fit.gap;
        }
        RC_ASSERT(used <= height + kit::contentMargin);
        RC_ASSERT(fit.shown + fit.restShown <= fit.capacity);
        RC_ASSERT(static_cast<std::size_t>(fit.shown) <= items);
        RC_ASSERT(static_cast<std::size_t>(fit.restShown) <= rest);
    }));
}

}  // namespace
}  // namespace kelmar::widget
