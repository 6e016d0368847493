#pragma once

#include "Layout/Layout.h"

namespace kelmar::layout {

/// How far texts may be magnified.
inline constexpr double greatestTextScale = 2;

/// Lays a view out in an area with everything in it magnified, up to `wanted` times and as far as
/// the area allows: nothing is pushed out of it, and no text that can be read in full at its usual
/// size is cut off, except for those in a link, which leads to the whole of them.
[[nodiscard]] PlacedBoxes layOutMagnified(const kit::View& root, Size area,
                                          const TextMeasurer& measurer, Direction direction,
                                          double wanted);

}  // namespace kelmar::layout
