#pragma once

#include "Kit/Timeline.h"
#include "Widget/StreakColors.h"
#include "Widget/StreakMood.h"
#include "Widget/StreakProvider.h"
#include "Widget/StreakWeek.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// What the Streak widget shows for an entry: the count, what today means for it and the last seven
/// days. A press opens the statistics, whatever is shown.
class StreakView {
public:
    StreakView(const StreakEntry& entry, const kit::Environment& environment, kit::Color frost,
               const Surroundings& surroundings);

    [[nodiscard]] kit::DrawnEntry body() const;

private:
    [[nodiscard]] kit::View signedOut() const;

    const StreakEntry& entry_;
    kit::Environment environment_;
    kit::Color frost_;
    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
