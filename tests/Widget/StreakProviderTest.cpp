#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Shared/SampleSnapshots.h"
#include "Widget/StreakProvider.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using testing::snapshotOf;
using testing::TestSurroundings;

using Dates = std::vector<system::Date>;

Dates datesOf(const StreakTimeline& timeline) {
    Dates dates;
    for (const StreakEntry& entry : timeline.entries)
        dates.push_back(entry.date);
    return dates;
}

StreakTimeline timelineAt(TestSurroundings& test, system::Date moment) {
    test.clock.set(moment);
    return StreakProvider(test.surroundings).timeline();
}

TEST(StreakTimeline, HasTheMidnightsAndTheLateHoursToCome) {
    TestSurroundings test;
    const system::Date midnight = test.at(0, 0, 1);
    const system::Date lateTomorrow = test.at(21, 0, 1);
    const system::Date secondMidnight = test.at(0, 0, 2);
    for (const system::Date before : {test.at(0), test.at(15), test.at(21) + -1}) {
        EXPECT_EQ(datesOf(timelineAt(test, before)),
                  (Dates{before, test.at(21), midnight, lateTomorrow, secondMidnight}));
    }
    for (const system::Date after : {test.at(21), test.at(21) + 1, midnight + -0.001}) {
        EXPECT_EQ(datesOf(timelineAt(test, after)),
                  (Dates{after, midnight, lateTomorrow, secondMidnight}));
    }
}

TEST(StreakTimeline, IsToBeAskedForAgainAfterItsLastEntry) {
    TestSurroundings test;
    for (const int hour : {0, 15, 21, 23}) {
        const StreakTimeline timeline = timelineAt(test, test.at(hour));
        EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{test.at(0, 0, 2)}));
        EXPECT_EQ(timeline.entries.back().date, test.at(0, 0, 2));
    }
}

struct LongDay {
    const char* what;
    const char* zone;
    double now;
    std::vector<double>
        entries;  ///< Behind the first, from the start of the day of `now`, in hours.
};

TEST(StreakTimeline, TheLateHourIsTwentyOneElapsedHoursWhereClocksChange) {
    const std::vector<LongDay> days{
        {"23 hours, late at 22:00", "America/New_York", 1'741'496'400, {21, 23, 23 + 21, 47}},
        {"25 hours, late at 20:00", "America/New_York", 1'762'056'000, {21, 25, 25 + 21, 49}},
        {"24 hours before one of 23", "America/New_York", 1'741'410'000, {21, 24, 24 + 21, 47}},
        {"24 hours before one of 25", "America/New_York", 1'761'969'600, {21, 24, 24 + 21, 49}},
        {"begins at 1:00", "America/Havana", 1'741'496'400, {21, 23, 23 + 21, 47}},
        {"before a day that is missing", "Pacific/Apia", 1'325'152'800, {21, 24, 24 + 21, 48}},
    };
    for (const LongDay& day : days) {
        TestSurroundings test("en_US", day.zone);
        const auto start = system::Date::since1970(day.now);
        Dates dates{start};
        for (const double hours : day.entries)
            dates.push_back(start + hours * 3600);
        EXPECT_EQ(test.calendar->startOfDay(start), start) << day.what;
        EXPECT_EQ(datesOf(timelineAt(test, start)), dates) << day.what;
    }
}

TEST(StreakTimeline, RisesFromNowToTheSecondMidnight) {
    EXPECT_TRUE(rc::check([] {
        const char* const zone = *rc::gen::element("America/New_York", "America/Havana",
                                                   "Pacific/Apia", "Asia/Kathmandu", "UTC");
        TestSurroundings test("en_US", zone);
        const auto now = system::Date::since1970(*rc::gen::inRange(1'300'000'000, 1'800'000'000));
        const StreakTimeline timeline = timelineAt(test, now);
        const Dates dates = datesOf(timeline);
        RC_ASSERT(dates.front() == now);
        RC_ASSERT(dates.size() == 4U || dates.size() == 5U);
        RC_ASSERT(std::ranges::adjacent_find(dates, std::greater_equal()) == dates.end());
        RC_ASSERT(timeline.policy == kit::ReloadPolicy(kit::ReloadAfter{dates.back()}));
        RC_ASSERT(test.calendar->startOfDay(dates.back()) == dates.back());
    }));
}

TEST(StreakTimeline, ItsEntriesShareTheSnapshotAsDecoded) {
    TestSurroundings test;
    const auto data = shared::streakSample(test.at(9), *test.calendar);
    test.publish(data);
    const StreakTimeline timeline = StreakProvider(test.surroundings).timeline();
    EXPECT_EQ(*timeline.entries.front().data, data);
    for (const StreakEntry& entry : timeline.entries)
        EXPECT_EQ(entry.data, timeline.entries.front().data);
    EXPECT_EQ(test.plannerFolder.calls().size(), 1U);
    EXPECT_TRUE(test.tickedFolder.calls().empty());
}

TEST(StreakTimeline, WithoutASnapshotKeepsItsDatesAndPolicy) {
    TestSurroundings test;
    const Dates dates = datesOf(StreakProvider(test.surroundings).timeline());
    EXPECT_EQ(dates.size(), 5U);
    for (const char* content : {"", "not json", "{}"}) {
        test.plannerFolder.put(shared::snapshotName, content);
        const StreakTimeline timeline = StreakProvider(test.surroundings).timeline();
        EXPECT_EQ(datesOf(timeline), dates);
        EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{test.at(0, 0, 2)}));
        for (const StreakEntry& entry : timeline.entries)
            EXPECT_EQ(entry.data, nullptr);
    }
}

TEST(StreakTimeline, ReadsTheFileAnewEachTime) {
    TestSurroundings test;
    const StreakProvider provider(test.surroundings);
    EXPECT_EQ(provider.timeline().entries[0].data, nullptr);
    test.publish(snapshotOf({}));
    EXPECT_EQ(*provider.timeline().entries[0].data, snapshotOf({}));
}

TEST(StreakSnapshot, APreviewIsTheSampleAndTouchesNoFile) {
    TestSurroundings test;
    test.publish(snapshotOf({}));
    test.plannerFolder.forgetCalls();
    for (const StreakEntry& entry : {StreakProvider(test.surroundings).snapshot(true),
                                     StreakProvider(test.surroundings).placeholder()}) {
        EXPECT_EQ(entry.date, test.clock.now());
        EXPECT_EQ(*entry.data, shared::streakSample(test.clock.now(), *test.calendar));
    }
    EXPECT_TRUE(test.plannerFolder.calls().empty());
}

TEST(StreakSnapshot, OtherwiseIsTheFile) {
    TestSurroundings test;
    const StreakProvider provider(test.surroundings);
    EXPECT_EQ(provider.snapshot(false).data, nullptr);
    test.publish(snapshotOf({}));
    EXPECT_EQ(provider.snapshot(false).date, test.clock.now());
    EXPECT_EQ(*provider.snapshot(false).data, snapshotOf({}));
}

}  // namespace
}  // namespace kelmar::widget
