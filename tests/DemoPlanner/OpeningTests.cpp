#include <gtest/gtest.h>

#include "DemoPlanner/Opening.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

class OpeningTest : public testing::Test {
protected:
    Surroundings around_;
    Planner planner_{PlannerState::begun(around_.at(0, 15), *around_.calendar), around_.calendars};
    const Assignment assignment_ = planner_.today(around_.at(0, 15)).front();
};

TEST_F(OpeningTest, AnAssignmentIsNamedWithItsClass) {
    const Opening opening = openingOf(ShowAssignment{assignment_.item.id}, planner_);
    EXPECT_EQ(opening, (Opening{"Assignment", assignment_.item.title, assignment_.item.className}));
}

TEST_F(OpeningTest, AFinishedAssignmentSaysSo) {
    ASSERT_TRUE(planner_.setDone(assignment_.item.id, true, around_.at(0, 15)));
    const Opening opening = openingOf(ShowAssignment{assignment_.item.id}, planner_);
    EXPECT_EQ(opening.detail, assignment_.item.className + ", done");
}

TEST_F(OpeningTest, UnknownIdsAreShownAsTheyAre) {
    EXPECT_EQ(openingOf(ShowAssignment{"x/y"}, planner_).detail, "x/y");
    EXPECT_EQ(openingOf(ShowClass{"potions"}, planner_).detail, "potions");
}

TEST_F(OpeningTest, AClassIsNamed) {
    EXPECT_EQ(openingOf(ShowClass{"spanish"}, planner_), (Opening{"Class", "Spanish II", ""}));
}

TEST_F(OpeningTest, EveryPlaceHasAName) {
    EXPECT_EQ(openingOf(ShowDashboard{}, planner_).place, "Dashboard");
    EXPECT_EQ(openingOf(ShowSchedule{}, planner_).place, "Schedule");
    EXPECT_EQ(openingOf(ShowStatistics{}, planner_).place, "Streak & Stats");
    EXPECT_EQ(openingOf(ShowTimer{}, planner_).place, "Study Timer");
}

}  // namespace
}  // namespace kelmar::demo
