#pragma once

#include "Kit/Timeline.h"
#include "Widget/Surroundings.h"
#include "Widget/TimerProvider.h"

namespace kelmar::widget {

/// What the Study Timer widget shows for an entry: the sentence that asks to sign in, or the timer
/// in the layout of the family.
class TimerWidgetView {
public:
    /// `accent` colours study sessions, `green` breaks.
    TimerWidgetView(const TimerEntry& entry, const kit::Environment& environment, kit::Color accent,
                    kit::Color green, const Surroundings& surroundings);

    [[nodiscard]] kit::DrawnEntry body() const;

private:
    [[nodiscard]] kit::View signedOut() const;

    const TimerEntry& entry_;
    kit::Environment environment_;
    kit::Color accent_;
    kit::Color green_;
    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
