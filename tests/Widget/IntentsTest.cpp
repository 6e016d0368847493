#include <gtest/gtest.h>

#include "Widget/Intents.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using testing::TestSurroundings;

/// Why an intent was refused, or the empty text when it ran.
std::string refusal(const kit::Intent& intent, TestSurroundings& test) {
    std::string reason = "never ended";
    performIntent(intent, test.surroundings, [&](const system::Result<system::Done>& outcome) {
        reason = outcome ? "" : outcome.failure().reason;
    });
    return reason;
}

TEST(PerformIntent, RunsTheActionThatIsNamed) {
    TestSurroundings test;
    EXPECT_EQ(refusal(TickOffIntent{.id = "x", .title = "T"}.described(), test), "");
    EXPECT_EQ(refusal(UndoTickIntent{.id = "x"}.described(), test), "");
    EXPECT_EQ(test.appLink.urls,
              (std::vector<std::string>{"kelmarplanner://ticked", "kelmarplanner://untick/x"}));
}

TEST(PerformIntent, TakesParametersInAnyOrder) {
    TestSurroundings test;
    kit::Intent intent = TickOffIntent{.id = "x", .title = "T"}.described();
    std::swap(intent.parameters[0], intent.parameters[1]);
    EXPECT_EQ(refusal(intent, test), "");
    EXPECT_TRUE(test.tickedFolder.contains("tick-eA"));
}

TEST(PerformIntent, RefusesWhatItDoesNotKnowAndTouchesNothing) {
    TestSurroundings test;
    EXPECT_EQ(refusal({.name = "Explode", .parameters = {}}, test),
              "There is no action \"Explode\".");
    EXPECT_EQ(refusal({.name = "TickOffIntent", .parameters = {{"id", std::string("x")}}}, test),
              "TickOffIntent needs the parameter \"name\".");
    EXPECT_EQ(refusal({.name = "UndoTickIntent", .parameters = {{"id", true}}}, test),
              "The parameter \"id\" of UndoTickIntent has another type.");
    EXPECT_TRUE(test.tickedFolder.calls().empty());
    EXPECT_TRUE(test.appLink.urls.empty());
}

TEST(IntentDescriptors, NameEveryActionWithItsTitles) {
    const auto& all = intentDescriptors();
    ASSERT_GE(all.size(), 2U);
    EXPECT_EQ(all[0].name, "TickOffIntent");
    EXPECT_EQ(all[0].title, "Tick Off");
    ASSERT_EQ(all[0].parameters.size(), 2U);
    EXPECT_EQ(all[0].parameters[0].title, "Assignment ID");
    EXPECT_EQ(all[0].parameters[1].name, "name");
    EXPECT_EQ(all[0].parameters[1].title, "Title");
    EXPECT_FALSE(all[0].isDiscoverable);
    EXPECT_EQ(all[1].name, "UndoTickIntent");
    EXPECT_EQ(all[1].title, "Undo Tick");
    EXPECT_FALSE(all[1].isDiscoverable);
}

}  // namespace
}  // namespace kelmar::widget
