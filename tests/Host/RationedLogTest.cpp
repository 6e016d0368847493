#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/RationedLog.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class RationedLogTest : public testing::Test {
protected:
    void write(int count) {
        for (int index = 0; index < count; ++index) {
            rationed_.write(LogLevel::notice, "line");
        }
    }

    ManualTimers timers_;
    RecordingLog log_;
    RationedLog rationed_{log_, timers_, 3, 10min};
};

const std::string end = " (more like it is left out, but for a line every 10 min)";

TEST_F(RationedLogTest, WritesTheFirstLinesAndSaysWhichIsTheLast) {
    write(1'000);
    EXPECT_THAT(log_.lines, ElementsAre("line", "line", "line" + end));
}

TEST_F(RationedLogTest, ThenWritesOneInEachPauseWithTheNumberOfThoseLeftOut) {
    write(5);
    log_.lines.clear();
    timers_.advance(10min - 1ms);
    write(1);
    EXPECT_THAT(log_.lines, SizeIs(0));
    timers_.advance(1ms);
    write(2);
    EXPECT_THAT(log_.lines, ElementsAre("line (3 like it left out before)" + end));
    timers_.advance(20min);
    write(1);
    EXPECT_EQ(log_.lines.back(), "line (1 like it left out before)") << "Another may follow";
}

TEST_F(RationedLogTest, StaysWithinItsRationHoweverLongItGoesOn) {
    for (int minute = 0; minute < 24 * 60; ++minute) {
        write(100);
        timers_.advance(1min);
    }
    EXPECT_THAT(log_.lines, SizeIs(3 + 24 * 6 - 1));
}

TEST_F(RationedLogTest, HasItsWholeRationAgainAfterALongSilence) {
    write(5);
    timers_.advance(24h);
    log_.lines.clear();
    write(5);
    EXPECT_THAT(log_.lines, ElementsAre("line (2 like it left out before)", "line", "line" + end));
}

TEST_F(RationedLogTest, SparseLinesAreAllWritten) {
    for (int count = 0; count < 50; ++count) {
        write(1);
        timers_.advance(10min);
    }
    EXPECT_THAT(log_.lines, SizeIs(50));
    EXPECT_THAT(log_.lines, testing::Each("line"));
}

}  // namespace
}  // namespace kelmar::host
