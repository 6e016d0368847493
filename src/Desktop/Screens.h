#pragma once

#include <QPoint>
#include <QRect>
#include <vector>

#include "Desktop/Arrangement.h"

namespace kelmar::desktop {

/// One screen as it is now.
struct ScreenArea {
    ScreenIdentity identity;
    QRect visible;  ///< What panels leave free of it.
};

/// The screens of the session, the primary one first; never empty.
[[nodiscard]] std::vector<ScreenArea> currentScreens();

/// Which of `screens` the widget belongs on: its own device, wherever it is plugged in; else the
/// one of its name and geometry; else the one of its name, whose resolution has changed; else the
/// first.
[[nodiscard]] const ScreenArea& screenOf(const WidgetPlace& widget,
                                         const std::vector<ScreenArea>& screens);

/// The screen that holds a point, else the one nearest to it.
[[nodiscard]] const ScreenArea& screenAt(QPoint point, const std::vector<ScreenArea>& screens);

/// Where the widget's window stands while the screens are these: at its place, as far as all of it
/// is visible there.
[[nodiscard]] QRect shownGeometry(const WidgetPlace& widget,
                                  const std::vector<ScreenArea>& screens);

/// The widget as it is kept after its window has been put somewhere else by hand.
[[nodiscard]] WidgetPlace movedTo(QPoint position, WidgetPlace widget,
                                  const std::vector<ScreenArea>& screens);

/// The window size of a family in points.
[[nodiscard]] QSize windowSize(kit::Family family);

}  // namespace kelmar::desktop
