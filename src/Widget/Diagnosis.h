#pragma once

#include <string>
#include <vector>

#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// Why the widgets have nothing to show: one sentence about the planner's snapshot if it is missing
/// or unreadable, nothing when it can be read. For whoever looks after the planner, in English.
[[nodiscard]] std::vector<std::string> diagnose(const Surroundings& surroundings);

}  // namespace kelmar::widget
