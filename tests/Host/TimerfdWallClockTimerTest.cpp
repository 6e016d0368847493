#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/TimerfdWallClockTimer.h"
#include "System/Clock.h"
#include "tests/Host/Contents.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The machine's clock is nothing that a test may set, so steps are not among these.
class TimerfdWallClockTimerTest : public testing::Test {
protected:
    TimerfdWallClockTimerTest() {
        timer_.setHandler([this](ClockEvent event) {
            events_.push_back(event);
            calledAt_ = clock_.now();
        });
    }
    [[nodiscard]] bool isCalled() {
        return waitUntil([this] { return !events_.empty(); });
    }

    system::SystemClock clock_;
    RecordingLog log_;
    TimerfdWallClockTimer timer_{log_};
    std::vector<ClockEvent> events_;
    system::Date calledAt_;
};

TEST_F(TimerfdWallClockTimerTest, CallsOnceAndNotBeforeTheDate) {
    const auto date = clock_.now() + 0.0503;
    timer_.arm(date);
    EXPECT_THAT(events_, IsEmpty());
    ASSERT_TRUE(isCalled());
    EXPECT_GE(calledAt_, date);
    runFor(50ms);
    EXPECT_THAT(events_, ElementsAre(ClockEvent::dateReached));
}

TEST_F(TimerfdWallClockTimerTest, ADateThatHasPassedIsReachedAtOnceButNotWithinTheCall) {
    for (const double seconds : {clock_.now().secondsSince1970() - 1, 1.0, 0.0, -1e6, -1e300}) {
        events_.clear();
        timer_.arm(at(seconds));
        EXPECT_THAT(events_, IsEmpty());
        EXPECT_TRUE(isCalled()) << seconds;
    }
}

TEST_F(TimerfdWallClockTimerTest, ALaterArmingReplacesTheEarlier) {
    timer_.arm(clock_.now() + 0.02);
    timer_.arm(clock_.now() + 3'600);
    runFor(100ms);
    EXPECT_THAT(events_, IsEmpty());
}

TEST_F(TimerfdWallClockTimerTest, ADateIsTakenBackThoughItHasBeenReachedAlready) {
    timer_.arm(clock_.now() + -1);
    timer_.arm(std::nullopt);
    runFor(50ms);
    EXPECT_THAT(events_, IsEmpty());
}

TEST_F(TimerfdWallClockTimerTest, FarDatesNeverCome) {
    for (const double seconds : {9e9, 1e12, 1e300}) {
        timer_.arm(at(seconds));
        runFor(20ms);
        EXPECT_THAT(events_, IsEmpty()) << seconds;
    }
}

TEST_F(TimerfdWallClockTimerTest, MayBeArmedAnewFromItsCall) {
    int calls = 0;
    timer_.setHandler([&](ClockEvent) {
        if (++calls < 3) {
            timer_.arm(clock_.now() + 0.01);
        }
    });
    timer_.arm(clock_.now() + 0.01);
    EXPECT_TRUE(waitUntil([&] { return calls == 3; }));
    EXPECT_THAT(log_.lines, IsEmpty());
}

}  // namespace
}  // namespace kelmar::host
