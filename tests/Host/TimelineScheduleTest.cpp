#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <rapidcheck.h>
#include <vector>

#include "Host/TimelineSchedule.h"

namespace kelmar::host {
namespace {

system::Date at(double seconds) {
    return system::Date::since1970(seconds);
}

kit::Timeline timelineAt(const std::vector<double>& dates) {
    kit::Timeline timeline{.entries = {}, .policy = kit::ReloadNever{}};
    for (const auto date : dates) {
        timeline.entries.push_back({at(date), {kit::Spacer{}}});
    }
    return timeline;
}

struct Row {
    const char* name;
    std::vector<double> dates;
    double now;
    std::size_t shown;
    std::optional<double> next;

    friend void PrintTo(const Row& row, std::ostream* stream) { *stream << row.name; }
};

class ScheduleTable : public testing::TestWithParam<Row> {};

TEST_P(ScheduleTable, ShowsAndChanges) {
    const auto& row = GetParam();
    const auto timeline = timelineAt(row.dates);
    EXPECT_EQ(shownEntryIndex(timeline, at(row.now)), row.shown);
    const auto next = nextEntryChange(timeline, at(row.now));
    ASSERT_EQ(next.has_value(), row.next.has_value());
    if (next) {
        EXPECT_EQ(next->secondsSince1970(), *row.next);
    }
}

// The entries of a day that ends at 100: now, at midnight, and between them the end of an undo.
INSTANTIATE_TEST_SUITE_P(
    Timelines, ScheduleTable,
    testing::Values(Row{"OnlyEntry", {10}, 50, 0, {}},
                    Row{"OnlyEntryIsStillToCome", {10}, 5, 0, {}},
                    Row{"BeforeAllTheFirstShows", {10, 20, 30}, 5, 0, 20},
                    Row{"AtItsVeryDateAnEntryShows", {10, 20, 30}, 20, 1, 30},
                    Row{"JustBeforeItDoesNot", {10, 20, 30}, 19.999, 0, 20},
                    Row{"AfterAllTheLastShows", {10, 20, 30}, 1000, 2, {}},
                    Row{"OfEqualDatesTheLaterInTheListShows", {10, 10, 10}, 10, 2, {}},
                    Row{"OfEqualDatesToComeOneChangeIsMade", {10, 20, 20}, 15, 0, 20},
                    Row{"UndoEndsBeforeMidnight", {90, 95, 100}, 92, 0, 95},
                    Row{"UndoHasEndedBeforeMidnight", {90, 95, 100}, 96, 1, 100},
                    Row{"UndoEndsAfterMidnightWhichIsNext", {95, 105, 100}, 97, 0, 100},
                    Row{"MidnightWinsThoughUndoEndsLater", {95, 105, 100}, 101, 2, {}},
                    Row{"UndoEndAfterMidnightNeverShows", {95, 105, 100}, 105, 2, {}},
                    Row{"AnOlderEntryLaterInTheListWins", {50, 10}, 60, 1, {}},
                    Row{"AnOlderEntryLaterInTheListShowsAlone", {50, 10}, 20, 1, {}},
                    Row{"BeforeAllTheEarliestOfTheOthersIsNext", {50, 40, 30}, 5, 0, 30},
                    Row{"TheFirstsOwnDateChangesNothing", {20, 50}, 10, 0, 50},
                    Row{"NegativeDates", {-20, -10}, -15, 0, -10}),
    [](const auto& row) { return row.param.name; });

TEST(TimelineSchedule, TheSameEntryShowsUntilTheNextChangeAndAnotherThen) {
    EXPECT_TRUE(rc::check([](const std::vector<int>& seconds, int now) {
        RC_PRE(!seconds.empty());
        const auto timeline = timelineAt({seconds.begin(), seconds.end()});
        const auto shown = shownEntryIndex(timeline, at(now));
        const auto next = nextEntryChange(timeline, at(now));
        for (const auto second : seconds) {
            const bool isBeforeChange = !next || at(second) < *next;
            if (second > now && isBeforeChange) {
                RC_ASSERT(shownEntryIndex(timeline, at(second)) == shown);
            }
        }
        if (next) {
            RC_ASSERT(*next > at(now));
            RC_ASSERT(shownEntryIndex(timeline, *next) != shown);
        }
    }));
}

TEST(TimelineSchedule, ReloadsAtThePolicysDate) {
    kit::Timeline timeline = timelineAt({1});
    timeline.policy = kit::ReloadAfter{at(77)};
    EXPECT_EQ(reloadDate(timeline), at(77));
}

TEST(TimelineSchedule, NeverReloadsWhenThePolicySaysSo) {
    EXPECT_EQ(reloadDate(timelineAt({1})), std::nullopt);
}

}  // namespace
}  // namespace kelmar::host
