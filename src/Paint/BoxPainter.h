#pragma once

#include <QPainter>

#include "Layout/Layout.h"
#include "Layout/PlacedBox.h"
#include "Paint/Appearance.h"
#include "Paint/PaintResources.h"
#include "System/Date.h"

namespace kelmar::paint {

/// What stands around boxes while they are drawn.
struct PaintContext {
    const PaintResources& resources;
    PaintStyle style{};
    layout::Direction direction = layout::Direction::leftToRight;
    system::Date now{};  ///< For countdowns and bars that empty by themselves.
};

/// Whether a symbol is cut out of the boxes, and all of them are therefore drawn on a layer first.
[[nodiscard]] bool haveCutOut(const layout::PlacedBoxes& boxes);

/// Draws placed boxes, back to front. The painter's units must be device pixels (no scaling, a
/// device pixel ratio of 1): only so do edges land on whole pixels. What a `clear` symbol cuts out
/// shows what the painter had there before the call.
void paintBoxes(QPainter& painter, const layout::PlacedBoxes& boxes, const PaintContext& context);

}  // namespace kelmar::paint
