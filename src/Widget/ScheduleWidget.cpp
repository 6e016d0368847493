#include "Widget/ScheduleWidget.h"

#include "Widget/Colors.h"
#include "Widget/ScheduleProvider.h"
#include "Widget/ScheduleView.h"

namespace kelmar::widget {

BundledWidget scheduleWidget(const Surroundings& surroundings) {
    return bundledWidget(
        {.kind = "Schedule",
         .displayName = surroundings.localization.text("Schedule"),
         .description = surroundings.localization.text(
             "Today's classes and study sessions from Kelmar Planner's Schedule."),
         .families = {kit::Family::small, kit::Family::medium, kit::Family::large}},
        ScheduleProvider(surroundings),
        [&surroundings](const ScheduleEntry& entry, const kit::Environment& environment) {
            return ScheduleView(entry, environment, plannerAccent, surroundings).body();
        });
}

}  // namespace kelmar::widget
