#include <gtest/gtest.h>

#include "Widget/PlannerWidgets.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

TEST(PlannerWidgets, DueTodayComesFirstWithItsIdentity) {
    const testing::TestSurroundings test;
    const kit::Bundle bundle = PlannerWidgets(test.surroundings).bundle("26.0.0");
    ASSERT_FALSE(bundle.widgets.empty());
    EXPECT_EQ(bundle.widgets[0],
              (kit::WidgetDescriptor{
                  .kind = "DueToday",
                  .displayName = "Due Today",
                  .description = "What's still to do today, and what's next, from Kelmar Planner.",
                  .families = {kit::Family::small, kit::Family::medium, kit::Family::large}}));
}

TEST(PlannerWidgets, AWidgetIsFoundByItsKindOnly) {
    const testing::TestSurroundings test;
    const PlannerWidgets widgets(test.surroundings);
    for (const kit::WidgetDescriptor& descriptor : widgets.bundle("26.0.0").widgets) {
        ASSERT_NE(widgets.widget(descriptor.kind), nullptr);
        EXPECT_EQ(widgets.widget(descriptor.kind)->descriptor, descriptor);
    }
    EXPECT_EQ(widgets.widget("duetoday"), nullptr);
    EXPECT_EQ(widgets.widget(""), nullptr);
}

}  // namespace
}  // namespace kelmar::widget
