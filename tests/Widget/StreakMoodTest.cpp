#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>

#include "Widget/StreakMood.h"
#include "tests/Support/Streaks.h"

namespace kelmar::widget {
namespace {

using testing::dayAfter;
using testing::dayBefore;
using testing::streakOf;
using testing::TestSurroundings;
using testing::usualDay;

constexpr auto greatestCount = std::numeric_limits<std::int64_t>::max();

StreakStanding standingOf(const shared::WidgetData::Streak& streak, int hour, int minute = 0,
                          int days = 0) {
    const TestSurroundings test;
    return standing(streak, test.at(hour, minute, days), *test.calendar);
}

struct MoodRow {
    const char* what;
    std::int64_t count;
    const char* lastDate;
    int hour;
    int minute;
    Mood mood;
    std::int64_t shownCount;
};

TEST(StreakMood, TellsHowTheStreakStands) {
    const mood::AtRisk early{.late = false};
    const mood::AtRisk late{.late = true};
    const std::vector<MoodRow> rows{
        {"a milestone today", 7, usualDay, 15, 0, mood::Milestone{7}, 7},
        {"a day that counts", 8, usualDay, 15, 0, mood::Done{}, 8},
        {"a day that counts, late", 8, usualDay, 23, 0, mood::Done{}, 8},
        {"the first day", 1, usualDay, 15, 0, mood::Done{}, 1},
        {"no days though today counts", 0, usualDay, 15, 0, mood::Done{}, 0},
        {"fewer than none though today counts", -3, usualDay, 15, 0, mood::Done{}, -3},
        {"yesterday was the last", 5, dayBefore, 0, 0, early, 5},
        {"a milestone yesterday", 7, dayBefore, 15, 0, early, 7},
        {"the last easy minute", 5, dayBefore, 20, 59, early, 5},
        {"the late hour", 5, dayBefore, 21, 0, late, 5},
        {"the last minute", 5, dayBefore, 23, 59, late, 5},
        {"one day", 1, dayBefore, 15, 0, early, 1},
        {"no days", 0, dayBefore, 15, 0, mood::Start{}, 0},
        {"no days, late", 0, dayBefore, 22, 0, mood::Start{}, 0},
        {"dead", 12, "2025-10-07", 15, 0, mood::Start{}, 0},
        {"dead, a milestone once", 30, "2025-10-07", 15, 0, mood::Start{}, 0},
        {"never", 12, "", 15, 0, mood::Start{}, 0},
        {"from the future", 12, dayAfter, 15, 0, mood::Start{}, 0},
        {"written otherwise", 12, "2025-10-9", 15, 0, mood::Start{}, 0},
        {"the greatest", greatestCount, usualDay, 15, 0, mood::Done{}, greatestCount},
    };
    for (const MoodRow& row : rows) {
        const StreakStanding result =
            standingOf(streakOf(row.count, row.lastDate), row.hour, row.minute);
        EXPECT_EQ(result.mood, row.mood) << row.what;
        EXPECT_EQ(result.shownCount, row.shownCount) << row.what;
        EXPECT_EQ(todayCounts(result.mood), std::string(row.lastDate) == usualDay) << row.what;
    }
}

TEST(StreakMood, OneStreakGoesThroughItsMoodsAsTheDaysPass) {
    const auto streak = streakOf(7, usualDay);
    EXPECT_EQ(standingOf(streak, 23, 59).mood, Mood(mood::Milestone{7}));
    EXPECT_EQ(standingOf(streak, 0, 0, 1).mood, Mood(mood::AtRisk{.late = false}));
    EXPECT_EQ(standingOf(streak, 21, 0, 1).mood, Mood(mood::AtRisk{.late = true}));
    EXPECT_EQ(standingOf(streak, 0, 0, 2).mood, Mood(mood::Start{}));
    EXPECT_EQ(standingOf(streak, 0, 0, 2).shownCount, 0);
}

TEST(StreakMood, LateIsAQuestionOfTheWallClockWhereClocksChange) {
    // 2025-11-02 in New York has 25 hours: 21 hours after its start it is 20:00.
    const TestSurroundings test;
    const auto start = system::Date::since1970(1'762'056'000);
    const auto streak = streakOf(5, "2025-11-01");
    EXPECT_EQ(standing(streak, start + 21 * 3600, *test.calendar).mood,
              Mood(mood::AtRisk{.late = false}));
    EXPECT_EQ(standing(streak, start + 22 * 3600, *test.calendar).mood,
              Mood(mood::AtRisk{.late = true}));
    // 2025-03-09 has 23 hours.
    const auto shortStart = system::Date::since1970(1'741'496'400);
    EXPECT_EQ(standing(streakOf(5, "2025-03-08"), shortStart + 20 * 3600, *test.calendar).mood,
              Mood(mood::AtRisk{.late = true}));
}

struct MilestoneRow {
    std::int64_t count;
    const char* subline;
};

TEST(StreakMood, EightLengthsAreMilestonesAndNameTheNext) {
    const TestSurroundings test;
    const std::vector<MilestoneRow> rows{
        {3, "Next up: 7 days."},     {7, "Next up: 14 days."},      {14, "Next up: 30 days."},
        {30, "Next up: 50 days."},   {50, "Next up: 100 days."},    {100, "Next up: 180 days."},
        {180, "Next up: 365 days."}, {365, "That’s a whole year."},
    };
    for (const MilestoneRow& row : rows) {
        const StreakStanding result = standingOf(streakOf(row.count, usualDay), 12);
        EXPECT_EQ(result.mood, Mood(mood::Milestone{row.count}));
        EXPECT_EQ(subline(result, test.localization), row.subline);
        EXPECT_EQ(headline(result.mood, HeadlineLength::shortForm, test.localization),
                  std::to_string(row.count) + "-day streak!");
        EXPECT_EQ(headline(result.mood, HeadlineLength::longForm, test.localization),
                  std::to_string(row.count) + "-day streak!");
    }
    for (const std::int64_t count : {1, 2, 4, 8, 29, 31, 364, 366, 400, 730})
        EXPECT_EQ(standingOf(streakOf(count, usualDay), 12).mood, Mood(mood::Done{})) << count;
}

struct HeadlineRow {
    Mood mood;
    const char* shortForm;
    const char* longForm;
};

TEST(StreakHeadline, IsShortOrLong) {
    const TestSurroundings test;
    const std::vector<HeadlineRow> rows{
        {mood::Milestone{30}, "30-day streak!", "30-day streak!"},
        {mood::Done{}, "day streak", "Today counts!"},
        {mood::AtRisk{.late = true}, "Ends at midnight", "Ends at midnight"},
        {mood::AtRisk{.late = false}, "day streak", "Keep it going"},
        {mood::Start{}, "day streak", "Start a streak"},
    };
    for (const HeadlineRow& row : rows) {
        EXPECT_EQ(headline(row.mood, HeadlineLength::shortForm, test.localization), row.shortForm);
        EXPECT_EQ(headline(row.mood, HeadlineLength::longForm, test.localization), row.longForm);
    }
}

struct SublineRow {
    const char* what;
    std::int64_t count;
    const char* lastDate;
    int hour;
    const char* freezeNext;
    const char* text;
};

TEST(StreakSubline, SaysWhatTodayMeans) {
    const TestSurroundings test;
    const char* const covered =
        "Finish what’s due today. If you can’t, your streak freeze covers it.";
    const std::vector<SublineRow> rows{
        {"start", 0, dayBefore, 15, "", "Finish everything due today and it starts at 1."},
        {"dead", 12, "2025-10-01", 22, "", "Finish everything due today and it starts at 1."},
        {"done", 400, usualDay, 15, "", "Everything due today is done. See you tomorrow."},
        {"early", 5, dayBefore, 20, dayAfter, "Finish what’s due today to make it 6."},
        {"early, thousands", 12'345, dayBefore, 9, "", "Finish what’s due today to make it 12346."},
        {"early, the greatest", greatestCount, dayBefore, 9, "",
         "Finish what’s due today to make it 9223372036854775808."},
        {"late, a freeze at hand", 5, dayBefore, 21, "", covered},
        {"late, a freeze since long", 5, dayBefore, 21, "2025-09-30", covered},
        {"late, a freeze from today on", 5, dayBefore, 21, usualDay, covered},
        {"late, a freeze from tomorrow on", 5, dayBefore, 21, dayAfter,
         "Finish what’s due today, or your 5-day streak ends."},
        {"late, a freeze by the order of texts", 5, dayBefore, 21, "2025-1", covered},
        {"late, no freeze by the order of texts", 5, dayBefore, 21, "2025-9",
         "Finish what’s due today, or your 5-day streak ends."},
    };
    for (const SublineRow& row : rows) {
        auto streak = streakOf(row.count, row.lastDate);
        streak.freezeNext = row.freezeNext;
        EXPECT_EQ(subline(standingOf(streak, row.hour), test.localization), row.text) << row.what;
    }
}

TEST(StreakMood, OfAnyStreakIsWhatItsDatesAndCountSay) {
    const TestSurroundings test;
    EXPECT_TRUE(rc::check([&] {
        const system::Date at = test.at(*rc::gen::inRange(0, 24), *rc::gen::inRange(0, 60));
        const auto last = test.at(12, 0, *rc::gen::inRange(-3, 2));
        const auto streak = streakOf(*rc::gen::inRange<std::int64_t>(-2, 400),
                                     shared::WidgetData::Streak::key(last, *test.calendar));
        const StreakStanding result = standing(streak, at, *test.calendar);
        const bool isAlive = streak.isAlive(at, *test.calendar);
        RC_ASSERT(todayCounts(result.mood) == (streak.lastDate == usualDay));
        RC_ASSERT(std::holds_alternative<mood::AtRisk>(result.mood) ==
                  (streak.lastDate == dayBefore && streak.count >= 1));
        RC_ASSERT(result.shownCount == (isAlive ? streak.count : 0));
    }));
}

}  // namespace
}  // namespace kelmar::widget
