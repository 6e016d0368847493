#include "Widget/StreakWidget.h"

#include "Widget/Colors.h"
#include "Widget/StreakProvider.h"
#include "Widget/StreakView.h"

namespace kelmar::widget {

BundledWidget streakWidget(const Surroundings& surroundings) {
    return bundledWidget(
        {.kind = "Streak",
         .displayName = surroundings.localization.text("Streak"),
         .description = surroundings.localization.text(
             "Your day streak from Streak & Stats. It turns orange once today counts."),
         .families = {kit::Family::small, kit::Family::medium}},
        StreakProvider(surroundings),
        [&surroundings](const StreakEntry& entry, const kit::Environment& environment) {
            return StreakView(entry, environment, streakFrost, surroundings).body();
        });
}

}  // namespace kelmar::widget
