#include <gtest/gtest.h>

#include "Widget/PlannerWidgets.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using enum kit::Family;

/// A version that knows controls.
constexpr const char* current = "26.0.0";

const std::vector<kit::WidgetDescriptor> fourWidgets{
    {.kind = "DueToday",
     .displayName = "Due Today",
     .description = "What's still to do today, and what's next, from Kelmar Planner.",
     .families = {small, medium, large}},
    {.kind = "Schedule",
     .displayName = "Schedule",
     .description = "Today's classes and study sessions from Kelmar Planner's Schedule.",
     .families = {small, medium, large}},
    {.kind = "StudyTimer",
     .displayName = "Study Timer",
     .description = "Planner's study timer: start, pause and resume it from the desktop.",
     .families = {small, medium}},
    {.kind = "Streak",
     .displayName = "Streak",
     .description = "Your day streak from Streak & Stats. It turns orange once today counts.",
     .families = {small, medium}}};

const std::vector<kit::ControlDescriptor> oneControl{
    {.kind = "StudyTimerControl",
     .displayName = "Study Timer",
     .description = "Start or pause Kelmar Planner's study timer."}};

TEST(PlannerWidgets, ListsFourWidgetsAndTheControlInGalleryOrder) {
    const testing::TestSurroundings test;
    EXPECT_EQ(PlannerWidgets(test.surroundings).bundle(current),
              (kit::Bundle{.widgets = fourWidgets, .controls = oneControl}));
}

struct VersionRow {
    const char* version;
    bool knowsControls;
};

TEST(PlannerWidgets, OffersTheControlFromTheFirstVersionThatKnowsControlsOn) {
    const testing::TestSurroundings test;
    const PlannerWidgets widgets(test.surroundings);
    for (const VersionRow& row : {VersionRow{"26.0.0", true},
                                  {"26.0", true},
                                  {"26", true},
                                  {"26.0.1", true},
                                  {"26.10", true},
                                  {"27.0.0", true},
                                  {"100", true},
                                  {"25.9.9", false},
                                  {"25", false},
                                  {"9.9", false},
                                  {"0", false},
                                  {"3.26.0", false},
                                  {"", false},
                                  {"newest", false},
                                  {"26beta", false},
                                  {"26.", false}})
        EXPECT_EQ(
            widgets.bundle(row.version),
            (kit::Bundle{.widgets = fourWidgets,
                         .controls = row.knowsControls ? oneControl
                                                       : std::vector<kit::ControlDescriptor>{}}))
            << row.version;
}

TEST(PlannerWidgets, AWidgetIsFoundByItsKindOnly) {
    const testing::TestSurroundings test;
    const PlannerWidgets widgets(test.surroundings);
    for (const kit::WidgetDescriptor& descriptor : fourWidgets) {
        ASSERT_NE(widgets.widget(descriptor.kind), nullptr);
        EXPECT_EQ(widgets.widget(descriptor.kind)->descriptor, descriptor);
    }
    for (const char* kind : {"duetoday", "Study Timer", "StudyTimerControl", ""})
        EXPECT_EQ(widgets.widget(kind), nullptr) << kind;
}

TEST(PlannerWidgets, TheControlIsFoundByItsKindOnly) {
    const testing::TestSurroundings test;
    const PlannerWidgets widgets(test.surroundings);
    ASSERT_NE(widgets.control("StudyTimerControl"), nullptr);
    EXPECT_EQ(widgets.control("StudyTimerControl")->descriptor(), oneControl[0]);
    for (const char* kind : {"StudyTimer", "studytimercontrol", ""})
        EXPECT_EQ(widgets.control(kind), nullptr) << kind;
}

}  // namespace
}  // namespace kelmar::widget
