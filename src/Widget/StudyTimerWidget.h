#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The planner's study timer, to start, pause and resume from the desktop.
[[nodiscard]] BundledWidget studyTimerWidget(const Surroundings& surroundings);

}  // namespace kelmar::widget
