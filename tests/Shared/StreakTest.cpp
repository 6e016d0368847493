#include <gtest/gtest.h>

#include "Shared/WidgetData.h"
#include "tests/Support/Dates.h"
#include "tests/Support/FailingCalendar.h"

namespace kelmar::shared {
namespace {

using system::Date;
using testing::utc;
using Streak = WidgetData::Streak;
using Mark = Streak::Mark;

Streak lastCountedOn(const std::string& lastDate) {
    Streak streak;
    streak.lastDate = lastDate;
    return streak;
}

Streak withHistory(std::map<std::string, std::int64_t> history) {
    Streak streak;
    streak.hist = std::move(history);
    return streak;
}

class StreakTest : public ::testing::Test {
protected:
    std::unique_ptr<system::Calendar> calendar_ = system::makeCalendar("en_US", "America/New_York");
    /// 15:00 in New York on Thursday, 6 March 2025.
    const Date now_ = utc(2025, 3, 6, 20);
};

TEST_F(StreakTest, KeyHasFourDigitsOfTheYearAndTwoOfMonthAndDay) {
    EXPECT_EQ(Streak::key(now_, *calendar_), "2025-03-06");
    EXPECT_EQ(Streak::key(utc(987, 12, 25, 12), *calendar_), "0987-12-20");  // by the Julian rule
}

TEST_F(StreakTest, KeyIsThatOfTheLocalDayInTheUsersCalendar) {
    EXPECT_EQ(Streak::key(utc(2025, 3, 7, 4, 59), *calendar_), "2025-03-06");
    EXPECT_EQ(Streak::key(utc(2025, 3, 7, 5), *calendar_), "2025-03-07");
    EXPECT_EQ(Streak::key(now_, *system::makeCalendar("th_TH", "UTC")), "2568-03-06");
    EXPECT_EQ(Streak::key(now_, *system::makeCalendar("ar_SA@calendar=islamic-umalqura", "UTC")),
              "1446-09-06");
}

TEST_F(StreakTest, KeyHasZerosForWhatTheCalendarCannotGive) {
    EXPECT_EQ(Streak::key(now_, testing::FailingCalendar()), "0000-00-00");
    EXPECT_EQ(Streak::key(Date::since1970(1e300), *calendar_), "0000-00-00");
}

TEST_F(StreakTest, IsAliveWhenTodayOrYesterdayCounted) {
    const auto isAlive = [&](const char* lastDate) {
        return lastCountedOn(lastDate).isAlive(now_, *calendar_);
    };
    EXPECT_TRUE(isAlive("2025-03-06"));
    EXPECT_TRUE(isAlive("2025-03-05"));
    EXPECT_FALSE(isAlive("2025-03-04"));
    EXPECT_FALSE(isAlive("2025-03-07"));
    EXPECT_FALSE(isAlive(""));
    EXPECT_FALSE(isAlive("2025-3-6"));
}

TEST_F(StreakTest, DiesAtTheFirstMidnightAfterADayWithoutOne) {
    const Streak streak = lastCountedOn("2025-03-05");
    EXPECT_TRUE(streak.isAlive(utc(2025, 3, 7, 4, 59, 59), *calendar_));
    EXPECT_FALSE(streak.isAlive(utc(2025, 3, 7, 5), *calendar_));
}

TEST_F(StreakTest, KnowsYesterdayOnTheDayAfterTheClocksChange) {
    // 23 and a half hours before are on the day before yesterday.
    const Streak streak = lastCountedOn("2025-03-09");
    EXPECT_TRUE(streak.isAlive(utc(2025, 3, 10, 4, 30), *calendar_));
    EXPECT_TRUE(streak.isAlive(utc(2025, 3, 11, 3, 30), *calendar_));
}

TEST_F(StreakTest, RecentDaysAreTheLastSevenOldestFirst) {
    const std::vector<Streak::Day> days = Streak().recent(now_, *calendar_);
    ASSERT_EQ(days.size(), 7U);
    EXPECT_EQ(days.front(), (Streak::Day{utc(2025, 2, 28, 5), Mark::none, false}));
    EXPECT_EQ(days[5], (Streak::Day{utc(2025, 3, 5, 5), Mark::none, false}));
    EXPECT_EQ(days.back(), (Streak::Day{utc(2025, 3, 6, 5), Mark::none, true}));
}

TEST_F(StreakTest, RecentDaysAreMarkedByTheHistory) {
    const Streak streak = withHistory({{"2025-03-06", 2}, {"2025-03-05", 1}, {"2025-02-27", 1}});
    std::vector<Mark> marks;
    for (const Streak::Day& day : streak.recent(now_, *calendar_))
        marks.push_back(day.mark);
    EXPECT_EQ(marks, (std::vector{Mark::none, Mark::none, Mark::none, Mark::none, Mark::none,
                                  Mark::streak, Mark::covered}));
}

TEST_F(StreakTest, AnyValueButTwoCountsByItself) {
    const Streak streak = withHistory({{"2025-03-06", 0}, {"2025-03-05", -1}, {"2025-03-04", 3}});
    const std::vector<Streak::Day> days = streak.recent(now_, *calendar_);
    EXPECT_EQ(days[6].mark, Mark::streak);
    EXPECT_EQ(days[5].mark, Mark::streak);
    EXPECT_EQ(days[4].mark, Mark::streak);
}

TEST_F(StreakTest, RecentDaysBeginWhereTheirDaysBeginAcrossAClockChange) {
    const auto havana = system::makeCalendar("es_CU", "America/Havana");
    const std::vector<Streak::Day> days = Streak().recent(utc(2025, 3, 10, 20), *havana);
    EXPECT_EQ(days[4].date, utc(2025, 3, 8, 5));
    EXPECT_EQ(days[5].date, utc(2025, 3, 9, 5));  // at 1:00
    EXPECT_EQ(days[6].date, utc(2025, 3, 10, 4));
    const std::vector<Streak::Day> onTheDay = Streak().recent(utc(2025, 3, 9, 20), *havana);
    EXPECT_EQ(onTheDay[6], (Streak::Day{utc(2025, 3, 9, 5), Mark::none, true}));
    EXPECT_EQ(onTheDay[5].date, utc(2025, 3, 8, 5));
}

TEST_F(StreakTest, RecentDaysLeaveOutADayThatNeverWas) {
    const auto apia = system::makeCalendar("en_WS", "Pacific/Apia");
    const std::vector<Streak::Day> days = Streak().recent(utc(2011, 12, 30, 20), *apia);
    EXPECT_EQ(Streak::key(days[6].date, *apia), "2011-12-31");
    EXPECT_EQ(Streak::key(days[5].date, *apia), "2011-12-29");
}

using StreakDeathTest = StreakTest;

TEST_F(StreakDeathTest, ACalendarThatCannotCountDaysIsFatal) {
    const testing::FailingCalendar failing;
    EXPECT_EXIT((void)lastCountedOn("2025-03-06").isAlive(now_, failing),
                ::testing::ExitedWithCode(70), "calendar");
    EXPECT_EXIT((void)Streak().recent(now_, failing), ::testing::ExitedWithCode(70), "calendar");
}

}  // namespace
}  // namespace kelmar::shared
