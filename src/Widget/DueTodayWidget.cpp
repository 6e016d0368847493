#include "Widget/DueTodayWidget.h"

#include "Widget/Colors.h"
#include "Widget/DueProvider.h"
#include "Widget/DueTodayView.h"

namespace kelmar::widget {

BundledWidget dueTodayWidget(const Surroundings& surroundings) {
    return bundledWidget(
        {.kind = "DueToday",
         .displayName = surroundings.localization.text("Due Today"),
         .description = surroundings.localization.text(
             "What's still to do today, and what's next, from Kelmar Planner."),
         .families = {kit::Family::small, kit::Family::medium, kit::Family::large}},
        DueProvider(surroundings),
        [&surroundings](const DueEntry& entry, const kit::Environment& environment) {
            return DueTodayView(entry, environment, plannerAccent, surroundings).body();
        });
}

}  // namespace kelmar::widget
