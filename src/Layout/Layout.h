#pragma once

#include "Kit/View.h"
#include "Layout/Geometry.h"
#include "Layout/PlacedBox.h"
#include "Layout/TextMeasurer.h"

namespace kelmar::layout {

enum class Direction { leftToRight, rightToLeft };

/// Places a view tree in a content area: the area is proposed to the root, whose own size comes
/// back and is centred in it. Boxes that do not fit overlap the area's edge; nothing is dropped.
/// Rectangles are relative to the area's top left corner.
[[nodiscard]] PlacedBoxes layOut(const kit::View& root, Size area, const TextMeasurer& measurer,
                                 Direction direction);

}  // namespace kelmar::layout
