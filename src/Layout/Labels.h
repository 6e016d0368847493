#pragma once

#include <cstddef>
#include <string>

#include "Layout/PlacedBox.h"

namespace kelmar::layout {

/// Has the boxes from index `first` on say `label` and nothing else: their only box, or the one
/// thing to press that holds them all, else `own`, a box that is then added in front of them. What
/// can be pressed among them keeps its own label. An empty label silences the boxes.
void relabel(PlacedBoxes& boxes, std::size_t first, const std::string& label, const PlacedBox& own);

/// What the boxes in the link, button or toggle at `container` say, joined by ", ".
[[nodiscard]] std::string gatheredLabel(const PlacedBoxes& boxes, std::size_t container);

}  // namespace kelmar::layout
