#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The day's classes and study sessions.
[[nodiscard]] BundledWidget scheduleWidget(const Surroundings& surroundings);

}  // namespace kelmar::widget
