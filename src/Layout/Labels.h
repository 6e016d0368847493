#pragma once

#include <cstddef>
#include <string>

#include "Layout/PlacedBox.h"

namespace kelmar::layout {

/// Says with a label of its own what the boxes from index `first` on would say: on their only box
/// or the one thing to press that holds them all, else on a box of its own over `rect`, which the
/// list is then given. What can be pressed in there keeps its own label.
void relabel(PlacedBoxes& boxes, std::size_t first, const std::string& label, const PlacedBox& own);

/// What the boxes in the link, button or toggle at `container` say, joined by ", ".
[[nodiscard]] std::string gatheredLabel(const PlacedBoxes& boxes, std::size_t container);

}  // namespace kelmar::layout
