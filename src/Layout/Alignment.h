#pragma once

#include "Kit/View.h"
#include "Layout/Geometry.h"

namespace kelmar::layout {

/// Where a piece lies in a room along one axis: at the start (left in a locale that reads from left
/// to right, or at the top), in the middle, or at the end.
enum class Position { start, center, end };

[[nodiscard]] Position position(kit::HorizontalAlignment alignment);
/// Without texts to align there is no baseline; such a piece lies at the top.
[[nodiscard]] Position position(kit::VerticalAlignment alignment);

/// From the start of the room to the start of the piece. Negative where the piece is the larger:
/// it then sticks out on the sides away from its position.
[[nodiscard]] double offset(double room, double piece, Position position);

/// From the top leading corner of the room to that of the piece.
[[nodiscard]] Point offset(Size room, Size piece, kit::Alignment alignment);

}  // namespace kelmar::layout
