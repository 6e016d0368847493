#include "Desktop/LiveChange.h"

#include <algorithm>
#include <cmath>

namespace kelmar::desktop {

namespace {

using system::Date;
using system::Seconds;

/// Dates of our time lie this far apart at most, with something to spare.
constexpr Seconds dateGrain = 1e-6;

/// Of something that runs from `from` to `to` and changes whenever the time left is a whole number
/// of steps.
std::optional<Date> nextStep(Date from, Date to, Seconds step, Date now) {
    const Seconds left = std::min(to - now, to - from);
    if (left <= 0 || step <= 0) {
        return std::nullopt;
    }
    // Rounding may put a step that is happening right now a hair before it or after it.
    const double stepsLeftAfter = std::ceil((left - dateGrain) / step) - 1;
    const Date next = to + -stepsLeftAfter * step;
    return next > now ? next : next + step;
}

std::optional<Date> nextChange(const layout::PlacedBox& box, Date now, double scale) {
    if (const auto* countdown = std::get_if<layout::CountdownDrawing>(&box.drawing)) {
        return nextStep(countdown->from, countdown->to, 1, now);
    }
    const auto* bar = std::get_if<layout::ProgressDrawing>(&box.drawing);
    const auto* interval =
        bar != nullptr ? std::get_if<kit::BarInterval>(&bar->progress.value) : nullptr;
    if (interval == nullptr) {
        return std::nullopt;
    }
    const double pixels = std::max(1.0, box.rect.width * scale);
    return nextStep(interval->from, interval->to, (interval->to - interval->from) / pixels, now);
}

}  // namespace

std::optional<Date> nextLiveChange(const layout::PlacedBoxes& boxes, Date now, double scale) {
    std::optional<Date> earliest;
    for (const layout::PlacedBox& box : boxes) {
        const std::optional<Date> change = nextChange(box, now, scale);
        if (change && (!earliest || *change < *earliest)) {
            earliest = change;
        }
    }
    return earliest;
}

}  // namespace kelmar::desktop
