#include "Desktop/Placement.h"

#include <algorithm>
#include <cmath>

namespace kelmar::desktop {

namespace {

int snappedLength(int length) {
    return static_cast<int>(std::floor(double(length) / gridStep + 0.5)) * gridStep;
}

int clampedCoordinate(int start, int length, int visibleStart, int visibleLength) {
    const int lastStart = visibleStart + visibleLength - length;
    return std::max(visibleStart, std::min(start, lastStart));
}

bool isFree(const QRect& place, const std::vector<QRect>& taken) {
    const QRect withGap = place.adjusted(-comfortableGap + 1, -comfortableGap + 1,
                                         comfortableGap - 1, comfortableGap - 1);
    return std::none_of(taken.begin(), taken.end(),
                        [&](const QRect& other) { return withGap.intersects(other); });
}

}  // namespace

QPoint snapped(QPoint position, QPoint origin) {
    const QPoint offset = position - origin;
    return origin + QPoint(snappedLength(offset.x()), snappedLength(offset.y()));
}

QPoint clamped(const QRect& widget, const QRect& visible) {
    return {clampedCoordinate(widget.x(), widget.width(), visible.x(), visible.width()),
            clampedCoordinate(widget.y(), widget.height(), visible.y(), visible.height())};
}

QPoint freePlace(QSize size, const QRect& visible, const std::vector<QRect>& taken) {
    const int right = visible.x() + visible.width() - comfortableGap - size.width();
    const int top = visible.y() + comfortableGap;
    const int left = visible.x() + comfortableGap;
    const int bottom = visible.y() + visible.height() - comfortableGap - size.height();
    for (int x = right; x >= left; x -= gridStep) {
        for (int y = top; y <= bottom; y += gridStep) {
            if (isFree(QRect({x, y}, size), taken)) {
                return {x, y};
            }
        }
    }
    return clamped(QRect({right, top}, size), visible);
}

}  // namespace kelmar::desktop
