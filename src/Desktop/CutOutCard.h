#pragma once

#include <QImage>
#include <QRegion>
#include <QSize>

/// How a widget is shown where nothing blends it with what lies behind.
namespace kelmar::desktop {

/// The part of a window that its card covers, for windows that end there instead of fading out.
[[nodiscard]] QRegion cardRegion(QSize window);

/// A card's picture with every pixel at its full colour, also where it would let something shine
/// through or fade out at the edge.
[[nodiscard]] QImage opaqueCard(const QImage& picture);

}  // namespace kelmar::desktop
