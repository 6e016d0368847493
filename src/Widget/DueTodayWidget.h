#pragma once

#include "Kit/Color.h"
#include "Kit/Descriptor.h"
#include "Widget/BundledWidget.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// Violet blue: the colour of the planner, for whatever a widget has to colour by itself.
inline constexpr kit::Color plannerAccent = kit::Color::rgb(0.31, 0.275, 0.898);

/// What is still to do today, and what comes next.
[[nodiscard]] BundledWidget dueTodayWidget(const Surroundings& surroundings);

}  // namespace kelmar::widget
