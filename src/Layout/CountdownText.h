#pragma once

#include <string>

#include "System/Date.h"

namespace kelmar::layout {

/// What a countdown shows while so many seconds remain: "h:mm:ss" from an hour on, "m:ss" below.
/// A begun second counts in full, so that the text reads 0:00 from the very end on and the whole
/// length at the very start; what is past or no number reads 0:00.
[[nodiscard]] std::string countdownText(system::Seconds remaining);

}  // namespace kelmar::layout
