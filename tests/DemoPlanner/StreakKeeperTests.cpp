#include <gtest/gtest.h>

#include "DemoPlanner/StreakKeeper.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using Mark = shared::WidgetData::Streak::Mark;

class StreakKeeperTest : public testing::Test {
protected:
    Surroundings around;
    const system::Calendar& calendar = *around.calendar;
    StreakKeeper keeper = StreakKeeper::begun(around.at(0, 15), calendar);

    /// A keeper whose freeze has been ready for long.
    [[nodiscard]] StreakKeeper withFreeze() const {
        StreakKeeper ready = keeper;
        ready.streak.freezeNext.clear();
        return ready;
    }
};

TEST_F(StreakKeeperTest, BeginsAliveSixDaysLongWithOneDayCovered) {
    EXPECT_EQ(keeper.streak.count, 6);
    EXPECT_EQ(keeper.streak.lastDate, "2025-03-04");
    EXPECT_EQ(keeper.streak.freezeNext, "2025-03-09");
    std::vector<Mark> marks;
    for (const auto& day : keeper.streak.recent(around.at(0, 15), calendar)) {
        marks.push_back(day.mark);
    }
    EXPECT_EQ(marks, (std::vector<Mark>{Mark::streak, Mark::streak, Mark::streak, Mark::covered,
                                        Mark::streak, Mark::streak, Mark::none}));
}

TEST_F(StreakKeeperTest, ADayWithEverythingDoneCountsOnce) {
    keeper.settleToday(true, around.at(0, 15), calendar);
    keeper.settleToday(true, around.at(0, 16), calendar);
    EXPECT_EQ(keeper.streak.count, 7);
    EXPECT_EQ(keeper.streak.best, 11);
    EXPECT_EQ(keeper.streak.lastDate, "2025-03-05");
    EXPECT_EQ(keeper.streak.hist.at("2025-03-05"), 1);
}

TEST_F(StreakKeeperTest, ADayWithWorkLeftDoesNotCount) {
    const StreakKeeper before = keeper;
    keeper.settleToday(false, around.at(0, 15), calendar);
    EXPECT_EQ(keeper, before);
}

TEST_F(StreakKeeperTest, WorkThatTurnsUpAgainTakesTheDayBackWithoutATrace) {
    keeper.streak.best = 6;
    const StreakKeeper before = keeper;
    keeper.settleToday(true, around.at(0, 15), calendar);
    EXPECT_EQ(keeper.streak.best, 7);
    keeper.settleToday(false, around.at(0, 16), calendar);
    EXPECT_EQ(keeper, before);
}

TEST_F(StreakKeeperTest, ADayThatCountedYesterdayStaysWhenWorkTurnsUpToday) {
    keeper.settleToday(true, around.at(0, 15), calendar);
    keeper.closeDays(around.at(0, 15), around.at(1, 0), calendar);
    keeper.settleToday(false, around.at(1, 8), calendar);
    EXPECT_EQ(keeper.streak.count, 7);
    EXPECT_EQ(keeper.streak.lastDate, "2025-03-05");
}

TEST_F(StreakKeeperTest, AMissedDayWithoutAFreezeEndsTheStreakButKeepsItsCount) {
    keeper.closeDays(around.at(0, 15), around.at(1, 8), calendar);
    EXPECT_EQ(keeper.streak.count, 6);
    EXPECT_FALSE(keeper.streak.isAlive(around.at(1, 8), calendar));
    EXPECT_FALSE(keeper.streak.hist.contains("2025-03-05"));
}

TEST_F(StreakKeeperTest, AStreakThatEndedBeginsAgainAtOne) {
    keeper.closeDays(around.at(0, 15), around.at(1, 8), calendar);
    keeper.settleToday(true, around.at(1, 8), calendar);
    EXPECT_EQ(keeper.streak.count, 1);
    EXPECT_EQ(keeper.streak.best, 11);
}

TEST_F(StreakKeeperTest, AMissedDayIsCoveredByAFreezeForAWeek) {
    StreakKeeper ready = withFreeze();
    ready.closeDays(around.at(0, 15), around.at(1, 8), calendar);
    EXPECT_EQ(ready.streak.hist.at("2025-03-05"), 2);
    EXPECT_EQ(ready.streak.count, 6);
    EXPECT_EQ(ready.streak.freezeNext, "2025-03-12");
    EXPECT_TRUE(ready.streak.isAlive(around.at(1, 8), calendar));
    ready.settleToday(true, around.at(1, 20), calendar);
    EXPECT_EQ(ready.streak.count, 7);
}

TEST_F(StreakKeeperTest, AFreezeIsReadyOnTheDayThatItNames) {
    keeper.streak.freezeNext = "2025-03-05";
    keeper.closeDays(around.at(0, 15), around.at(1, 8), calendar);
    EXPECT_EQ(keeper.streak.hist.at("2025-03-05"), 2);
}

TEST_F(StreakKeeperTest, ASecondMissedDayIsNotCovered) {
    StreakKeeper ready = withFreeze();
    ready.closeDays(around.at(0, 15), around.at(2, 8), calendar);
    EXPECT_FALSE(ready.streak.hist.contains("2025-03-06"));
    EXPECT_FALSE(ready.streak.isAlive(around.at(2, 8), calendar));
}

TEST_F(StreakKeeperTest, AFreezeIsNotSpentOnAStreakThatHasEnded) {
    keeper.closeDays(around.at(0, 15), around.at(1, 8), calendar);
    keeper.streak.freezeNext.clear();
    keeper.closeDays(around.at(1, 8), around.at(2, 8), calendar);
    EXPECT_EQ(keeper.streak.freezeNext, "");
    EXPECT_FALSE(keeper.streak.hist.contains("2025-03-06"));
}

TEST_F(StreakKeeperTest, AClockThatWentBackClosesNoDay) {
    const shared::WidgetData::Streak before = keeper.streak;
    keeper.closeDays(around.at(5, 15), around.at(0, 15), calendar);
    EXPECT_EQ(keeper.streak, before);
}

}  // namespace
}  // namespace kelmar::demo
