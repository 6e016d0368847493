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

}  // namespace

std::vector<ScreenArea> currentScreens() {
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        areas.push_back(
            {.identity = {.name = screen->name().toStdString(), .geometry = screen->geometry()},
             .visible = screen->availableGeometry()});
    }
    return areas;
}

const ScreenArea& screenOf(const WidgetPlace& widget, const std::vector<ScreenArea>& screens) {
    const auto same = std::find_if(screens.begin(), screens.end(), [&](const ScreenArea& screen) {
        return screen.identity == widget.screen;
    });
    if (same != screens.end()) {
        return *same;
    }
    const auto renewed = std::find_if(
        screens.begin(), screens.end(),
        [&](const ScreenArea& screen) { return screen.identity.name == widget.screen.name; });
    return renewed != screens.end() ? *renewed : screens.front();
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
