#include <gtest/gtest.h>

#include "DemoPlanner/StreakKeeper.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using Mark = shared::WidgetData::Streak::Mark;

class StreakKeeperTest : public testing::Test {
protected:
    Surroundings around_;
    const system::Calendar& calendar_ = *around_.calendar;
    StreakKeeper keeper_ = StreakKeeper::begun(around_.at(0, 15), calendar_);

    /// A keeper whose freeze has been ready for long.
    [[nodiscard]] StreakKeeper withFreeze() const {
        StreakKeeper ready = keeper_;
        ready.streak.freezeNext.clear();
        return ready;
    }
};

TEST_F(StreakKeeperTest, BeginsAliveSixDaysLongWithOneDayCovered) {
    EXPECT_EQ(keeper_.streak.count, 6);
    EXPECT_EQ(keeper_.streak.lastDate, "2025-03-04");
    EXPECT_EQ(keeper_.streak.freezeNext, "2025-03-09");
    std::vector<Mark> marks;
    for (const auto& day : keeper_.streak.recent(around_.at(0, 15), calendar_)) {
        marks.push_back(day.mark);
    }
    EXPECT_EQ(marks, (std::vector<Mark>{Mark::streak, Mark::streak, Mark::streak, Mark::covered,
                                        Mark::streak, Mark::streak, Mark::none}));
}

TEST_F(StreakKeeperTest, ADayWithEverythingDoneCountsOnce) {
    keeper_.settleToday(true, around_.at(0, 15), calendar_);
    keeper_.settleToday(true, around_.at(0, 16), calendar_);
    EXPECT_EQ(keeper_.streak.count, 7);
    EXPECT_EQ(keeper_.streak.best, 11);
    EXPECT_EQ(keeper_.streak.lastDate, "2025-03-05");
    EXPECT_EQ(keeper_.streak.hist.at("2025-03-05"), 1);
}

TEST_F(StreakKeeperTest, ADayWithWorkLeftDoesNotCount) {
    const StreakKeeper before = keeper_;
    keeper_.settleToday(false, around_.at(0, 15), calendar_);
    EXPECT_EQ(keeper_, before);
}

TEST_F(StreakKeeperTest, WorkThatTurnsUpAgainTakesTheDayBackWithoutATrace) {
    keeper_.streak.best = 6;
    const StreakKeeper before = keeper_;
    keeper_.settleToday(true, around_.at(0, 15), calendar_);
    EXPECT_EQ(keeper_.streak.best, 7);
    keeper_.settleToday(false, around_.at(0, 16), calendar_);
    EXPECT_EQ(keeper_, before);
}

TEST_F(StreakKeeperTest, ADayThatCountedYesterdayStaysWhenWorkTurnsUpToday) {
    keeper_.settleToday(true, around_.at(0, 15), calendar_);
    keeper_.closeDays(around_.at(0, 15), around_.at(1, 0), calendar_);
    keeper_.settleToday(false, around_.at(1, 8), calendar_);
    EXPECT_EQ(keeper_.streak.count, 7);
    EXPECT_EQ(keeper_.streak.lastDate, "2025-03-05");
}

TEST_F(StreakKeeperTest, AMissedDayWithoutAFreezeEndsTheStreakButKeepsItsCount) {
    keeper_.closeDays(around_.at(0, 15), around_.at(1, 8), calendar_);
    EXPECT_EQ(keeper_.streak.count, 6);
    EXPECT_FALSE(keeper_.streak.isAlive(around_.at(1, 8), calendar_));
    EXPECT_FALSE(keeper_.streak.hist.contains("2025-03-05"));
}

TEST_F(StreakKeeperTest, AStreakThatEndedBeginsAgainAtOne) {
    keeper_.closeDays(around_.at(0, 15), around_.at(1, 8), calendar_);
    keeper_.settleToday(true, around_.at(1, 8), calendar_);
    EXPECT_EQ(keeper_.streak.count, 1);
    EXPECT_EQ(keeper_.streak.best, 11);
}

TEST_F(StreakKeeperTest, AMissedDayIsCoveredByAFreezeForAWeek) {
    StreakKeeper ready = withFreeze();
    ready.closeDays(around_.at(0, 15), around_.at(1, 8), calendar_);
    EXPECT_EQ(ready.streak.hist.at("2025-03-05"), 2);
    EXPECT_EQ(ready.streak.count, 6);
    EXPECT_EQ(ready.streak.freezeNext, "2025-03-12");
    EXPECT_TRUE(ready.streak.isAlive(around_.at(1, 8), calendar_));
    ready.settleToday(true, around_.at(1, 20), calendar_);
    EXPECT_EQ(ready.streak.count, 7);
}

TEST_F(StreakKeeperTest, AFreezeIsReadyOnTheDayThatItNames) {
    keeper_.streak.freezeNext = "2025-03-05";
    keeper_.closeDays(around_.at(0, 15), around_.at(1, 8), calendar_);
    EXPECT_EQ(keeper_.streak.hist.at("2025-03-05"), 2);
}

TEST_F(StreakKeeperTest, ASecondMissedDayIsNotCovered) {
    StreakKeeper ready = withFreeze();
    ready.closeDays(around_.at(0, 15), around_.at(2, 8), calendar_);
    EXPECT_FALSE(ready.streak.hist.contains("2025-03-06"));
    EXPECT_FALSE(ready.streak.isAlive(around_.at(2, 8), calendar_));
}

TEST_F(StreakKeeperTest, AFreezeIsNotSpentOnAStreakThatHasEnded) {
    keeper_.closeDays(around_.at(0, 15), around_.at(1, 8), calendar_);
    keeper_.streak.freezeNext.clear();
    keeper_.closeDays(around_.at(1, 8), around_.at(2, 8), calendar_);
    EXPECT_EQ(keeper_.streak.freezeNext, "");
    EXPECT_FALSE(keeper_.streak.hist.contains("2025-03-06"));
}

TEST_F(StreakKeeperTest, AClockThatWentBackClosesNoDay) {
    const shared::WidgetData::Streak before = keeper_.streak;
    keeper_.closeDays(around_.at(5, 15), around_.at(0, 15), calendar_);
    EXPECT_EQ(keeper_.streak, before);
}

}  // namespace
}  // namespace kelmar::demo
