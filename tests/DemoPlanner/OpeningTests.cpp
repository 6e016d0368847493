#include <gtest/gtest.h>

#include "DemoPlanner/Opening.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

class OpeningTest : public testing::Test {
protected:
    Surroundings around;
    Planner planner{PlannerState::begun(around.at(0, 15), *around.calendar), around.calendars};
    const Assignment assignment = planner.today(around.at(0, 15)).front();
};

TEST_F(OpeningTest, AnAssignmentIsNamedWithItsClass) {
    const Opening opening = openingOf(ShowAssignment{assignment.item.id}, planner);
    EXPECT_EQ(opening, (Opening{"Assignment", assignment.item.title, assignment.item.className}));
}

TEST_F(OpeningTest, AFinishedAssignmentSaysSo) {
    ASSERT_TRUE(planner.setDone(assignment.item.id, true, around.at(0, 15)));
    const Opening opening = openingOf(ShowAssignment{assignment.item.id}, planner);
    EXPECT_EQ(opening.detail, assignment.item.className + ", done");
}

TEST_F(OpeningTest, UnknownIdsAreShownAsTheyAre) {
    EXPECT_EQ(openingOf(ShowAssignment{"x/y"}, planner).detail, "x/y");
    EXPECT_EQ(openingOf(ShowClass{"potions"}, planner).detail, "potions");
}

TEST_F(OpeningTest, AClassIsNamed) {
    EXPECT_EQ(openingOf(ShowClass{"spanish"}, planner), (Opening{"Class", "Spanish II", ""}));
}

TEST_F(OpeningTest, EveryPlaceHasAName) {
    EXPECT_EQ(openingOf(ShowDashboard{}, planner).place, "Dashboard");
    EXPECT_EQ(openingOf(ShowSchedule{}, planner).place, "Schedule");
    EXPECT_EQ(openingOf(ShowStatistics{}, planner).place, "Streak & Stats");
    EXPECT_EQ(openingOf(ShowTimer{}, planner).place, "Study Timer");
}

}  // namespace
}  // namespace kelmar::demo
