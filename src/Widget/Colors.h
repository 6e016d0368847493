#pragma once

#include "Kit/Color.h"

/// Colours that belong to the planner rather than to the desktop.
namespace kelmar::widget {

/// Violet blue: the colour of the planner, for whatever a widget has to colour by itself.
inline constexpr kit::Color plannerAccent = kit::Color::rgb(0.31, 0.275, 0.898);

}  // namespace kelmar::widget
