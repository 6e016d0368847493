#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Shared/WidgetData.h"
#include "tests/Support/Dates.h"
#include "tests/Support/FailingCalendar.h"

namespace kelmar::shared {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::utc;

WidgetData::Item item(const std::string& id, system::Date due = {}) {
    return {id, "Title " + id, "Biology", "#10B981", due, false};
}

std::vector<std::string> ids(const std::vector<WidgetData::Item>& items) {
    std::vector<std::string> result;
    result.reserve(items.size());
    for (const WidgetData::Item& each : items)
        result.push_back(each.id);
    return result;
}

/// A snapshot in which everything is set.
WidgetData full() {
    WidgetData data;
    data.updated = utc(2025, 3, 6, 12);
    data.signedIn = true;
    data.today = {item("a"), item("b"), item("c")};
    data.upcoming = {item("d"), item("a"), item("e")};
    data.schedule.emplace().push_back({utc(2025, 3, 6),
                                       {"A Day"},
                                       {{"study",
                                         utc(2025, 3, 6, 20),
                                         utc(2025, 3, 6, 21),
                                         "Essay",
                                         "#EC4899",
                                         false,
                                         "a",
                                         {}}}});
    data.timer = WidgetData::Timer();
    data.timer->state = "running";
    data.streak = WidgetData::Streak();
    data.streak->count = 3;
    return data;
}

TEST(HidingTicks, ChangesNothingWithoutTicks) {
    EXPECT_EQ(full().without({}), full());
}

TEST(HidingTicks, RemovesAnAssignmentFromBothLists) {
    const WidgetData data = full().without({"a"});
    EXPECT_THAT(ids(data.today), ElementsAre("b", "c"));
    EXPECT_THAT(ids(data.upcoming), ElementsAre("d", "e"));
}

TEST(HidingTicks, LeavesEverythingElseAsItIs) {
    WidgetData expected = full();
    expected.today = {item("c")};
    expected.upcoming = {item("d"), item("e")};
    EXPECT_EQ(full().without({"a", "b", "unknown"}), expected);
}

class RegroupingTest : public ::testing::Test {
protected:
    [[nodiscard]] WidgetData regrouped(std::vector<WidgetData::Item> upcoming,
                                       system::Date now) const {
        WidgetData data = full();
        data.today = {item("B", utc(2025, 3, 20))};
        data.upcoming = std::move(upcoming);
        return data.regrouped(now, *calendar_);
    }

    std::unique_ptr<system::Calendar> calendar_ = system::makeCalendar("en_US", "America/New_York");
    /// 23:59 in New York on 6 March.
    const system::Date lateEvening_ = utc(2025, 3, 7, 4, 59);
    const system::Date midnight_ = utc(2025, 3, 7, 5);
};

TEST_F(RegroupingTest, MovesWhatIsDueBeforeMidnightToTheEndOfToday) {
    const WidgetData data =
        regrouped({item("C", utc(2025, 3, 8)), item("A", lateEvening_ + 30)}, lateEvening_);
    EXPECT_THAT(ids(data.today), ElementsAre("B", "A"));
    EXPECT_THAT(ids(data.upcoming), ElementsAre("C"));
}

TEST_F(RegroupingTest, LeavesWhatIsDueAtMidnightItself) {
    const WidgetData data =
        regrouped({item("A", midnight_ + -0.001), item("C", midnight_)}, lateEvening_);
    EXPECT_THAT(ids(data.today), ElementsAre("B", "A"));
    EXPECT_THAT(ids(data.upcoming), ElementsAre("C"));
}

TEST_F(RegroupingTest, SortsNothing) {
    const WidgetData data = regrouped({item("A", lateEvening_ + 20), item("C", utc(2025, 3, 9)),
                                       item("D", lateEvening_ + 10), item("E", utc(2025, 3, 8))},
                                      lateEvening_);
    EXPECT_THAT(ids(data.today), ElementsAre("B", "A", "D"));
    EXPECT_THAT(ids(data.upcoming), ElementsAre("C", "E"));
}

TEST_F(RegroupingTest, MovesWhatIsOverdueToo) {
    const WidgetData data = regrouped({item("A", utc(2020, 1, 1))}, lateEvening_);
    EXPECT_THAT(ids(data.today), ElementsAre("B", "A"));
    EXPECT_THAT(data.upcoming, IsEmpty());
}

TEST_F(RegroupingTest, FindsMidnightOnTheDayTheClocksChange) {
    // 9 March 2025 has 23 hours in New York and ends at 4:00 UTC.
    const WidgetData data = regrouped(
        {item("A", utc(2025, 3, 10, 3, 59)), item("C", utc(2025, 3, 10, 4))}, utc(2025, 3, 9, 12));
    EXPECT_THAT(ids(data.today), ElementsAre("B", "A"));
    EXPECT_THAT(ids(data.upcoming), ElementsAre("C"));
}

TEST_F(RegroupingTest, FindsTheNextDayWhereMidnightIsSkipped) {
    // In Havana 9 March 2025 begins at 1:00, which is 5:00 UTC.
    const auto havana = system::makeCalendar("es_CU", "America/Havana");
    WidgetData data;
    data.upcoming = {item("A", utc(2025, 3, 9, 4, 59)), item("C", utc(2025, 3, 9, 5))};
    data = data.regrouped(utc(2025, 3, 8, 20), *havana);
    EXPECT_THAT(ids(data.today), ElementsAre("A"));
    EXPECT_THAT(ids(data.upcoming), ElementsAre("C"));
}

TEST_F(RegroupingTest, LeavesEverythingElseAsItIs) {
    WidgetData expected = full();
    expected.today = {item("B", utc(2025, 3, 20)), item("A", lateEvening_)};
    expected.upcoming = {};
    EXPECT_EQ(regrouped({item("A", lateEvening_)}, lateEvening_), expected);
}

TEST_F(RegroupingTest, ChangesNothingWhenTheCalendarKnowsNoNextDay) {
    EXPECT_EQ(full().regrouped(lateEvening_, testing::FailingCalendar()), full());
}

}  // namespace
}  // namespace kelmar::shared
