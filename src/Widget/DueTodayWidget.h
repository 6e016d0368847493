#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// What is still to do today, and what comes next.
[[nodiscard]] BundledWidget dueTodayWidget(const Surroundings& surroundings);

}  // namespace kelmar::widget
