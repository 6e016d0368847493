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
    EXPECT_EQ(refusal({.name = "TimerRunIntent", .parameters = {{"run", std::int64_t{1}}}}, test),
              "The parameter \"run\" of TimerRunIntent has another type.");
    EXPECT_EQ(refusal({.name = "TimerPresetIntent", .parameters = {{"minutes", true}}}, test),
              "The parameter \"minutes\" of TimerPresetIntent has another type.");
    EXPECT_EQ(refusal({.name = "TimerControlIntent", .parameters = {{"run", true}}}, test),
              "TimerControlIntent needs the parameter \"value\".");
    EXPECT_TRUE(test.tickedFolder.calls().empty());
    EXPECT_TRUE(test.appLink.urls.empty());
}

TEST(IntentDescriptors, NameEveryActionWithItsTitles) {
    const auto& all = intentDescriptors();
    ASSERT_EQ(all.size(), 5U);
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

struct TimerActionRow {
    std::size_t index;
    const char* name;
    const char* title;
    const char* parameter;
    ParameterType type;
    const char* parameterTitle;
};

TEST(IntentDescriptors, OfferTheTimersActionsOutsideTheWidgets) {
    for (const TimerActionRow& row :
         {TimerActionRow{2, "TimerRunIntent", "Start or Pause the Timer", "run",
                         ParameterType::boolean, "Run"},
          {3, "TimerPresetIntent", "Start a Timer", "minutes", ParameterType::integer, "Minutes"},
          {4, "TimerControlIntent", "Study Timer", "value", ParameterType::boolean, "Running"}}) {
        const IntentDescriptor& descriptor = intentDescriptors().at(row.index);
        EXPECT_EQ(descriptor.name, row.name);
        EXPECT_EQ(descriptor.title, row.title);
        EXPECT_TRUE(descriptor.isDiscoverable);
        ASSERT_EQ(descriptor.parameters.size(), 1U);
        EXPECT_EQ(descriptor.parameters[0].name, row.parameter);
        EXPECT_EQ(descriptor.parameters[0].type, row.type);
        EXPECT_EQ(descriptor.parameters[0].title, row.parameterTitle);
    }
}

}  // namespace
}  // namespace kelmar::widget
