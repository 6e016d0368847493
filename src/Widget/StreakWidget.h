#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// How many days in a row have counted, and what today means for them.
[[nodiscard]] BundledWidget streakWidget(const Surroundings& surroundings);

}  // namespace kelmar::widget
