#include "Paint/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace kelmar::paint {

QRectF PixelGrid::exact(const layout::Rect& rect) const {
    return {length(rect.x), length(rect.y), length(rect.width), length(rect.height)};
}

QRectF PixelGrid::snapped(const layout::Rect& rect) const {
    return {snappedPosition(rect.x), snappedPosition(rect.y), snappedLength(rect.width),
            snappedLength(rect.height)};
}

double PixelGrid::snappedLength(double points) const {
    return points > 0 ? std::max(1.0, std::round(length(points))) : 0;
}

double PixelGrid::snappedPosition(double points) const {
    return std::round(length(points));
}

}  // namespace kelmar::paint
