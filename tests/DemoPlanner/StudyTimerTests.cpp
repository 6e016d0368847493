#include <gtest/gtest.h>

#include "DemoPlanner/StudyTimer.h"

namespace kelmar::demo {
namespace {

using Phase = StudyTimer::Phase;
using system::Date;

constexpr Date noon = Date::since1970(1'741'176'000);
const StudySubject essay{"History", "#F59E0B", "Essay"};

StudyTimer running() {
    StudyTimer timer;
    timer.turnOn(noon, essay);
    return timer;
}

/// A study session of `minutes` that has just run out.
StudyTimer rung(std::int64_t minutes) {
    StudyTimer timer;
    timer.start(noon, minutes);
    timer.advance(noon + static_cast<double>(minutes * 60));
    return timer;
}

TEST(StudyTimer, OnWhileReadyRunsTheWholeSessionForTheNextSubject) {
    const StudyTimer timer = running();
    EXPECT_EQ(timer.phase, Phase::running);
    EXPECT_EQ(timer.endAt, noon + 25 * 60);
    EXPECT_EQ(timer.subject, essay);
}

TEST(StudyTimer, OnWhileRunningChangesNothing) {
    StudyTimer timer = running();
    const StudyTimer before = timer;
    timer.turnOn(noon + 60, {});
    EXPECT_EQ(timer, before);
}

TEST(StudyTimer, OffWhileRunningFreezesWhatIsLeft) {
    StudyTimer timer = running();
    timer.turnOff(noon + 90);
    EXPECT_EQ(timer.phase, Phase::paused);
    EXPECT_EQ(timer.secsLeft, 25 * 60 - 90);
    EXPECT_FALSE(timer.endAt);
}

TEST(StudyTimer, OffNeverLeavesMoreThanTheSessionWhenTheClockWentBack) {
    StudyTimer timer = running();
    timer.turnOff(noon + -3600);
    EXPECT_EQ(timer.secsLeft, 25 * 60);
}

TEST(StudyTimer, OffWhileNothingRunsChangesNothing) {
    StudyTimer ready;
    ready.turnOff(noon);
    EXPECT_EQ(ready, StudyTimer());
    StudyTimer ringing = rung(25);
    const StudyTimer before = ringing;
    ringing.turnOff(noon + 3000);
    EXPECT_EQ(ringing, before);
}

TEST(StudyTimer, OnWhilePausedGoesOnWithWhatIsLeftAndTheSameSubject) {
    StudyTimer timer = running();
    timer.turnOff(noon + 90);
    timer.turnOn(noon + 1000, {"Biology", "", "Lab report"});
    EXPECT_EQ(timer.phase, Phase::running);
    EXPECT_EQ(timer.endAt, noon + 1000 + (25 * 60 - 90));
    EXPECT_EQ(timer.subject, essay);
}

TEST(StudyTimer, RingsAtItsEndAndNotBefore) {
    StudyTimer timer = running();
    timer.advance(noon + (25 * 60 - 0.001));
    EXPECT_EQ(timer.phase, Phase::running);
    timer.advance(noon + 25 * 60);
    EXPECT_EQ(timer.phase, Phase::ringing);
    EXPECT_EQ(timer.secsLeft, 0);
}

TEST(StudyTimer, StoppingTheAlarmOfStudyMakesABreakReady) {
    StudyTimer timer = rung(25);
    timer.turnOn(noon + 1600, essay);
    EXPECT_EQ(timer.phase, Phase::ready);
    EXPECT_TRUE(timer.isBreak);
    EXPECT_EQ(timer.total, 5 * 60);
    EXPECT_FALSE(timer.endAt);
}

TEST(StudyTimer, ALongSessionEarnsALongBreak) {
    StudyTimer timer = rung(45);
    timer.turnOn(noon + 3000, essay);
    EXPECT_EQ(timer.total, 10 * 60);
}

TEST(StudyTimer, ABreakRunsRingsAndLeadsBackToStudyOfTheSameLength) {
    StudyTimer timer = rung(50);
    timer.turnOn(noon + 3000, essay);
    timer.turnOn(noon + 3000, essay);
    EXPECT_EQ(timer.phase, Phase::running);
    EXPECT_TRUE(timer.isBreak);
    timer.advance(noon + 3600);
    EXPECT_EQ(timer.phase, Phase::ringing);
    timer.turnOn(noon + 3601, essay);
    EXPECT_EQ(timer.phase, Phase::ready);
    EXPECT_FALSE(timer.isBreak);
    EXPECT_EQ(timer.total, 50 * 60);
}

TEST(StudyTimer, StartingEndsWhateverWentOnAndStudiesFreely) {
    StudyTimer timer = rung(25);
    timer.turnOn(noon + 1600, essay);
    timer.turnOn(noon + 1600, essay);
    timer.start(noon + 1700, 15);
    EXPECT_EQ(timer.phase, Phase::running);
    EXPECT_FALSE(timer.isBreak);
    EXPECT_EQ(timer.total, 15 * 60);
    EXPECT_EQ(timer.endAt, noon + 1700 + 15 * 60);
    EXPECT_EQ(timer.subject, StudySubject());
}

TEST(StudyTimerSnapshot, ReadyTellsTheWholeLengthAndTheNextSubject) {
    const shared::WidgetData::Timer told = StudyTimer().snapshot(noon, essay);
    EXPECT_EQ(told.state, "ready");
    EXPECT_FALSE(told.ringing);
    EXPECT_EQ(told.total, 1500);
    EXPECT_FALSE(told.endAt);
    EXPECT_EQ(told.className, "History");
    EXPECT_EQ(told.classColor, "#F59E0B");
    EXPECT_EQ(told.sessionTitle, "Essay");
    EXPECT_EQ(told.presets, (std::vector<std::int64_t>{25, 50, 15}));
}

TEST(StudyTimerSnapshot, RunningTellsItsEndAndWhatIsLeft) {
    const shared::WidgetData::Timer told = running().snapshot(noon + 100, {});
    EXPECT_EQ(told.state, "running");
    EXPECT_EQ(told.endAt, noon + 1500);
    EXPECT_EQ(told.secsLeft, 1400);
    EXPECT_EQ(told.sessionTitle, "Essay");
}

TEST(StudyTimerSnapshot, RingingStaysRunningWithAnAlarm) {
    const shared::WidgetData::Timer told = rung(25).snapshot(noon + 2000, essay);
    EXPECT_EQ(told.state, "running");
    EXPECT_TRUE(told.ringing);
    EXPECT_EQ(told.endAt, noon + 1500);
    EXPECT_EQ(told.secsLeft, 0);
}

TEST(StudyTimerSnapshot, FreeStudyHasAClassButNoTitle) {
    StudyTimer timer;
    timer.start(noon, 15);
    const shared::WidgetData::Timer told = timer.snapshot(noon, essay);
    EXPECT_EQ(told.className, "Free study");
    EXPECT_EQ(told.sessionTitle, "");
}

TEST(StudyTimerSnapshot, ABreakHasNoTitle) {
    StudyTimer timer = rung(25);
    timer.turnOn(noon + 1600, essay);
    const shared::WidgetData::Timer told = timer.snapshot(noon + 1600, essay);
    EXPECT_TRUE(told.isBreak);
    EXPECT_EQ(told.className, "Break");
    EXPECT_EQ(told.sessionTitle, "");
}

}  // namespace
}  // namespace kelmar::demo
