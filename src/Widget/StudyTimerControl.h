#pragma once

#include "Kit/Descriptor.h"
#include "Shared/WidgetData.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// A toggle outside the widgets that starts and pauses the planner's study timer. Keeps no state:
/// every current value reads the snapshot afresh.
class StudyTimerControl {
public:
    static constexpr const char* kind = "StudyTimerControl";

    explicit StudyTimerControl(const Surroundings& surroundings) : surroundings_(surroundings) {}

    [[nodiscard]] kit::ControlDescriptor descriptor() const;
    /// What a gallery shows; looks at no file.
    [[nodiscard]] kit::ControlValue previewValue() const;
    /// Fatal for a remaining time or a length that no clock can show.
    [[nodiscard]] kit::ControlValue currentValue() const;

private:
    [[nodiscard]] kit::ControlValue valueOf(const shared::WidgetData::Timer& timer) const;
    [[nodiscard]] std::string runningText(const shared::WidgetData::Timer& timer) const;

    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
