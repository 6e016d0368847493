#pragma once

#include <cmath>

#include "Kit/Environment.h"

namespace kelmar::kit {

/// Measures that the extension and the layout share, so that both compute the same heights
/// without a font at hand. All in points.

inline constexpr double contentMargin = 16;

/// The outer size of a widget.
[[nodiscard]] constexpr Size widgetSize(Family family) {
    switch (family) {
        case Family::small:
            return {170, 170};
        case Family::medium:
            return {364, 170};
        case Family::large:
            return {364, 382};
    }
    return {};
}

/// The room inside the margins.
[[nodiscard]] constexpr Size contentSize(Family family) {
    const Size outer = widgetSize(family);
    return {outer.width - 2 * contentMargin, outer.height - 2 * contentMargin};
}

/// The height of one line of text, whatever the font file says.
[[nodiscard]] inline double lineHeight(double fontSize) {
    // Sizes such as 12.5 times 1.2 must give 15, not the 15.000000000000002 of the binary product.
    return std::ceil(1.2 * fontSize - 1e-9);
}

/// From the top of a line to its baseline.
[[nodiscard]] inline double baseline(double fontSize) {
    return 0.8 * lineHeight(fontSize);
}

/// The side of the square that a symbol of a font size takes.
[[nodiscard]] inline double symbolSide(double fontSize) {
    return lineHeight(fontSize);
}

}  // namespace kelmar::kit
