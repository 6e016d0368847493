#pragma once

#include "Kit/Environment.h"

namespace kelmar::layout {

using kit::Size;

struct Point {
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

/// In points, from the top left corner; x grows to the right in every locale.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr double right() const { return x + width; }
    [[nodiscard]] constexpr double bottom() const { return y + height; }
    /// The left and top edges belong to the rectangle, the right and bottom ones do not.
    [[nodiscard]] constexpr bool contains(Point point) const {
        return point.x >= x && point.x < right() && point.y >= y && point.y < bottom();
    }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace kelmar::layout
