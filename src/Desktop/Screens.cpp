#include "Desktop/Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "Desktop/Placement.h"
#include "Kit/Metrics.h"

namespace kelmar::desktop {

namespace {

int overlap(const QRect& first, const QRect& second) {
    const QRect common = first.intersected(second);
    return common.width() * common.height();
}

bool saysWhatItIs(const ScreenIdentity& screen) {
    return !screen.model.empty() || !screen.serialNumber.empty();
}

bool haveOneDevice(const ScreenIdentity& first, const ScreenIdentity& second) {
    return first.model == second.model && first.serialNumber == second.serialNumber;
}

/// How much speaks for a screen's being the one that was kept, the device most of all. Twins
/// without serial numbers are told apart by their connectors.
int likeness(const ScreenIdentity& kept, const ScreenIdentity& present) {
    int likeness = 0;
    if (saysWhatItIs(kept) && saysWhatItIs(present) && haveOneDevice(kept, present)) {
        likeness += 4;
    }
    if (kept.name == present.name) {
        likeness += kept.geometry == present.geometry ? 3 : 2;
    }
    return likeness;
}

/// The square of how far a point lies from a rectangle.
int squaredDistance(QPoint point, const QRect& rect) {
    const QPoint nearest(std::clamp(point.x(), rect.left(), rect.right()),
                         std::clamp(point.y(), rect.top(), rect.bottom()));
    const QPoint way = point - nearest;
    return QPoint::dotProduct(way, way);
}

}  // namespace

std::vector<ScreenArea> currentScreens() {
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        areas.push_back({.identity = {.name = screen->name().toStdString(),
                                      .geometry = screen->geometry(),
                                      .model = screen->model().toStdString(),
                                      .serialNumber = screen->serialNumber().toStdString()},
                         .visible = screen->availableGeometry()});
    }
    return areas;
}

const ScreenArea& screenOf(const WidgetPlace& widget, const std::vector<ScreenArea>& screens) {
    return *std::max_element(screens.begin(), screens.end(),
                             [&](const ScreenArea& first, const ScreenArea& second) {
                                 return likeness(widget.screen, first.identity) <
                                        likeness(widget.screen, second.identity);
                             });
}

const ScreenArea& screenAt(QPoint point, const std::vector<ScreenArea>& screens) {
    return *std::min_element(screens.begin(), screens.end(),
                             [&](const ScreenArea& first, const ScreenArea& second) {
                                 return squaredDistance(point, first.identity.geometry) <
                                        squaredDistance(point, second.identity.geometry);
                             });
}

QRect shownGeometry(const WidgetPlace& widget, const std::vector<ScreenArea>& screens) {
    const ScreenArea& screen = screenOf(widget, screens);
    const QRect wanted(screen.identity.geometry.topLeft() + widget.position,
                       windowSize(widget.family));
    return {clamped(wanted, screen.visible), wanted.size()};
}

WidgetPlace movedTo(QPoint position, WidgetPlace widget, const std::vector<ScreenArea>& screens) {
    const QRect window(position, windowSize(widget.family));
    const auto nearest = std::max_element(
        screens.begin(), screens.end(), [&](const ScreenArea& first, const ScreenArea& second) {
            return overlap(first.visible, window) < overlap(second.visible, window);
        });
    widget.screen = nearest->identity;
    const QPoint visible = clamped(window, nearest->visible);
    widget.position = visible - nearest->identity.geometry.topLeft();
    return widget;
}

QSize windowSize(kit::Family family) {
    const kit::Size size = kit::widgetSize(family);
    return QSizeF(size.width, size.height).toSize();
}

}  // namespace kelmar::desktop
