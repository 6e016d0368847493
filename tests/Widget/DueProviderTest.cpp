#include <gtest/gtest.h>

#include "Shared/SampleSnapshots.h"
#include "Widget/DueProvider.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using shared::WidgetTicks;
using testing::item;
using testing::snapshotOf;
using testing::TestSurroundings;

constexpr system::Date now = TestSurroundings::usualNow;

std::vector<system::Date> datesOf(const DueTimeline& timeline) {
    std::vector<system::Date> dates;
    for (const DueEntry& entry : timeline.entries)
        dates.push_back(entry.date);
    return dates;
}

std::vector<std::string> idsOf(const std::vector<shared::WidgetData::Item>& items) {
    std::vector<std::string> ids;
    ids.reserve(items.size());
    for (const auto& each : items)
        ids.push_back(each.id);
    return ids;
}

using Ids = std::vector<std::string>;

void tick(TestSurroundings& test, const std::string& id, system::Date at) {
    ASSERT_TRUE(WidgetTicks(test.tickedFolder).write(id, {.title = "Title " + id, .at = at}));
}

TEST(DueTimeline, WithoutATickHasNowAndTheNextTwoMidnights) {
    TestSurroundings test;
    test.publish(snapshotOf({}));
    const DueTimeline timeline = DueProvider(test.surroundings).timeline();
    const system::Date first = test.at(0, 0, 1);
    const system::Date second = test.at(0, 0, 2);
    EXPECT_EQ(datesOf(timeline), (std::vector{now, first, second}));
    EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{second}));
}

TEST(DueTimeline, WithATickOffersItForTenSecondsFromThen) {
    TestSurroundings test;
    test.publish(snapshotOf({item("a", test.at(20)), item("b", test.at(21))}));
    tick(test, "a", now + -4);
    const DueTimeline timeline = DueProvider(test.surroundings).timeline();
    EXPECT_EQ(datesOf(timeline), (std::vector{now, now + 6, test.at(0, 0, 1), test.at(0, 0, 2)}));
    ASSERT_TRUE(timeline.entries[0].undo);
    EXPECT_EQ(timeline.entries[0].undo->id, "a");
    for (std::size_t index = 1; index < timeline.entries.size(); ++index)
        EXPECT_EQ(timeline.entries[index].undo, std::nullopt) << index;
}

TEST(DueTimeline, KeepsItsOrderEvenWhenTheUndoEndsBehindTheNextMidnight) {
    TestSurroundings test;
    test.publish(snapshotOf({item("a", test.at(20))}));
    const system::Date justBefore = test.at(0, 0, 1) + -3;
    test.clock.set(justBefore);
    tick(test, "a", justBefore);
    EXPECT_EQ(datesOf(DueProvider(test.surroundings).timeline()),
              (std::vector{justBefore, justBefore + 10, test.at(0, 0, 1), test.at(0, 0, 2)}));
}

TEST(DueTimeline, TheEntryAfterAnUndoIsGroupedAsOfNow) {
    TestSurroundings test;
    const system::Date justBefore = test.at(0, 0, 1) + -3;
    test.clock.set(justBefore);
    test.publish(snapshotOf({}, {item("tomorrow", test.at(9, 0, 1))}));
    tick(test, "a", justBefore);
    const DueTimeline timeline = DueProvider(test.surroundings).timeline();
    EXPECT_EQ(idsOf(timeline.entries[1].data->today), Ids{});
    EXPECT_EQ(idsOf(timeline.entries[2].data->today), Ids{"tomorrow"});
}

TEST(DueTimeline, ADoneTickIsStillOfferedButHidesNothing) {
    TestSurroundings test;
    test.publish(snapshotOf({item("a", test.at(20))}));
    test.tickedFolder.put("done-" + WidgetTicks::name("a"),
                          WidgetTicks::encode({.title = "A", .at = now}));
    const DueTimeline timeline = DueProvider(test.surroundings).timeline();
    ASSERT_TRUE(timeline.entries[0].undo);
    EXPECT_EQ(idsOf(timeline.entries[0].data->today), Ids{"a"});
}

TEST(DueTimeline, APendingTickIsGoneFromEveryEntry) {
    TestSurroundings test;
    test.publish(snapshotOf({item("a", test.at(20)), item("b", test.at(21))},
                            {item("c", test.at(9, 0, 1)), item("a", test.at(9, 0, 2))}));
    tick(test, "a", now + -100);
    tick(test, "c", now + -3);
    for (const DueEntry& entry : DueProvider(test.surroundings).timeline().entries) {
        EXPECT_EQ(idsOf(entry.data->today), Ids{"b"});
        EXPECT_EQ(idsOf(entry.data->upcoming), Ids{});
    }
}

TEST(DueTimeline, MovesWhatIsDueIntoTodayAtEachMidnight) {
    TestSurroundings test;
    test.publish(snapshotOf({item("today", test.at(20))},
                            {item("late", test.at(23, 59)), item("tomorrow", test.at(9, 0, 1)),
                             item("after", test.at(9, 0, 2)), item("later", test.at(9, 0, 3))}));
    const auto entries = DueProvider(test.surroundings).timeline().entries;
    EXPECT_EQ(idsOf(entries[0].data->today), (Ids{"today", "late"}));
    EXPECT_EQ(idsOf(entries[1].data->today), (Ids{"today", "late", "tomorrow"}));
    EXPECT_EQ(idsOf(entries[2].data->today), (Ids{"today", "late", "tomorrow", "after"}));
    EXPECT_EQ(idsOf(entries[2].data->upcoming), Ids{"later"});
}

struct LongDay {
    const char* zone;
    double now;
    double first;
    double second;
};

TEST(DueTimeline, MidnightsAreTheCalendarsStartsOfDayWhereClocksChange) {
    const std::vector<LongDay> days{
        // A day of 23 hours, then one of 24: 2025-03-09 in New York.
        {"America/New_York", 1'741'500'000, 1'741'579'200, 1'741'665'600},
        // A day of 25 hours: 2025-11-02.
        {"America/New_York", 1'762'056'000, 1'762'146'000, 1'762'232'400},
        // Midnight is skipped: 2025-03-09 begins at 1:00 in Havana.
        {"America/Havana", 1'741'460'400, 1'741'496'400, 1'741'579'200},
        // A whole day is skipped: 2011-12-30 in Apia.
        {"Pacific/Apia", 1'325'203'200, 1'325'239'200, 1'325'239'200 + 86'400},
    };
    for (const LongDay& day : days) {
        TestSurroundings test("en_US", day.zone);
        test.clock.set(system::Date::since1970(day.now));
        const DueTimeline timeline = DueProvider(test.surroundings).timeline();
        EXPECT_EQ(timeline.entries[1].date.secondsSince1970(), day.first) << day.zone;
        EXPECT_EQ(timeline.entries[2].date.secondsSince1970(), day.second) << day.zone;
    }
}

TEST(DueTimeline, WithoutASnapshotKeepsItsDatesAndPolicy) {
    TestSurroundings test;
    for (const char* content : {"", "not json", "{}"}) {
        test.plannerFolder.put(shared::snapshotName, content);
        const DueTimeline timeline = DueProvider(test.surroundings).timeline();
        EXPECT_EQ(datesOf(timeline), (std::vector{now, test.at(0, 0, 1), test.at(0, 0, 2)}));
        EXPECT_EQ(timeline.policy, kit::ReloadPolicy(kit::ReloadAfter{test.at(0, 0, 2)}));
        for (const DueEntry& entry : timeline.entries)
            EXPECT_EQ(entry.data, nullptr);
    }
}

TEST(DueTimeline, ReadsTheFileAnewEachTime) {
    TestSurroundings test;
    const DueProvider provider(test.surroundings);
    EXPECT_EQ(provider.timeline().entries[0].data, nullptr);
    test.publish(snapshotOf({item("a", test.at(20))}));
    EXPECT_EQ(idsOf(provider.timeline().entries[0].data->today), Ids{"a"});
    test.publish(snapshotOf({}));
    EXPECT_EQ(idsOf(provider.timeline().entries[0].data->today), Ids{});
}

TEST(DueTimeline, ReadsTheRealFileAlsoWhereASampleWouldDo) {
    TestSurroundings test;
    test.publish(snapshotOf({item("real", test.at(20))}));
    EXPECT_EQ(idsOf(DueProvider(test.surroundings).timeline().entries[0].data->today), Ids{"real"});
}

TEST(DueSnapshot, APreviewIsTheSampleAndTouchesNoFile) {
    TestSurroundings test;
    test.publish(snapshotOf({item("real", test.at(20))}));
    tick(test, "x", now);
    test.plannerFolder.forgetCalls();
    test.tickedFolder.forgetCalls();
    for (const DueEntry& entry : {DueProvider(test.surroundings).snapshot(true),
                                  DueProvider(test.surroundings).placeholder()}) {
        EXPECT_EQ(entry.date, now);
        EXPECT_EQ(*entry.data, shared::sample(now, *test.calendar));
        EXPECT_EQ(entry.undo, std::nullopt);
    }
    EXPECT_TRUE(test.plannerFolder.calls().empty());
    EXPECT_TRUE(test.tickedFolder.calls().empty());
}

TEST(DueSnapshot, OtherwiseIsTheFileWithoutPendingTicksNotRegrouped) {
    TestSurroundings test;
    test.publish(
        snapshotOf({item("a", test.at(20)), item("b", test.at(21))}, {item("late", test.at(23))}));
    tick(test, "a", now);
    const DueEntry entry = DueProvider(test.surroundings).snapshot(false);
    EXPECT_EQ(entry.date, now);
    EXPECT_EQ(idsOf(entry.data->today), Ids{"b"});
    EXPECT_EQ(idsOf(entry.data->upcoming), Ids{"late"});
    ASSERT_TRUE(entry.undo);
    EXPECT_EQ(entry.undo->id, "a");
}

}  // namespace
}  // namespace kelmar::widget
