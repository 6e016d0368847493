#pragma once

#include "Kit/Color.h"

/// Colours that belong to the planner rather than to the desktop.
namespace kelmar::widget {

/// Violet blue: the colour of the planner, for whatever a widget has to colour by itself.
inline constexpr kit::Color plannerAccent = kit::Color::rgb(0.31, 0.275, 0.898);
/// The green of the study timer's breaks.
inline constexpr kit::Color breakGreen = kit::Color::rgb(0.063, 0.725, 0.506);
/// The streak's orange, for a day that counts.
inline constexpr kit::Color streakOrange = kit::Color::rgb(0.976, 0.451, 0.086);
/// The blue of a day that a streak freeze covered.
inline constexpr kit::Color streakFrost = kit::Color::rgb(0.231, 0.51, 0.965);

}  // namespace kelmar::widget
