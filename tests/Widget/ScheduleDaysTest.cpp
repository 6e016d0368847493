#include <gtest/gtest.h>

#include "Widget/ScheduleDays.h"
#include "tests/Support/Timetables.h"

namespace kelmar::widget {
namespace {

using testing::block;
using testing::dayOf;
using testing::TestSurroundings;

using Schedule = std::vector<ScheduleDay>;
using Titles = std::vector<std::string>;

constexpr int nothing = -1;

/// Which day of the list is shown, by its place.
int placeOfShownDay(const TestSurroundings& test, const Schedule& schedule, system::Date moment) {
    const ScheduleDay* const shown = shownDay(schedule, moment, *test.calendar);
    return shown == nullptr ? nothing : static_cast<int>(shown - schedule.data());
}

ScheduleDay dayWithClass(const TestSurroundings& test, int days, int start, int end) {
    return dayOf(test.at(0, 0, days), {block("x", test.at(start, 0, days), test.at(end, 0, days))});
}

TEST(ShownDay, IsTodayUntilItsLastBlockEnds) {
    const TestSurroundings test;
    const Schedule schedule{dayWithClass(test, -1, 9, 15), dayWithClass(test, 0, 9, 15),
                            dayWithClass(test, 1, 9, 15)};
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(0)), 1);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(12)), 1);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(15) + -0.001), 1);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(15)), 2);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(0, 0, 1)), 2);
}

TEST(ShownDay, GoesOnToTheNextDayThatHasBlocks) {
    const TestSurroundings test;
    const Schedule schedule{dayWithClass(test, 0, 9, 15), dayOf(test.at(0, 0, 1), {}),
                            dayOf(test.at(0, 0, 2), {}), dayWithClass(test, 3, 9, 15)};
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(18)), 3);
}

TEST(ShownDay, IsNoneWhereNothingIsLeft) {
    const TestSurroundings test;
    EXPECT_EQ(placeOfShownDay(test, {}, test.at(12)), nothing);
    EXPECT_EQ(
        placeOfShownDay(test, {dayOf(test.at(0), {}), dayOf(test.at(0, 0, 1), {})}, test.at(12)),
        nothing);
    EXPECT_EQ(placeOfShownDay(test, {dayWithClass(test, -1, 9, 15), dayWithClass(test, 0, 9, 12)},
                              test.at(12)),
              nothing);
}

TEST(ShownDay, TheFirstOfTheListCountsNotTheEarliest) {
    const TestSurroundings test;
    const Schedule schedule{dayWithClass(test, 3, 9, 15), dayWithClass(test, 1, 9, 15)};
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(12)), 0);
}

TEST(ShownDay, OfTwoDaysOfTodayOnlyTheFirstIsLookedAt) {
    const TestSurroundings test;
    const Schedule schedule{dayWithClass(test, 0, 9, 11), dayWithClass(test, 0, 9, 15),
                            dayWithClass(test, 1, 9, 15)};
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(10)), 0);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(12)), 2);
}

TEST(ShownDay, ReachesFromMidnightToMidnight) {
    const TestSurroundings test;
    const auto tonight = block("x", test.at(23), test.at(1, 0, 1));
    const system::Date noon = test.at(12);
    EXPECT_EQ(placeOfShownDay(test, {dayOf(test.at(0) + -0.001, {tonight})}, noon), nothing);
    EXPECT_EQ(placeOfShownDay(test, {dayOf(test.at(0), {tonight})}, noon), 0);
    const system::Date lastMoment = test.at(0, 0, 1) + -0.001;
    EXPECT_EQ(
        placeOfShownDay(test, {dayOf(test.at(0, 0, 1), {}), dayOf(lastMoment, {tonight})}, noon),
        1);
}

TEST(ShownDay, ThatIsDatedLaterTodayComesBackWithFinishedBlocks) {
    const TestSurroundings test;
    Schedule schedule{dayWithClass(test, 0, 9, 12), dayWithClass(test, 1, 9, 15)};
    schedule[0].day = test.at(20);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(13)), 0);
    EXPECT_EQ(placeOfShownDay(test, schedule, test.at(20)), 1);
}

TEST(ShownDay, EndsWithTheCalendarsDayWhereClocksChange) {
    // From 2025-11-02, a day of 25 hours, 23:30 on: still that day, though 24 hours have gone.
    const TestSurroundings test;
    const auto start = system::Date::since1970(1'762'056'000);
    const system::Date halfPastEleven = start + 24.5 * 3600;
    const Schedule schedule{
        dayOf(start, {block("x", halfPastEleven, halfPastEleven + 600)}),
        dayOf(start + 25 * 3600, {block("y", start + 33 * 3600, start + 34 * 3600)})};
    EXPECT_EQ(placeOfShownDay(test, schedule, halfPastEleven), 0);
    EXPECT_EQ(placeOfShownDay(test, schedule, halfPastEleven + 600), 1);
}

struct TitleRow {
    const char* what;
    int day;    ///< Days from the usual one.
    int entry;  ///< The entry's, likewise.
    int clock;  ///< The clock's, likewise.
    const char* title;
};

TEST(DayTitle, NamesTheDayAsTheEntryAndTheClockSeeIt) {
    TestSurroundings test;  // a Thursday
    const std::vector<TitleRow> rows{
        {"today", 0, 0, 0, "Today"},
        {"tomorrow", 1, 0, 0, "Tomorrow"},
        {"later", 2, 0, 0, "Saturday"},
        {"a week ahead", 7, 0, 0, "Thursday"},
        {"today by a stale entry", -1, -1, 0, "Today"},
        {"tomorrow by a stale entry, today by the clock", 0, -1, 0, "Thursday"},
        {"tomorrow by the clock, not by a stale entry", 1, -1, 0, "Friday"},
        {"today by an entry to come", 1, 1, 0, "Today"},
        {"tomorrow by an entry to come", 2, 1, 0, "Saturday"},
        {"the same entry once it has come", 2, 1, 1, "Tomorrow"},
    };
    for (const TitleRow& row : rows) {
        for (const int hour : {0, 23}) {
            test.clock.set(test.at(hour, 30, row.clock));
            EXPECT_EQ(dayTitle(test.at(12, 0, row.day), test.at(23 - hour, 15, row.entry),
                               test.surroundings),
                      row.title)
                << row.what;
        }
    }
}

TEST(DayTitle, FollowsTheLocale) {
    const TestSurroundings test("de_DE", "Europe/Berlin");
    EXPECT_EQ(dayTitle(test.at(12, 0, 3), test.at(12), test.surroundings), "Sonntag");
}

struct ProgressRow {
    const char* what;
    int hour;
    int minute;
    const char* current;
    Titles rest;
};

TEST(DayProgress, ABlockRunsFromItsStartUntilJustBeforeItsEnd) {
    const TestSurroundings test;
    const ScheduleDay day =
        dayOf(test.at(0),
              {block("a", test.at(9), test.at(10)), block("b", test.at(10), test.at(11)),
               block("c", test.at(10, 30), test.at(12)), block("d", test.at(14), test.at(15))});
    const std::vector<ProgressRow> rows{
        {"before", 8, 0, "", {"a", "b", "c", "d"}},
        {"at the first beginning", 9, 0, "a", {"b", "c", "d"}},
        {"at an end that is a beginning", 10, 0, "b", {"c", "d"}},
        {"where two overlap the first runs", 10, 45, "b", {"c", "d"}},
        {"where the second still runs", 11, 0, "c", {"d"}},
        {"in a gap", 13, 0, "", {"d"}},
        {"after", 15, 0, "", {}},
    };
    for (const ProgressRow& row : rows) {
        const DayProgress progress = dayProgress(day, test.at(row.hour, row.minute));
        EXPECT_EQ(progress.current == nullptr ? "" : progress.current->title, row.current)
            << row.what;
        Titles rest;
        for (const ScheduleBlock* each : progress.rest)
            rest.push_back(each->title);
        EXPECT_EQ(rest, row.rest) << row.what;
    }
}

TEST(DayProgress, IsInTheOrderOfTheList) {
    const TestSurroundings test;
    const ScheduleDay day = dayOf(test.at(0), {block("late", test.at(12), test.at(13)),
                                               block("runs", test.at(9), test.at(11)),
                                               block("early", test.at(11), test.at(12))});
    const DayProgress progress = dayProgress(day, test.at(10));
    EXPECT_EQ(progress.current, &day.blocks[1]);
    EXPECT_EQ(progress.rest, (std::vector{&day.blocks[0], &day.blocks[2]}));
}

TEST(DayProgress, LeavesOutWhateverEqualsTheCurrentBlock) {
    const TestSurroundings test;
    const auto running = block("a", test.at(9), test.at(10));
    auto done = running;
    done.done = true;
    const ScheduleDay day = dayOf(test.at(0), {running, running, done});
    const DayProgress progress = dayProgress(day, test.at(9));
    EXPECT_EQ(progress.current, &day.blocks[0]);
    EXPECT_EQ(progress.rest, std::vector{&day.blocks[2]});
    EXPECT_TRUE(progress.isCurrent(day.blocks[0]));
    EXPECT_TRUE(progress.isCurrent(day.blocks[1]));
    EXPECT_FALSE(progress.isCurrent(day.blocks[2]));
}

TEST(DayProgress, KeepsABlockThatStartsLaterThoughItOddlyHasEnded) {
    const TestSurroundings test;
    const ScheduleDay day = dayOf(test.at(0), {block("odd", test.at(12), test.at(9))});
    const DayProgress progress = dayProgress(day, test.at(10));
    EXPECT_EQ(progress.current, nullptr);
    EXPECT_EQ(progress.rest, std::vector{&day.blocks[0]});
    EXPECT_FALSE(progress.isCurrent(day.blocks[0]));
}

}  // namespace
}  // namespace kelmar::widget
