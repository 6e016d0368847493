#pragma once

#include <array>
#include <utility>

#include "DemoPlanner/StudyTimer.h"

namespace kelmar::demo {

/// What the writer and the reader of the planner's memory have to agree upon besides its keys.

inline constexpr int stateVersion = 1;

inline constexpr std::array<std::pair<const char*, StudyTimer::Phase>, 4> phaseNames{
    {{"ready", StudyTimer::Phase::ready},
     {"running", StudyTimer::Phase::running},
     {"paused", StudyTimer::Phase::paused},
     {"ringing", StudyTimer::Phase::ringing}}};

}  // namespace kelmar::demo
