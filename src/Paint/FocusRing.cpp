#include "Paint/FocusRing.h"

#include <algorithm>

#include "Paint/PixelGrid.h"
#include "Paint/WidgetPicture.h"

namespace kelmar::paint {
namespace {

/// All in points.
constexpr double width = 2;
constexpr double seam = 1;
constexpr double distance = 3;   ///< From what is marked to the middle of the ring.
constexpr double edge = 4;       ///< From the card's edge to the middle of the ring, at the least.
constexpr double roundness = 7;  ///< Of the ring round something with square corners.

layout::Rect ringRect(const FocusPlace& place) {
    const double left = std::max(place.rect.x - distance, edge);
    const double top = std::max(place.rect.y - distance, edge);
    const double right = std::min(place.rect.right() + distance, place.widget.width - edge);
    const double bottom = std::min(place.rect.bottom() + distance, place.widget.height - edge);
    return {left, top, std::max(0.0, right - left), std::max(0.0, bottom - top)};
}

/// A ring that runs along the card's edge follows its corners.
double radius(const layout::Rect& ring) {
    const bool isAtCorner = ring.x < cardCornerRadius / 2 && ring.y < cardCornerRadius / 2;
    return std::min(
        {isAtCorner ? cardCornerRadius - edge : roundness, ring.width / 2, ring.height / 2});
}

}  // namespace

void paintFocusRing(QPainter& painter, const FocusPlace& place, const FocusColors& colors,
                    double scale) {
    const PixelGrid grid(scale);
    const layout::Rect ring = ringRect(place);
    const double rounded = grid.length(radius(ring));
    const double line = grid.snappedLength(width);
    const QRectF middle = grid.snapped(ring);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors.card, line + 2 * grid.snappedLength(seam)));
    painter.drawRoundedRect(middle, rounded, rounded);
    painter.setPen(QPen(colors.ring, line));
    painter.drawRoundedRect(middle, rounded, rounded);
    painter.restore();
}

}  // namespace kelmar::paint
