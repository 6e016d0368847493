#include <gtest/gtest.h>
#include <optional>

#include "Shared/WidgetTicks.h"
#include "Widget/TickIntents.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using shared::WidgetTicks;
using testing::TestSurroundings;

/// Runs an action and gives what became of it, or nothing while it has not ended.
template <class Action>
std::optional<bool> outcomeOf(const Action& action, TestSurroundings& test) {
    std::optional<bool> succeeded;
    action.perform(test.surroundings, [&](const system::Result<system::Done>& outcome) {
        succeeded = static_cast<bool>(outcome);
    });
    return succeeded;
}

TEST(TickOff, WritesTheTickThenTellsThePlanner) {
    TestSurroundings test;
    EXPECT_EQ(outcomeOf(TickOffIntent{.id = "x/y", .title = "Essay"}, test), true);
    const auto note = WidgetTicks::decode(test.tickedFolder.content("tick-eC95"));
    ASSERT_TRUE(note);
    EXPECT_EQ(note->title, "Essay");
    EXPECT_EQ(note->at, TestSurroundings::usualNow);
    EXPECT_EQ(test.appLink.urls, std::vector<std::string>{"kelmarplanner://ticked"});
}

TEST(TickOff, EndsOnlyWhenTheOpenRequestHasCompleted) {
    TestSurroundings test;
    test.appLink.completesAtOnce = false;
    std::optional<bool> succeeded;
    TickOffIntent{.id = "x", .title = ""}.perform(test.surroundings,
                                                  [&](const system::Result<system::Done>& outcome) {
                                                      succeeded = static_cast<bool>(outcome);
                                                  });
    EXPECT_EQ(succeeded, std::nullopt);
    test.appLink.outstanding.front()();
    EXPECT_EQ(succeeded, true);
}

TEST(TickOff, TwiceOverwritesTheTickAndTellsThePlannerTwice) {
    TestSurroundings test;
    const TickOffIntent tickOff{.id = "x", .title = "Essay"};
    EXPECT_EQ(outcomeOf(tickOff, test), true);
    test.clock.set(TestSurroundings::usualNow + 3);
    EXPECT_EQ(outcomeOf(tickOff, test), true);
    EXPECT_EQ(test.tickedFolder.names().size(), 1U);
    EXPECT_EQ(WidgetTicks::decode(test.tickedFolder.content(WidgetTicks::fileName("x")))->at,
              TestSurroundings::usualNow + 3);
    EXPECT_EQ(test.appLink.urls.size(), 2U);
}

TEST(TickOff, WithoutTheFolderFailsAndSendsNothing) {
    TestSurroundings test;
    test.tickedFolder.setMissing(true);
    EXPECT_EQ(outcomeOf(TickOffIntent{.id = "x", .title = "Essay"}, test), false);
    EXPECT_TRUE(test.appLink.urls.empty());
}

TEST(TickOff, OnAFullDiskFailsAndSendsNothing) {
    TestSurroundings test;
    test.tickedFolder.failWrites("No space left on device");
    EXPECT_EQ(outcomeOf(TickOffIntent{.id = "x", .title = "Essay"}, test), false);
    EXPECT_TRUE(test.appLink.urls.empty());
}

TEST(UndoTick, RemovesBothFilesThenTellsThePlanner) {
    TestSurroundings test;
    test.tickedFolder.put("tick-eC95", "{}");
    test.tickedFolder.put("done-eC95", "{}");
    test.tickedFolder.put("tick-eA", "{}");
    EXPECT_EQ(outcomeOf(UndoTickIntent{.id = "x/y"}, test), true);
    EXPECT_EQ(test.tickedFolder.names(), std::vector<std::string>{"tick-eA"});
    EXPECT_EQ(test.appLink.urls, std::vector<std::string>{"kelmarplanner://untick/x%2Fy"});
}

TEST(UndoTick, WithoutFilesStillTellsThePlanner) {
    TestSurroundings test;
    EXPECT_EQ(outcomeOf(UndoTickIntent{.id = "gone"}, test), true);
    EXPECT_EQ(test.appLink.urls, std::vector<std::string>{"kelmarplanner://untick/gone"});
}

TEST(UndoTick, IgnoresFilesThatCannotBeRemoved) {
    TestSurroundings test;
    test.tickedFolder.put(WidgetTicks::fileName("x"), "{}");
    test.tickedFolder.failRemovals("Permission denied");
    EXPECT_EQ(outcomeOf(UndoTickIntent{.id = "x"}, test), true);
    EXPECT_EQ(test.appLink.urls, std::vector<std::string>{"kelmarplanner://untick/x"});
}

TEST(TickIntents, DescribeThemselvesWithTheirParametersInOrder) {
    EXPECT_EQ((TickOffIntent{.id = "a", .title = "T"}.described()),
              (kit::Intent{.name = "TickOffIntent",
                           .parameters = {{"id", std::string("a")}, {"name", std::string("T")}}}));
    EXPECT_EQ(UndoTickIntent{.id = "a"}.described(),
              (kit::Intent{.name = "UndoTickIntent", .parameters = {{"id", std::string("a")}}}));
}

}  // namespace
}  // namespace kelmar::widget
