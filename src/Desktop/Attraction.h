#pragma once

#include <QPoint>
#include <QRect>
#include <vector>

/// Where a widget that is dragged comes to rest. Plain arithmetic in points, without a screen at
/// hand.
namespace kelmar::desktop {

/// How near a line must be to draw a widget to itself: farther than the grid ever does.
inline constexpr int attractionDistance = 10;

/// What a dragged widget may stand against.
struct Neighbourhood {
    QRect visible;              ///< What panels leave free of the screen.
    QPoint gridOrigin;          ///< The screen's top left corner.
    std::vector<QRect> others;  ///< The other widgets on it.
};

/// Where a widget rests that is held at `wanted`: all of it inside the visible area, then, on each
/// axis by itself, on the nearest line that attracts it, else on the grid. Lines are the area's
/// edges and their margins, the edges of the other widgets, and the usual gap beside a widget that
/// stands next to it. Never farther than `attractionDistance` from the nearest visible place.
[[nodiscard]] QPoint restingPlace(const QRect& wanted, const Neighbourhood& neighbourhood);

}  // namespace kelmar::desktop
