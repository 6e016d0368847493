#include <gtest/gtest.h>

#include "Widget/DueFocus.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using testing::item;
using testing::snapshotOf;
using testing::TestSurroundings;

using Ids = std::vector<std::string>;

Ids idsOf(const Focus::Items& items) {
    Ids ids;
    for (const auto* each : items)
        ids.push_back(each->id);
    return ids;
}

TEST(DueFocus, TodaysAssignmentsComeFirst) {
    TestSurroundings test;
    const auto data = snapshotOf({item("a", test.at(20))}, {item("b", test.at(9, 0, 1))});
    const Focus result = focus(data, TestSurroundings::usualNow, test.surroundings);
    EXPECT_EQ(idsOf(result.items), Ids{"a"});
    EXPECT_EQ(idsOf(result.rest), Ids{"b"});
    EXPECT_EQ(result.label, "due today");
    EXPECT_TRUE(result.isToday);
}

TEST(DueFocus, NothingAtAllIsAnEmptyToday) {
    TestSurroundings test;
    const auto data = snapshotOf({});
    const Focus result = focus(data, TestSurroundings::usualNow, test.surroundings);
    EXPECT_TRUE(result.items.empty());
    EXPECT_TRUE(result.rest.empty());
    EXPECT_EQ(result.label, "due today");
    EXPECT_TRUE(result.isToday);
}

TEST(DueFocus, OnAFreeDayTheFirstDayThatHasSomethingIsFeatured) {
    TestSurroundings test;
    const system::Date saturday = test.at(12, 0, 2);
    const auto data =
        snapshotOf({}, {item("monday 9", test.at(9, 0, 4)), item("monday 14", test.at(14, 0, 4)),
                        item("wednesday", test.at(9, 0, 6))});
    const Focus result = focus(data, saturday, test.surroundings);
    EXPECT_EQ(idsOf(result.items), (Ids{"monday 9", "monday 14"}));
    EXPECT_EQ(idsOf(result.rest), Ids{"wednesday"});
    EXPECT_EQ(result.label, "due Monday");
    EXPECT_FALSE(result.isToday);
}

TEST(DueFocus, TheListsOrderDecidesWhichDayIsFirstAndNothingIsSorted) {
    TestSurroundings test;
    const auto data =
        snapshotOf({}, {item("wednesday", test.at(9, 0, 6)), item("monday", test.at(9, 0, 4)),
                        item("wednesday too", test.at(8, 0, 6))});
    const Focus result = focus(data, TestSurroundings::usualNow, test.surroundings);
    EXPECT_EQ(idsOf(result.items), (Ids{"wednesday", "wednesday too"}));
    EXPECT_EQ(idsOf(result.rest), Ids{"monday"});
}

TEST(DueFocus, ADayReachesFromMidnightToMidnight) {
    TestSurroundings test;
    const auto data = snapshotOf(
        {}, {item("noon", test.at(12, 0, 3)), item("first moment", test.at(0, 0, 3)),
             item("last moment", test.at(0, 0, 4) + -0.001), item("next day", test.at(0, 0, 4))});
    const Focus result = focus(data, TestSurroundings::usualNow, test.surroundings);
    EXPECT_EQ(idsOf(result.items), (Ids{"noon", "first moment", "last moment"}));
}

struct LabelRow {
    int days;
    int hour;
    const char* label;
};

TEST(DueFocus, TheLabelNamesTheDay) {
    const std::vector<LabelRow> rows{
        {1, 0, "due tomorrow"},   {1, 23, "due tomorrow"}, {2, 0, "due Saturday"},
        {6, 23, "due Wednesday"}, {7, 0, "due Oct 16"},    {30, 9, "due Nov 8"},
    };
    const TestSurroundings test;
    for (const LabelRow& row : rows) {
        const auto data = snapshotOf({}, {item("x", test.at(row.hour, 0, row.days))});
        EXPECT_EQ(focus(data, TestSurroundings::usualNow, test.surroundings).label, row.label)
            << row.days;
    }
}

TEST(DueFocus, TheLabelIsJudgedAtTheEntrysDate) {
    const TestSurroundings test;
    const auto data = snapshotOf({}, {item("x", test.at(9, 0, 9))});
    EXPECT_EQ(focus(data, test.at(0), test.surroundings).label, "due Oct 18");
    EXPECT_EQ(focus(data, test.at(0, 0, 3), test.surroundings).label, "due Saturday");
    EXPECT_EQ(focus(data, test.at(0, 0, 8), test.surroundings).label, "due tomorrow");
}

TEST(DueFocus, TheLabelFollowsTheLocale) {
    const TestSurroundings test("de_DE", "Europe/Berlin");
    const auto data = snapshotOf({}, {item("x", test.at(9, 0, 3))});
    EXPECT_EQ(focus(data, TestSurroundings::usualNow, test.surroundings).label, "due Sonntag");
}

}  // namespace
}  // namespace kelmar::widget
