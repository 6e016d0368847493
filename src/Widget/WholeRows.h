#pragma once

#include <algorithm>

namespace kelmar::widget {

/// The rows that a quotient of heights comes to, in whole numbers: never less than one, and a
/// number to reckon with however large the height was.
[[nodiscard]] inline int wholeRows(double quotient) {
    constexpr double most = 1000;
    return static_cast<int>(std::clamp(quotient, 1.0, most));
}

}  // namespace kelmar::widget
