#pragma once

#include <QRegion>
#include <QSize>

namespace kelmar::desktop {

/// The part of a window that its card covers, for windows that end there instead of fading out.
[[nodiscard]] QRegion cardRegion(QSize window);
}  // namespace kelmar::desktop
