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
        while (woken_ < times && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return woken_ >= times;
    }

    void setAndNoteTheTime() {
        ++woken_;
        wokenAt_ = clock_.now();
        timer_.set(std::nullopt);
    }

    system::SystemClock clock_;
    int woken_ = 0;
    system::Date wokenAt_;
    WallClockTimer timer_{[this] { setAndNoteTheTime(); }};
};

TEST_F(WallClockTimerTest, WakesOnceAndNotBeforeItsMoment) {
    const system::Date moment = clock_.now() + 0.2;
    timer_.set(moment);
    ASSERT_TRUE(runUntilWoken(1));
    EXPECT_GE(wokenAt_ + 1e-6, moment);
    QCoreApplication::processEvents();
    EXPECT_EQ(woken_, 1);
}

TEST_F(WallClockTimerTest, WakesAtOnceForAMomentInThePast) {
    timer_.set(clock_.now() + -3600);
    EXPECT_TRUE(runUntilWoken(1));
    timer_.set(system::Date::since1970(-5));
    EXPECT_TRUE(runUntilWoken(2));
}

TEST_F(WallClockTimerTest, ANewMomentReplacesTheOneBefore) {
    timer_.set(clock_.now() + 3600);
    timer_.set(clock_.now() + 0.1);
    EXPECT_TRUE(runUntilWoken(1));
}

TEST_F(WallClockTimerTest, NoMomentMeansNoAwakening) {
    timer_.set(clock_.now() + 0.05);
    timer_.set(std::nullopt);
    timer_.set(std::nullopt);
    const QDeadlineTimer deadline(300);
    while (!deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_EQ(woken_, 0);
}

}  // namespace
}  // namespace kelmar::demo
