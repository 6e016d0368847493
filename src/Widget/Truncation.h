#pragma once

#include <cstdint>

namespace kelmar::widget {

/// A number without its fraction, towards zero. Fatal for one that is not finite or lies outside
/// the signed 64-bit integers: the planner never writes such a duration, and there is no clock that
/// could show it.
[[nodiscard]] std::int64_t truncated(double number);

}  // namespace kelmar::widget
