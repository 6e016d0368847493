#include <gtest/gtest.h>

#include "Shared/SampleSnapshots.h"
#include "Widget/TimerProvider.h"
#include "tests/Support/Timers.h"

namespace kelmar::widget {
namespace {

using testing::pausedTimer;
using testing::readyTimer;
using testing::runningTimer;
using testing::snapshotOf;
using testing::snapshotWith;
using testing::TestSurroundings;

constexpr system::Date now = TestSurroundings::usualNow;
const kit::ReloadPolicy never = kit::ReloadNever{};

TEST(TimerTimeline, HasASecondEntryAtTheEndOfASessionThatIsStillToCome) {
    TestSurroundings test;
    const auto data = snapshotWith(runningTimer());
    test.publish(data);
    const TimerTimeline timeline = TimerProvider(test.surroundings).timeline();
    ASSERT_EQ(timeline.entries.size(), 2U);
    EXPECT_EQ(timeline.entries[0].date, now);
    EXPECT_EQ(timeline.entries[1].date, now + 600);
    EXPECT_EQ(*timeline.entries[0].data, data);
    EXPECT_EQ(timeline.entries[1].data, timeline.entries[0].data);
    EXPECT_EQ(timeline.policy, never);
}

struct EndRow {
    const char* what;
    std::optional<system::Date> endAt;
    std::size_t entries;
};

TEST(TimerTimeline, LooksAtTheEndAloneAndNotAtTheState) {
    for (const auto& timer : {runningTimer(), pausedTimer(), readyTimer()}) {
        for (const EndRow& row : {EndRow{"none", std::nullopt, 1},
                                  {"long ago", now + -3600, 1},
                                  {"just past", now + -0.001, 1},
                                  {"now", now, 1},
                                  {"just ahead", now + 0.001, 2},
                                  {"tomorrow", now + 86'400, 2}}) {
            TestSurroundings test;
            auto changed = timer;
            changed.endAt = row.endAt;
            test.publish(snapshotWith(changed));
            const TimerTimeline timeline = TimerProvider(test.surroundings).timeline();
            EXPECT_EQ(timeline.entries.size(), row.entries) << timer.state << ", " << row.what;
            EXPECT_EQ(timeline.policy, never);
        }
    }
}

TEST(TimerTimeline, HasItsSecondEntryAlsoWhereNobodyIsSignedIn) {
    TestSurroundings test;
    auto data = snapshotWith(runningTimer());
    data.signedIn = false;
    test.publish(data);
    EXPECT_EQ(TimerProvider(test.surroundings).timeline().entries.size(), 2U);
}

TEST(TimerTimeline, WithoutATimerIsOneEntry) {
    TestSurroundings test;
    test.publish(snapshotOf({}));
    const TimerTimeline timeline = TimerProvider(test.surroundings).timeline();
    ASSERT_EQ(timeline.entries.size(), 1U);
    EXPECT_EQ(timeline.entries[0].date, now);
    EXPECT_NE(timeline.entries[0].data, nullptr);
    EXPECT_EQ(timeline.policy, never);
}

TEST(TimerTimeline, WithoutASnapshotIsOneEmptyEntry) {
    TestSurroundings test;
    for (const char* content : {"", "not json", "{}"}) {
        test.plannerFolder.put(shared::snapshotName, content);
        const TimerTimeline timeline = TimerProvider(test.surroundings).timeline();
        ASSERT_EQ(timeline.entries.size(), 1U);
        EXPECT_EQ(timeline.entries[0].date, now);
        EXPECT_EQ(timeline.entries[0].data, nullptr);
        EXPECT_EQ(timeline.policy, never);
    }
}

TEST(TimerTimeline, ReadsTheFileAnewEachTime) {
    TestSurroundings test;
    const TimerProvider provider(test.surroundings);
    EXPECT_EQ(provider.timeline().entries[0].data, nullptr);
    test.publish(snapshotWith(readyTimer()));
    EXPECT_EQ(provider.timeline().entries[0].data->timer, readyTimer());
    test.publish(snapshotWith(pausedTimer()));
    EXPECT_EQ(provider.timeline().entries[0].data->timer, pausedTimer());
}

TEST(TimerTimeline, LeavesTheTicksAlone) {
    TestSurroundings test;
    auto data = snapshotWith(readyTimer());
    data.today = {testing::item("a", test.at(20))};
    test.publish(data);
    ASSERT_TRUE(shared::WidgetTicks(test.tickedFolder).write("a", {.title = "A", .at = now}));
    test.tickedFolder.forgetCalls();
    EXPECT_EQ(*TimerProvider(test.surroundings).timeline().entries[0].data, data);
    EXPECT_TRUE(test.tickedFolder.calls().empty());
}

TEST(TimerSnapshot, IsTheFileAsItStands) {
    TestSurroundings test;
    const TimerProvider provider(test.surroundings);
    EXPECT_EQ(provider.snapshot(false).data, nullptr);
    test.publish(snapshotWith(runningTimer()));
    const TimerEntry entry = provider.snapshot(false);
    EXPECT_EQ(entry.date, now);
    EXPECT_EQ(*entry.data, snapshotWith(runningTimer()));
}

TEST(TimerSnapshot, APreviewIsTheSampleAndTouchesNoFile) {
    TestSurroundings test;
    test.publish(snapshotWith(readyTimer()));
    test.plannerFolder.forgetCalls();
    const TimerProvider provider(test.surroundings);
    for (const TimerEntry& entry : {provider.snapshot(true), provider.placeholder()}) {
        EXPECT_EQ(entry.date, now);
        EXPECT_EQ(*entry.data, shared::timerSample(now, *test.calendar));
    }
    EXPECT_TRUE(test.plannerFolder.calls().empty());
}

}  // namespace
}  // namespace kelmar::widget
