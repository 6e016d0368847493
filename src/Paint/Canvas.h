#pragma once

#include <QPainter>

#include "Paint/BoxPainter.h"
#include "Paint/Palette.h"
#include "Paint/PixelGrid.h"

namespace kelmar::paint {

/// What every drawing function needs: where to draw, and how points and colours become pixels.
struct Canvas {
    QPainter& painter;
    const PaintContext& context;
    PixelGrid grid;
    Palette palette;
};

/// How strongly the bars that stand for redacted texts and symbols are drawn.
inline constexpr double redactedOpacity = 0.22;

}  // namespace kelmar::paint
