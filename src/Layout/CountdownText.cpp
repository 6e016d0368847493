#include "Layout/CountdownText.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace kelmar::layout {
namespace {

/// Dates of our time are known to a quarter of a microsecond: a second that is exceeded by less
/// has not begun.
constexpr system::Seconds dateNoise = 1e-6;

/// Some thousand years; longer countdowns stand still.
constexpr system::Seconds longest = 1e11;

}  // namespace

std::string countdownText(system::Seconds remaining) {
    const system::Seconds bounded = remaining > 0 ? std::min(remaining, longest) : 0;
    const auto seconds = static_cast<long long>(std::max(0.0, std::ceil(bounded - dateNoise)));
    const long long hours = seconds / 3600;
    const long long minutes = seconds / 60 % 60;
    if (hours == 0) {
        return fmt::format("{}:{:02}", minutes, seconds % 60);
    }
    return fmt::format("{}:{:02}:{:02}", hours, minutes, seconds % 60);
}

}  // namespace kelmar::layout
