#pragma once

#include "Layout/PlacedBox.h"

namespace kelmar::layout {

/// Turns boxes placed for reading from left to right into those for reading from right to left, in
/// an area of this width: the mirror image, with letters and pictures left as they are.
void mirror(PlacedBoxes& boxes, double areaWidth);

}  // namespace kelmar::layout
