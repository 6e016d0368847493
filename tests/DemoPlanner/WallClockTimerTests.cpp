#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <gtest/gtest.h>

#include "DemoPlanner/WallClockTimer.h"
#include "System/Clock.h"

namespace kelmar::demo {
namespace {

class WallClockTimerTest : public testing::Test {
protected:
    /// Lets the event loop run until the timer has woken so often, for a minute at most.
    bool runUntilWoken(int times) {
        const QDeadlineTimer deadline(60'000);
        while (woken < times && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return woken >= times;
    }

    void setAndNoteTheTime() {
        ++woken;
        wokenAt = clock.now();
        timer.set(std::nullopt);
    }

    system::SystemClock clock;
    int woken = 0;
    system::Date wokenAt;
    WallClockTimer timer{[this] { setAndNoteTheTime(); }};
};

TEST_F(WallClockTimerTest, WakesOnceAndNotBeforeItsMoment) {
    const system::Date moment = clock.now() + 0.2;
    timer.set(moment);
    ASSERT_TRUE(runUntilWoken(1));
    EXPECT_GE(wokenAt + 1e-6, moment);
    QCoreApplication::processEvents();
    EXPECT_EQ(woken, 1);
}

TEST_F(WallClockTimerTest, WakesAtOnceForAMomentInThePast) {
    timer.set(clock.now() + -3600);
    EXPECT_TRUE(runUntilWoken(1));
    timer.set(system::Date::since1970(-5));
    EXPECT_TRUE(runUntilWoken(2));
}

TEST_F(WallClockTimerTest, ANewMomentReplacesTheOneBefore) {
    timer.set(clock.now() + 3600);
    timer.set(clock.now() + 0.1);
    EXPECT_TRUE(runUntilWoken(1));
}

TEST_F(WallClockTimerTest, NoMomentMeansNoAwakening) {
    timer.set(clock.now() + 0.05);
    timer.set(std::nullopt);
    timer.set(std::nullopt);
    const QDeadlineTimer deadline(300);
    while (!deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_EQ(woken, 0);
}

}  // namespace
}  // namespace kelmar::demo
