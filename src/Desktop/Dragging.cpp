#include "Desktop/Dragging.h"

#include "Desktop/Attraction.h"

namespace kelmar::desktop {

QPoint restingPlace(const QRect& wanted, QPoint pointer, const std::vector<WidgetPlace>& others,
                    const std::vector<ScreenArea>& screens) {
    const ScreenArea& screen = screenAt(pointer, screens);
    Neighbourhood neighbourhood{screen.visible, screen.identity.geometry.topLeft(), {}};
    for (const WidgetPlace& other : others) {
        if (&screenOf(other, screens) == &screen) {
            neighbourhood.others.push_back(shownGeometry(other, screens));
        }
    }
    return restingPlace(wanted, neighbourhood);
}

}  // namespace kelmar::desktop
