#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Shared/SampleSnapshots.h"
#include "Widget/ScheduleProvider.h"
#include "tests/Support/Timetables.h"

namespace kelmar::widget {
namespace {

using testing::block;
using testing::dayOf;
using testing::scheduleOf;
using testing::TestSurroundings;

constexpr system::Date now = TestSurroundings::usualNow;  // 15:00

std::vector<system::Date> datesOf(const ScheduleTimeline& timeline) {
    std::vector<system::Date> dates;
    for (const ScheduleEntry& entry : timeline.entries)
        dates.push_back(entry.date);
    return dates;
}

ScheduleTimeline timelineAt(TestSurroundings& test, system::Date moment) {
    test.clock.set(moment);
    return ScheduleProvider(test.surroundings).timeline();
}

/// Classes from 9:00 to 10:00 and from 10:00 to 11:00.
shared::WidgetData twoClasses(const TestSurroundings& test) {
    return scheduleOf({dayOf(
        test.at(0), {block("a", test.at(9), test.at(10)), block("b", test.at(10), test.at(11))})});
}

struct MorningRow {
    const char* what;
    int hour;
    int minute;
    std::vector<int> hours;  ///< Of the entries behind the first.
};

TEST(ScheduleTimeline, HasAnEntryWhereverABlockBeginsOrEnds) {
    TestSurroundings test;
    test.publish(twoClasses(test));
    const std::vector<MorningRow> rows{
        {"before school, 10:00 only once", 8, 0, {9, 10, 11}},
        {"at the first beginning", 9, 0, {10, 11}},
        {"in the first class", 9, 30, {10, 11}},
        {"between them", 10, 0, {11}},
        {"at the end", 11, 0, {}},
        {"in the evening", 20, 0, {}},
    };
    for (const MorningRow& row : rows) {
        const system::Date moment = test.at(row.hour, row.minute);
        std::vector<system::Date> dates{moment};
        for (const int hour : row.hours)
            dates.push_back(test.at(hour));
        const ScheduleTimeline timeline = timelineAt(test, moment);
        EXPECT_EQ(datesOf(timeline), dates) << row.what;
        EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{test.at(0, 0, 1)}))
            << row.what;
    }
}

TEST(ScheduleTimeline, SortsWhatTheListHasInAnyOrder) {
    TestSurroundings test;
    test.publish(scheduleOf({dayOf(test.at(0), {block("late", test.at(19), test.at(20)),
                                                block("early", test.at(16), test.at(17))})}));
    EXPECT_EQ(datesOf(ScheduleProvider(test.surroundings).timeline()),
              (std::vector{now, test.at(16), test.at(17), test.at(19), test.at(20)}));
}

TEST(ScheduleTimeline, LeavesTheBlocksOfLaterDaysOut) {
    TestSurroundings test;
    const auto blockTonight = block("tonight", test.at(21), test.at(22));
    test.publish(scheduleOf({dayOf(test.at(0, 0, 1), {block("x", test.at(9, 0, 1), test.at(10))}),
                             dayOf(test.at(9, 0, 2), {blockTonight})}));
    EXPECT_EQ(datesOf(ScheduleProvider(test.surroundings).timeline()), std::vector{now});
    // Up to the last moment of today a day is today's, however it is dated.
    test.publish(scheduleOf({dayOf(test.at(0, 0, 1) + -0.001, {blockTonight})}));
    EXPECT_EQ(datesOf(ScheduleProvider(test.surroundings).timeline()),
              (std::vector{now, test.at(21), test.at(22)}));
}

TEST(ScheduleTimeline, KeepsTheBlocksOfPastDaysThatOddlyAreStillToCome) {
    TestSurroundings test;
    test.publish(scheduleOf({dayOf(test.at(0, 0, -3), {block("x", test.at(9), test.at(18))}),
                             dayOf(test.at(0, 0, -2), {block("y", test.at(2, 0, 2), now)})}));
    EXPECT_EQ(datesOf(ScheduleProvider(test.surroundings).timeline()),
              (std::vector{now, test.at(18), test.at(2, 0, 2)}));
}

TEST(ScheduleTimeline, HasFortyChangesAtMostTheEarliest) {
    TestSurroundings test;
    std::vector<ScheduleBlock> blocks;
    std::vector<system::Date> dates{now};
    for (int number = 60; number > 0; number -= 2)
        blocks.push_back(block("x", now + (number - 1) * 60.0, now + number * 60.0));
    for (int number = 1; number <= 40; ++number)
        dates.push_back(now + number * 60.0);
    test.publish(scheduleOf({dayOf(test.at(0), blocks)}));
    EXPECT_EQ(datesOf(ScheduleProvider(test.surroundings).timeline()), dates);
}

struct LongDay {
    double moment;
    double midnight;
};

TEST(ScheduleTimeline, MidnightIsTheCalendarsWhereClocksChange) {
    // At 1:00 of 2025-03-09, a day of 23 hours, and at 0:00 of 2025-11-02, a day of 25 hours.
    for (const LongDay& day :
         {LongDay{1'741'500'000, 1'741'579'200}, LongDay{1'762'056'000, 1'762'146'000}}) {
        TestSurroundings test;
        const auto moment = system::Date::since1970(day.moment);
        const auto midnight = system::Date::since1970(day.midnight);
        test.publish(scheduleOf({dayOf(midnight + -1, {block("x", moment + 1, moment + 2)}),
                                 dayOf(midnight, {block("y", moment + 3, moment + 4)})}));
        const ScheduleTimeline timeline = timelineAt(test, moment);
        EXPECT_EQ(datesOf(timeline), (std::vector{moment, moment + 1, moment + 2}));
        EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{midnight}));
    }
}

TEST(ScheduleTimeline, WithoutASnapshotHasOneEntryAndKeepsItsPolicy) {
    TestSurroundings test;
    for (const char* content : {"", "not json", "{}"}) {
        test.plannerFolder.put(shared::snapshotName, content);
        const ScheduleTimeline timeline = ScheduleProvider(test.surroundings).timeline();
        EXPECT_EQ(datesOf(timeline), std::vector{now});
        EXPECT_EQ(timeline.entries[0].data, nullptr);
        EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{test.at(0, 0, 1)}));
    }
}

TEST(ScheduleTimeline, WithoutAScheduleHasOneEntry) {
    TestSurroundings test;
    test.publish(testing::snapshotOf({}));
    EXPECT_EQ(datesOf(ScheduleProvider(test.surroundings).timeline()), std::vector{now});
}

TEST(ScheduleTimeline, HasTheDatesOfASignedOutSnapshotToo) {
    TestSurroundings test;
    auto data = twoClasses(test);
    data.signedIn = false;
    test.publish(data);
    EXPECT_EQ(timelineAt(test, test.at(8)).entries.size(), 4U);
}

TEST(ScheduleTimeline, ItsEntriesShareTheSnapshotAsDecoded) {
    TestSurroundings test;
    const auto data = twoClasses(test);
    test.publish(data);
    test.tickedFolder.put("tick-YQ", "a tick that the Schedule does not look at");
    const ScheduleTimeline timeline = timelineAt(test, test.at(8));
    EXPECT_EQ(*timeline.entries.front().data, data);
    for (const ScheduleEntry& entry : timeline.entries)
        EXPECT_EQ(entry.data, timeline.entries.front().data);
    EXPECT_TRUE(test.tickedFolder.calls().empty());
}

TEST(ScheduleTimeline, ReadsTheFileAnewEachTime) {
    TestSurroundings test;
    const ScheduleProvider provider(test.surroundings);
    EXPECT_EQ(provider.timeline().entries[0].data, nullptr);
    test.publish(scheduleOf({}));
    EXPECT_EQ(*provider.timeline().entries[0].data, scheduleOf({}));
    test.plannerFolder.setMissing(true);
    EXPECT_EQ(provider.timeline().entries[0].data, nullptr);
}

TEST(ScheduleTimeline, OfTodaysBlocksRisesFromNowToMidnight) {
    const TestSurroundings usual;
    const system::Date start = usual.at(0);
    const system::Date midnight = usual.at(0, 0, 1);
    EXPECT_TRUE(rc::check([&] {
        const auto minute = rc::gen::inRange(0, 24 * 60);
        const auto moment = start + *minute * 60;
        std::vector<ScheduleBlock> blocks;
        for (const auto& [first, second] :
             *rc::gen::container<std::vector<std::pair<int, int>>>(rc::gen::pair(minute, minute)))
            blocks.push_back(block("x", start + std::min(first, second) * 60,
                                   start + std::max(first, second) * 60));
        TestSurroundings test;
        test.publish(scheduleOf({dayOf(start, blocks)}));
        const auto dates = datesOf(timelineAt(test, moment));

        RC_ASSERT(dates.front() == moment);
        RC_ASSERT(dates.size() <= 41U);
        RC_ASSERT(std::ranges::adjacent_find(dates, std::greater_equal()) == dates.end());
        RC_ASSERT(dates.back() < midnight);
        const auto isEntry = [&](system::Date date) {
            return std::ranges::find(dates, date) != dates.end();
        };
        for (const ScheduleBlock& each : blocks) {
            for (const system::Date change : {each.start, each.end}) {
                const bool isAhead = change > moment;
                const bool isCut = dates.size() == 41 && change > dates.back();
                RC_ASSERT(isEntry(change) == ((isAhead && !isCut) || change == moment));
            }
        }
    }));
}

TEST(ScheduleSnapshot, APreviewIsTheSampleAndTouchesNoFile) {
    TestSurroundings test;
    test.publish(twoClasses(test));
    test.plannerFolder.forgetCalls();
    for (const ScheduleEntry& entry : {ScheduleProvider(test.surroundings).snapshot(true),
                                       ScheduleProvider(test.surroundings).placeholder()}) {
        EXPECT_EQ(entry.date, now);
        EXPECT_EQ(*entry.data, shared::scheduleSample(now, *test.calendar));
    }
    EXPECT_TRUE(test.plannerFolder.calls().empty());
}

TEST(ScheduleSnapshot, OtherwiseIsTheFile) {
    TestSurroundings test;
    const ScheduleProvider provider(test.surroundings);
    EXPECT_EQ(provider.snapshot(false).data, nullptr);
    test.publish(twoClasses(test));
    EXPECT_EQ(provider.snapshot(false).date, now);
    EXPECT_EQ(*provider.snapshot(false).data, twoClasses(test));
}

}  // namespace
}  // namespace kelmar::widget
