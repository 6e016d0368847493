#include "Desktop/FirstArrangement.h"

#include <algorithm>
#include <iterator>

#include "Desktop/Placement.h"

namespace kelmar::desktop {

namespace {

kit::Family familyLike(kit::Family wish, const std::vector<kit::Family>& offered) {
    const bool isOffered = std::find(offered.begin(), offered.end(), wish) != offered.end();
    return isOffered || offered.empty() ? wish : offered.front();
}

}  // namespace

WidgetPlace freshPlace(const std::string& kind, kit::Family family,
                       const std::vector<WidgetPlace>& others,
                       const std::vector<ScreenArea>& screens, const ScreenArea& screen) {
    std::vector<QRect> taken;
    std::transform(others.begin(), others.end(), std::back_inserter(taken),
                   [&](const WidgetPlace& other) { return shownGeometry(other, screens); });
    const QPoint place = freePlace(windowSize(family), screen.visible, taken);
    return {.kind = kind,
            .family = family,
            .screen = screen.identity,
            .position = place - screen.identity.geometry.topLeft()};
}

std::vector<WidgetPlace> firstWidgets(const kit::Bundle& bundle,
                                      const std::vector<ScreenArea>& screens) {
    const kit::Family wish = bundle.widgets.size() == 1 ? kit::Family::large : kit::Family::medium;
    std::vector<WidgetPlace> places;
    for (const kit::WidgetDescriptor& widget : bundle.widgets) {
        places.push_back(freshPlace(widget.kind, familyLike(wish, widget.families), places, screens,
                                    screens.front()));
    }
    return places;
}

}  // namespace kelmar::desktop
