#include "Widget/StudyTimerWidget.h"

#include "Widget/Colors.h"
#include "Widget/TimerProvider.h"
#include "Widget/TimerView.h"

namespace kelmar::widget {

BundledWidget studyTimerWidget(const Surroundings& surroundings) {
    return bundledWidget(
        {.kind = "StudyTimer",
         .displayName = surroundings.localization.text("Study Timer"),
         .description = surroundings.localization.text(
             "Planner's study timer: start, pause and resume it from the desktop."),
         .families = {kit::Family::small, kit::Family::medium}},
        TimerProvider(surroundings),
        [&surroundings](const TimerEntry& entry, const kit::Environment& environment) {
            return TimerWidgetView(entry, environment, plannerAccent, breakGreen, surroundings)
                .body();
        });
}

}  // namespace kelmar::widget
