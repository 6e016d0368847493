#pragma once

#include <string>

#include "DemoPlanner/Planner.h"

namespace kelmar::demo {

/// What the planner would bring into view for a deep link, in words.
struct Opening {
    std::string place;  ///< "Assignment", "Schedule" ...
    std::string title;
    std::string detail;  ///< May be empty.

    bool operator==(const Opening&) const = default;
};

[[nodiscard]] Opening openingOf(const DeepLink& link, const Planner& planner);

}  // namespace kelmar::demo
