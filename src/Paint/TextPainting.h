#pragma once

#include "Layout/PlacedBox.h"
#include "Paint/Canvas.h"

namespace kelmar::paint {

/// Draws the lines of a text, or one rounded bar a line where texts are redacted.
void drawText(const Canvas& canvas, const layout::Rect& rect, const layout::TextDrawing& text);

/// Draws a countdown as it reads at the canvas's moment.
void drawCountdown(const Canvas& canvas, const layout::Rect& rect,
                   const layout::CountdownDrawing& countdown);

}  // namespace kelmar::paint
