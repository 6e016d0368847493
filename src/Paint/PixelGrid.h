#pragma once

#include <QPointF>
#include <QRectF>

#include "Layout/Geometry.h"

namespace kelmar::paint {

/// From points to device pixels. Edges land on whole pixels, so that thin bars and rules are as
/// sharp at a scale of 1.25 as at 1.
class PixelGrid {
public:
    explicit PixelGrid(double scale) : scale_(scale) {}

    [[nodiscard]] double scale() const { return scale_; }
    [[nodiscard]] double length(double points) const { return points * scale_; }
    [[nodiscard]] QRectF exact(const layout::Rect& rect) const;

    /// The rectangle on whole pixels. Its size depends on its size in points only, not on where it
    /// lies, so equal shapes stay equal; something thin keeps at least one pixel.
    [[nodiscard]] QRectF snapped(const layout::Rect& rect) const;

    /// A length of at least one whole pixel, nothing for nothing.
    [[nodiscard]] double snappedLength(double points) const;

    /// The nearest line between two pixels.
    [[nodiscard]] double snappedPosition(double points) const;

private:
    double scale_;
};

}  // namespace kelmar::paint
