#pragma once

#include <string>
#include <string_view>

#include "DemoPlanner/Planner.h"
#include "System/Result.h"

namespace kelmar::demo {

/// The planner's memory as JSON; dates are seconds since 1970.
[[nodiscard]] std::string encodeState(const PlannerState& state);

/// All or nothing: the state, or what makes the text unusable. What a state could never have
/// become by use (an endless session, an unknown phase) is refused too.
[[nodiscard]] system::Result<PlannerState> decodeState(std::string_view json);

}  // namespace kelmar::demo
