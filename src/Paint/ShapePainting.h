#pragma once

#include "Layout/PlacedBox.h"
#include "Paint/Canvas.h"

namespace kelmar::paint {

/// Fills and strokes a shape; the stroke lies inside the edge.
void drawShape(const Canvas& canvas, const layout::Rect& rect, const kit::Shape& shape);

/// Draws a bar as full as it is at the canvas's moment.
void drawProgress(const Canvas& canvas, const layout::Rect& rect, const kit::Progress& progress);

/// How full a bar is at a moment, from 0 to 1.
[[nodiscard]] double fillOf(const kit::Progress& progress, system::Date now);

}  // namespace kelmar::paint
