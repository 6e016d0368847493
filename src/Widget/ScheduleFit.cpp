#include "Widget/ScheduleFit.h"

#include <algorithm>

#include "Widget/WholeRows.h"

namespace kelmar::widget {

namespace {

constexpr double leastRowHeight = 30;
constexpr double greatestRowHeight = 40;
/// What a row leaves of its share of the height where rows need not stand closer.
constexpr double usualSpacing = 4;
constexpr double greatestSpacing = 8;

}  // namespace

ScheduleFit fitSchedule(double height, std::size_t pastCount, std::size_t liveCount) {
    ScheduleFit fit;
    fit.capacity = wholeRows(height / leastRowHeight);
    const auto capacity = static_cast<std::size_t>(fit.capacity);
    const std::size_t live = std::min(liveCount, capacity);
    const std::size_t past = std::min(pastCount, capacity - live);
    fit.live = static_cast<int>(live);
    fit.past = static_cast<int>(past);

    const int rows = fit.past + fit.live;
    // Every row has a spacing behind it, for below the last there is a flexible space.
    const int shares = std::max(rows, 1);
    fit.rowHeight = std::clamp(height / shares - usualSpacing, leastRowHeight, greatestRowHeight);
    fit.spacing = std::clamp((height - fit.rowHeight * rows) / shares, 0.0, greatestSpacing);
    return fit;
}

}  // namespace kelmar::widget
