#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "DemoPlanner/Planner.h"
#include "DemoPlanner/StateCoding.h"
#include "Shared/SnapshotCoding.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using shared::WidgetData;
using system::Date;

class PlannerTest : public testing::Test {
protected:
    Surroundings around;
    const Date afternoon = around.at(0, 15);
    Planner planner{PlannerState::begun(afternoon, *around.calendar), around.calendars};

    void finish(const std::vector<WidgetData::Item>& items, Date now) {
        for (const WidgetData::Item& item : items) {
            ASSERT_TRUE(planner.setDone(item.id, true, now));
        }
    }
};

TEST_F(PlannerTest, PublishesEverythingThatTheWidgetsShow) {
    const WidgetData data = planner.snapshot(afternoon);
    EXPECT_EQ(data.updated, afternoon);
    EXPECT_TRUE(data.signedIn);
    EXPECT_GE(data.today.size(), 3U);
    EXPECT_GE(data.upcoming.size(), 10U);
    ASSERT_TRUE(data.schedule && data.timer && data.streak);
    EXPECT_EQ(data.schedule->size(), 7U);
    EXPECT_EQ(data.timer->state, "ready");
    EXPECT_EQ(data.streak->count, 6);
}

TEST_F(PlannerTest, SignedOutPublishesNothingOfTheStudent) {
    planner.setSignedIn(false);
    WidgetData expected;
    expected.updated = afternoon;
    EXPECT_EQ(planner.snapshot(afternoon), expected);
}

TEST_F(PlannerTest, WithoutTheSchoolCalendarTheTimetableIsEmptyButThere) {
    planner.setSchoolCalendarConnected(false);
    const WidgetData data = planner.snapshot(afternoon);
    ASSERT_TRUE(data.schedule);
    EXPECT_TRUE(data.schedule->empty());
}

TEST_F(PlannerTest, TheStreakGrowsWithTheLastAssignmentOfTheDay) {
    std::vector<WidgetData::Item> today = planner.snapshot(afternoon).today;
    const WidgetData::Item last = today.back();
    today.pop_back();
    finish(today, afternoon);
    EXPECT_EQ(planner.snapshot(afternoon).streak->count, 6);
    finish({last}, afternoon);
    EXPECT_EQ(planner.snapshot(afternoon).streak->count, 7);
    EXPECT_TRUE(planner.snapshot(afternoon).today.empty());
    EXPECT_TRUE(planner.setDone(last.id, false, afternoon));
    EXPECT_EQ(planner.snapshot(afternoon).streak->count, 6);
}

TEST_F(PlannerTest, AtMidnightTomorrowBecomesTodayAndTheTimetableMovesOn) {
    finish(planner.snapshot(afternoon).today, afternoon);
    const WidgetData before = planner.snapshot(afternoon);
    const Date midnight = around.at(1, 0);
    planner.advance(midnight);
    const WidgetData after = planner.snapshot(midnight);
    EXPECT_EQ(after.today, before.regrouped(midnight, *around.calendar).today);
    EXPECT_FALSE(after.today.empty());
    EXPECT_EQ(after.schedule->front().day, midnight);
    EXPECT_EQ(after.streak->count, 7);
    EXPECT_EQ(after.streak->lastDate, "2025-03-05");
}

TEST_F(PlannerTest, UnfinishedWorkIsOverdueTheNextDay) {
    const WidgetData::Item first = planner.snapshot(afternoon).today.back();
    planner.advance(around.at(1, 9));
    const std::vector<WidgetData::Item> today = planner.snapshot(around.at(1, 9)).today;
    EXPECT_NE(std::find(today.begin(), today.end(), first), today.end());
}

TEST_F(PlannerTest, ADayOnWhichEverythingWasDoneAheadCountsAtMidnight) {
    const WidgetData data = planner.snapshot(afternoon);
    finish(data.today, afternoon);
    finish(data.upcoming, afternoon);
    planner.advance(around.at(1, 0));
    EXPECT_EQ(planner.state().streak.streak.count, 8);
}

TEST_F(PlannerTest, WakesAtMidnightOrWhenTheSessionEnds) {
    EXPECT_EQ(planner.nextChange(afternoon), around.at(1, 0));
    planner.startTimer(afternoon, 25);
    EXPECT_EQ(planner.nextChange(afternoon), afternoon + 25 * 60);
    planner.turnTimerOff(afternoon + 60);
    EXPECT_EQ(planner.nextChange(afternoon + 60), around.at(1, 0));
    planner.startTimer(around.at(0, 23, 50), 25);
    EXPECT_EQ(planner.nextChange(around.at(0, 23, 50)), around.at(1, 0));
}

TEST_F(PlannerTest, StudyBeginsWithWhatIsDueFirst) {
    const WidgetData::Item first = planner.snapshot(afternoon).today.front();
    EXPECT_EQ(planner.timer(afternoon).sessionTitle, first.title);
    planner.turnTimerOn(afternoon);
    ASSERT_TRUE(planner.setDone(first.id, true, afternoon));
    EXPECT_EQ(planner.timer(afternoon).sessionTitle, first.title) << "while it runs";
    EXPECT_EQ(planner.timer(afternoon).classColor, first.classColor);
}

TEST_F(PlannerTest, WithEverythingDoneStudyIsFree) {
    const WidgetData data = planner.snapshot(afternoon);
    finish(data.today, afternoon);
    finish(data.upcoming, afternoon);
    EXPECT_EQ(planner.timer(afternoon).sessionTitle, "");
    EXPECT_EQ(planner.timer(afternoon).className, "Free study");
}

TEST_F(PlannerTest, TodayListsOpenWorkFirstAndThenWhatIsDoneOfTheDay) {
    const std::vector<Assignment> before = planner.today(afternoon);
    const std::string overdue = before.front().item.id;
    const std::string due = before.back().item.id;
    ASSERT_TRUE(planner.setDone(overdue, true, afternoon));
    ASSERT_TRUE(planner.setDone(due, true, afternoon));
    const std::vector<Assignment> after = planner.today(afternoon);
    ASSERT_EQ(after.size(), before.size() - 1) << "yesterday's finished work is gone";
    EXPECT_EQ(after.back().item.id, due);
    EXPECT_TRUE(after.back().done);
}

/// Does one random thing to a planner, perhaps after some time has passed.
void doSomething(Planner& planner, Date& now) {
    now = now + *rc::gen::weightedOneOf<double>(
                    {{4, rc::gen::cast<double>(rc::gen::inRange(0, 3600))},
                     {1, rc::gen::cast<double>(rc::gen::inRange(-90'000, 400'000))}});
    planner.advance(now);
    switch (*rc::gen::inRange(0, 7)) {
        case 0:
            planner.turnTimerOn(now);
            break;
        case 1:
            planner.turnTimerOff(now);
            break;
        case 2:
            planner.startTimer(now, *rc::gen::inRange<std::int64_t>(1, 1441));
            break;
        case 3:
            planner.setSignedIn(*rc::gen::arbitrary<bool>());
            break;
        case 4:
            planner.setSchoolCalendarConnected(*rc::gen::arbitrary<bool>());
            break;
        default:
            const Assignment assignment =
                *rc::gen::elementOf(planner.state().coursework.assignments());
            planner.setDone(assignment.item.id, *rc::gen::arbitrary<bool>(), now);
    }
}

RC_GTEST_PROP(PlannerLaws, WhateverIsDoneTheSnapshotDecodesAndTheStateSurvives, ()) {
    const Surroundings around;
    Date now = around.at(0, 15);
    Planner planner(PlannerState::begun(now, *around.calendar), around.calendars);
    const int steps = *rc::gen::inRange(0, 30);
    for (int step = 0; step < steps; ++step) {
        doSomething(planner, now);
        const WidgetData told = planner.snapshot(now);
        const auto decoded = shared::decodeSnapshot(shared::encodeSnapshot(told));
        RC_ASSERT(static_cast<bool>(decoded));
        RC_ASSERT(*decoded == told);
        const auto remembered = decodeState(encodeState(planner.state()));
        RC_ASSERT(static_cast<bool>(remembered));
        RC_ASSERT(*remembered == planner.state());
        RC_ASSERT(planner.nextChange(now) > now);
    }
}

}  // namespace
}  // namespace kelmar::demo
