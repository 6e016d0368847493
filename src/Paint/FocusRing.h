#pragma once

#include <QColor>
#include <QPainter>

#include "Kit/Environment.h"
#include "Layout/Geometry.h"

namespace kelmar::paint {

/// What has the keyboard, and in which widget, in points.
struct FocusPlace {
    layout::Rect rect;
    kit::Size widget;
};

struct FocusColors {
    QColor ring;
    QColor card;
};

/// Draws a ring round what has the keyboard, a little away from it but always inside the card. A
/// seam in the card's colour on both sides keeps it apart from whatever it crosses. The painter's
/// units are device pixels, `scale` of them a point.
void paintFocusRing(QPainter& painter, const FocusPlace& place, const FocusColors& colors,
                    double scale);

}  // namespace kelmar::paint
