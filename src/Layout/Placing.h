#pragma once

#include "Layout/Measuring.h"
#include "Layout/PlacedBox.h"

namespace kelmar::layout {

/// Makes the boxes of a view tree as if read from left to right: `root`, offered `proposal`, with
/// its top left corner at `origin`.
[[nodiscard]] PlacedBoxes place(const kit::View& root, const Proposal& proposal, Point origin,
                                Measuring& measuring);

}  // namespace kelmar::layout
