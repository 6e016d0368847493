#pragma once

#include <QPoint>
#include <QRect>
#include <functional>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/Screens.h"

namespace kelmar::desktop {

/// Where what is being dragged rests while the pointer would hold it at `wanted`.
using DragRule = std::function<QPoint(const QRect& wanted, QPoint pointer)>;

/// On the screen under the pointer, beside those of `others` that are shown there.
[[nodiscard]] QPoint restingPlace(const QRect& wanted, QPoint pointer,
                                  const std::vector<WidgetPlace>& others,
                                  const std::vector<ScreenArea>& screens);

}  // namespace kelmar::desktop
