#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "System/Fatal.h"
#include "Widget/StudyTimerControl.h"
#include "Widget/TimerIntents.h"
#include "tests/Support/Timers.h"

namespace kelmar::widget {
namespace {

using testing::pausedTimer;
using testing::readyTimer;
using testing::runningTimer;
using testing::snapshotOf;
using testing::snapshotWith;
using testing::TestSurroundings;
using Timer = shared::WidgetData::Timer;

constexpr system::Date now = TestSurroundings::usualNow;

kit::ControlValue off(const std::string& text) {
    return {.running = false,
            .text = text,
            .symbol = "timer",
            .intent = TimerControlIntent{.value = true}.described()};
}

kit::ControlValue on(const std::string& text) {
    return {.running = true,
            .text = text,
            .symbol = "pause.fill",
            .intent = TimerControlIntent{.value = false}.described()};
}

kit::ControlValue valueOf(const shared::WidgetData& data, TestSurroundings& test) {
    test.publish(data);
    return StudyTimerControl(test.surroundings).currentValue();
}

kit::ControlValue valueOf(const Timer& timer) {
    TestSurroundings test;
    return valueOf(snapshotWith(timer), test);
}

TEST(Control, PresentsItselfAsTheStudyTimer) {
    const TestSurroundings test;
    EXPECT_EQ(
        StudyTimerControl(test.surroundings).descriptor(),
        (kit::ControlDescriptor{.kind = "StudyTimerControl",
                                .displayName = "Study Timer",
                                .description = "Start or pause Kelmar Planner's study timer."}));
}

TEST(Control, ItsPreviewOffersToStartAndTouchesNoFile) {
    TestSurroundings test;
    test.publish(snapshotWith(runningTimer()));
    test.plannerFolder.forgetCalls();
    EXPECT_EQ(StudyTimerControl(test.surroundings).previewValue(), off("Start"));
    EXPECT_TRUE(test.plannerFolder.calls().empty());
}

TEST(Control, AsksToSignInWithoutATimerOfASignedInPlanner) {
    TestSurroundings test;
    const StudyTimerControl control(test.surroundings);
    EXPECT_EQ(control.currentValue(), off("Sign in"));
    for (const char* content : {"", "not json", "{}"}) {
        test.plannerFolder.put(shared::snapshotName, content);
        EXPECT_EQ(control.currentValue(), off("Sign in")) << content;
    }
    EXPECT_EQ(valueOf(snapshotOf({}), test), off("Sign in"));
    auto signedOut = snapshotWith(runningTimer());
    signedOut.signedIn = false;
    EXPECT_EQ(valueOf(signedOut, test), off("Sign in"));
}

Timer ringing(Timer timer) {
    timer.ringing = true;
    return timer;
}

TEST(Control, RingsWhateverTheState) {
    for (const Timer& timer : {runningTimer(), pausedTimer(), readyTimer()})
        EXPECT_EQ(valueOf(ringing(timer)), off("Time’s up")) << timer.state;
}

TEST(Control, SaysUntilWhenTheTimerRuns) {
    Timer timer = runningTimer();
    EXPECT_EQ(valueOf(timer), on("Until 3:10\u202fPM"));
    timer.endAt = now + 24 * 3600;
    EXPECT_EQ(valueOf(timer), on("Until 3:00\u202fPM"));
    // Only the planner knows when a session is over: an end that has passed changes nothing here.
    timer.endAt = now + -3600;
    EXPECT_EQ(valueOf(timer), on("Until 2:00\u202fPM"));
    timer.endAt = std::nullopt;
    EXPECT_EQ(valueOf(timer), on("Running"));
}

TEST(Control, WritesTheTimeAsTheLocaleDoes) {
    TestSurroundings german("de_DE", "Europe/Berlin");
    EXPECT_EQ(valueOf(snapshotWith(runningTimer()), german), on("Until 21:10"));
}

struct LengthRow {
    double seconds;
    const char* text;
};

TEST(Control, ShowsWhatIsLeftWhilePaused) {
    for (const LengthRow& row : {LengthRow{750, "Paused · 12:30"},
                                 {750.999, "Paused · 12:30"},
                                 {3600, "Paused · 1:00:00"},
                                 {0.9, "Paused · 0:00"},
                                 {-5, "Paused · 0:00"}}) {
        Timer timer = pausedTimer();
        timer.secsLeft = row.seconds;
        EXPECT_EQ(valueOf(timer), off(row.text));
    }
}

TEST(Control, OffersTheLengthInMinutesInAnyOtherState) {
    for (const char* state : {"ready", "asleep", "", "Running"}) {
        for (const LengthRow& row : {LengthRow{1500, "Start · 25 min"},
                                     {1530, "Start · 25 min"},
                                     {1559.999, "Start · 25 min"},
                                     {59, "Start · 0 min"},
                                     {-59, "Start · 0 min"},
                                     {-119, "Start · -1 min"},
                                     {5400, "Start · 90 min"}}) {
            Timer timer = readyTimer();
            timer.state = state;
            timer.total = row.seconds;
            EXPECT_EQ(valueOf(timer), off(row.text)) << state;
        }
    }
}

TEST(Control, ReadsTheFileAnewEachTime) {
    TestSurroundings test;
    const StudyTimerControl control(test.surroundings);
    test.publish(snapshotWith(readyTimer()));
    EXPECT_EQ(control.currentValue(), off("Start · 25 min"));
    test.publish(snapshotWith(runningTimer()));
    EXPECT_EQ(control.currentValue(), on("Until 3:10\u202fPM"));
}

/// The least length whose minutes do not fit.
constexpr double tooLong = 0x1p63 * 60;

TEST(Control, ShowsEveryLengthThatFits) {
    Timer timer = readyTimer();
    timer.total = std::nextafter(tooLong, 0);
    EXPECT_EQ(valueOf(timer), off("Start · 9223372036854774784 min"));
    timer.total = 0x1p63;  // fits as minutes, though not as seconds
    EXPECT_EQ(valueOf(timer), off("Start · 153722867280912928 min"));
    timer.total = 1e300;
    timer.state = "running";
    timer.endAt = std::nullopt;
    EXPECT_EQ(valueOf(timer), on("Running"));
}

TEST(ControlDeathTest, EndsTheProcessForALengthThatDoesNotFit) {
    for (const double seconds : {tooLong, -1e300}) {
        Timer ready = readyTimer();
        ready.total = seconds;
        EXPECT_EXIT(valueOf(ready), ::testing::ExitedWithCode(system::fatalExitStatus),
                    "^[^\n]*fits no whole number of 64 bits\\.\n$");
    }
    for (const double seconds : {0x1p63, -1e300}) {
        Timer paused = pausedTimer();
        paused.secsLeft = seconds;
        EXPECT_EXIT(valueOf(paused), ::testing::ExitedWithCode(system::fatalExitStatus),
                    "fits no whole number");
    }
}

}  // namespace
}  // namespace kelmar::widget
