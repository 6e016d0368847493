#include "Desktop/CutOutCard.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "Paint/WidgetPicture.h"

namespace kelmar::desktop {

/// Line by line: Qt's painter starts threads even for a shape as small as this.
QRegion cardRegion(QSize window) {
    const double radius =
        std::min({paint::cardCornerRadius, window.width() / 2.0, window.height() / 2.0});
    const int roundedLines = static_cast<int>(radius);
    const auto line = [&](int y, int fromEdge) {
        const double toCentre = radius - (fromEdge + 0.5);
        const double left = radius - std::sqrt(radius * radius - toCentre * toCentre);
        // A pixel belongs to the card if its middle does.
        const int inset = static_cast<int>(std::ceil(left - 0.5));
        return QRect(inset, y, window.width() - 2 * inset, 1);
    };
    std::vector<QRect> lines;
    lines.reserve(2 * static_cast<std::size_t>(roundedLines) + 1);
    for (int y = 0; y < roundedLines; ++y) {
        lines.push_back(line(y, y));
    }
    lines.emplace_back(0, roundedLines, window.width(), window.height() - 2 * roundedLines);
    for (int fromEdge = roundedLines - 1; fromEdge >= 0; --fromEdge) {
        lines.push_back(line(window.height() - 1 - fromEdge, fromEdge));
    }
    QRegion region;
    region.setRects(lines.data(), static_cast<int>(lines.size()));
    return region;
}

}  // namespace kelmar::desktop
