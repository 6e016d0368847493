#pragma once

#include "Kit/Color.h"
#include "Kit/Environment.h"
#include "Widget/StreakMood.h"

/// How the Streak widget colours itself by mood and rendering mode.
namespace kelmar::widget {

/// What the widget's content lies on. The orange ground belongs to a day that counts, and to full
/// colour: in the other modes the host's own tint stays.
enum class StreakGround { plain, orange };

[[nodiscard]] StreakGround streakGround(const Mood& mood, kit::RenderingMode renderingMode);

/// Colours of the texts and the flame for one mood in one place.
struct StreakColors {
    kit::Color flame;
    kit::Color number;
    kit::Color headline;
    kit::Color smallText;  ///< Of the medium family's supporting texts.

    bool operator==(const StreakColors&) const = default;
};

[[nodiscard]] StreakColors streakColors(const Mood& mood, const kit::Environment& environment);

}  // namespace kelmar::widget
