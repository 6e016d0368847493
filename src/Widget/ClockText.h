#pragma once

#include <cstdint>
#include <string>

namespace kelmar::widget {

/// A duration as a clock that stands still shows it: "25:00", "0:07", from an hour on "1:05:09".
/// Less than nothing is nothing.
[[nodiscard]] std::string clockText(std::int64_t seconds);

}  // namespace kelmar::widget
