#pragma once

#include <cstddef>

namespace kelmar::widget {

/// Which blocks of a day the large family's list has room for, and how it shares its height among
/// them. Plain arithmetic over the height that the list is offered.
struct ScheduleFit {
    int capacity = 0;  ///< Rows, never less than one.
    int past = 0;      ///< Finished blocks shown: the last ones, where there is room to spare.
    int live = 0;      ///< Other blocks shown: the first ones.
    double rowHeight = 0;
    double spacing = 0;  ///< Behind every row, also behind the last.

    bool operator==(const ScheduleFit&) const = default;
};

[[nodiscard]] ScheduleFit fitSchedule(double height, std::size_t pastCount, std::size_t liveCount);

}  // namespace kelmar::widget
