#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

/// Where widgets may stand. Plain arithmetic in points, without a screen at hand.
namespace kelmar::desktop {

/// Dragged widgets stand on this grid, so that two of them line up without care.
inline constexpr int gridStep = 8;
/// The room that widgets which nobody has placed by hand keep between them and to the edges.
inline constexpr int comfortableGap = 2 * gridStep;

/// The nearest point of the grid that starts at `origin`.
[[nodiscard]] QPoint snapped(QPoint position, QPoint origin);

/// The position nearest to the widget's own at which all of it lies in `visible`; its top left
/// corner wins where it is too large for that.
[[nodiscard]] QPoint clamped(const QRect& widget, const QRect& visible);

/// A free place for a widget: columns from the right edge inwards, each from the top down, because
/// desktop icons gather on the left. The topmost place of the first column where nothing is free.
[[nodiscard]] QPoint freePlace(QSize size, const QRect& visible, const std::vector<QRect>& taken);

}  // namespace kelmar::desktop
