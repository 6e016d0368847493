#include "Widget/StreakColors.h"

#include "Kit/View.h"
#include "Widget/Colors.h"

namespace kelmar::widget {

namespace {

using kit::Match;

kit::Color lineColor(const Mood& mood, const kit::Environment& environment) {
    const bool isFullColor = environment.renderingMode == kit::RenderingMode::fullColor;
    // The small family's words then only name the number above them.
    const kit::Color calm =
        environment.family == kit::Family::small ? kit::secondary : kit::primary;
    const kit::Color counted = isFullColor ? kit::white : kit::primary;
    const kit::Color urgent = isFullColor ? streakOrange : kit::primary;
    return std::visit(Match{[&](const mood::Milestone&) { return counted; },
                            [&](const mood::Done&) { return counted; },
                            [&](const mood::AtRisk& risk) { return risk.late ? urgent : calm; },
                            [&](const mood::Start&) { return calm; }},
                      mood);
}

}  // namespace

StreakGround streakGround(const Mood& mood, kit::RenderingMode renderingMode) {
    return todayCounts(mood) && renderingMode == kit::RenderingMode::fullColor
               ? StreakGround::orange
               : StreakGround::plain;
}

StreakColors streakColors(const Mood& mood, const kit::Environment& environment) {
    const kit::Color headline = lineColor(mood, environment);
    if (streakGround(mood, environment.renderingMode) == StreakGround::orange) {
        return {.flame = kit::white,
                .number = kit::white,
                .headline = headline,
                .smallText = kit::white.withOpacity(0.88)};
    }
    return {.flame = todayCounts(mood) ? kit::primary : kit::secondary.withOpacity(0.55),
            .number = kit::primary,
            .headline = headline,
            .smallText = kit::secondary};
}

}  // namespace kelmar::widget
