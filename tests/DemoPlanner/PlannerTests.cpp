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
    Surroundings around_;
    const Date afternoon_ = around_.at(0, 15);
    Planner planner_{PlannerState::begun(afternoon_, *around_.calendar), around_.calendars};

    void finish(const std::vector<WidgetData::Item>& items, Date now) {
        for (const WidgetData::Item& item : items) {
            ASSERT_TRUE(planner_.setDone(item.id, true, now));
        }
    }
};

TEST_F(PlannerTest, PublishesEverythingThatTheWidgetsShow) {
    const WidgetData data = planner_.snapshot(afternoon_);
    EXPECT_EQ(data.updated, afternoon_);
    EXPECT_TRUE(data.signedIn);
    EXPECT_GE(data.today.size(), 3U);
    EXPECT_GE(data.upcoming.size(), 10U);
    ASSERT_TRUE(data.schedule && data.timer && data.streak);
    EXPECT_EQ(data.schedule->size(), 7U);
    EXPECT_EQ(data.timer->state, "ready");
    EXPECT_EQ(data.streak->count, 6);
}

TEST_F(PlannerTest, SignedOutPublishesNothingOfTheStudent) {
    planner_.setSignedIn(false);
    WidgetData expected;
    expected.updated = afternoon_;
    EXPECT_EQ(planner_.snapshot(afternoon_), expected);
}

TEST_F(PlannerTest, WithoutTheSchoolCalendarTheTimetableIsEmptyButThere) {
    planner_.setSchoolCalendarConnected(false);
    const WidgetData data = planner_.snapshot(afternoon_);
    ASSERT_TRUE(data.schedule);
    EXPECT_TRUE(data.schedule->empty());
}

TEST_F(PlannerTest, TheStreakGrowsWithTheLastAssignmentOfTheDay) {
    std::vector<WidgetData::Item> today = planner_.snapshot(afternoon_).today;
    const WidgetData::Item last = today.back();
    today.pop_back();
    finish(today, afternoon_);
    EXPECT_EQ(planner_.snapshot(afternoon_).streak->count, 6);
    finish({last}, afternoon_);
    EXPECT_EQ(planner_.snapshot(afternoon_).streak->count, 7);
    EXPECT_TRUE(planner_.snapshot(afternoon_).today.empty());
    EXPECT_TRUE(planner_.setDone(last.id, false, afternoon_));
    EXPECT_EQ(planner_.snapshot(afternoon_).streak->count, 6);
}

TEST_F(PlannerTest, AtMidnightTomorrowBecomesTodayAndTheTimetableMovesOn) {
    finish(planner_.snapshot(afternoon_).today, afternoon_);
    const WidgetData before = planner_.snapshot(afternoon_);
    const Date midnight = around_.at(1, 0);
    planner_.advance(midnight);
    const WidgetData after = planner_.snapshot(midnight);
    EXPECT_EQ(after.today, before.regrouped(midnight, *around_.calendar).today);
    EXPECT_FALSE(after.today.empty());
    EXPECT_EQ(after.schedule->front().day, midnight);
    EXPECT_EQ(after.streak->count, 7);
    EXPECT_EQ(after.streak->lastDate, "2025-03-05");
}

TEST_F(PlannerTest, UnfinishedWorkIsOverdueTheNextDay) {
    const WidgetData::Item first = planner_.snapshot(afternoon_).today.back();
    planner_.advance(around_.at(1, 9));
    const std::vector<WidgetData::Item> today = planner_.snapshot(around_.at(1, 9)).today;
    EXPECT_NE(std::find(today.begin(), today.end(), first), today.end());
}

TEST_F(PlannerTest, ADayOnWhichEverythingWasDoneAheadCountsAtMidnight) {
    const WidgetData data = planner_.snapshot(afternoon_);
    finish(data.today, afternoon_);
    finish(data.upcoming, afternoon_);
    planner_.advance(around_.at(1, 0));
    EXPECT_EQ(planner_.state().streak.streak.count, 8);
}

TEST_F(PlannerTest, WakesAtMidnightOrWhenTheSessionEnds) {
    EXPECT_EQ(planner_.nextChange(afternoon_), around_.at(1, 0));
    planner_.startTimer(afternoon_, 25);
    EXPECT_EQ(planner_.nextChange(afternoon_), afternoon_ + 25 * 60);
    planner_.turnTimerOff(afternoon_ + 60);
    EXPECT_EQ(planner_.nextChange(afternoon_ + 60), around_.at(1, 0));
    planner_.startTimer(around_.at(0, 23, 50), 25);
    EXPECT_EQ(planner_.nextChange(around_.at(0, 23, 50)), around_.at(1, 0));
}

TEST_F(PlannerTest, StudyBeginsWithWhatIsDueFirst) {
    const WidgetData::Item first = planner_.snapshot(afternoon_).today.front();
    EXPECT_EQ(planner_.timer(afternoon_).sessionTitle, first.title);
    planner_.turnTimerOn(afternoon_);
    ASSERT_TRUE(planner_.setDone(first.id, true, afternoon_));
    EXPECT_EQ(planner_.timer(afternoon_).sessionTitle, first.title) << "while it runs";
    EXPECT_EQ(planner_.timer(afternoon_).classColor, first.classColor);
}

TEST_F(PlannerTest, WithEverythingDoneStudyIsFree) {
    const WidgetData data = planner_.snapshot(afternoon_);
    finish(data.today, afternoon_);
    finish(data.upcoming, afternoon_);
    EXPECT_EQ(planner_.timer(afternoon_).sessionTitle, "");
    EXPECT_EQ(planner_.timer(afternoon_).className, "Free study");
}

TEST_F(PlannerTest, TodayListsOpenWorkFirstAndThenWhatIsDoneOfTheDay) {
    const std::vector<Assignment> before = planner_.today(afternoon_);
    const std::string overdue = before.front().item.id;
    const std::string due = before.back().item.id;
    ASSERT_TRUE(planner_.setDone(overdue, true, afternoon_));
    ASSERT_TRUE(planner_.setDone(due, true, afternoon_));
    const std::vector<Assignment> after = planner_.today(afternoon_);
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
