#include "Desktop/KeyboardRound.h"

#include <algorithm>
#include <tuple>

#include "Desktop/WidgetWindow.h"

namespace kelmar::desktop {

void KeyboardRound::add(WidgetWindow& window) {
    std::erase_if(windows_, [](const QPointer<WidgetWindow>& known) { return known.isNull(); });
    windows_.emplace_back(&window);
    connect(&window.keyboard(), &WidgetKeyboard::requested, this,
            [this, &window] { loan_.takeFor(*window.windowHandle()); });
    connect(&window.keyboard(), &WidgetKeyboard::passedOn, this,
            [this, &window](FocusStep step) { goOn(window, step); });
    connect(&window.keyboard(), &WidgetKeyboard::returned, this, [this] { loan_.giveBack(); });
}

void KeyboardRound::begin() {
    const std::vector<WidgetWindow*> windows = order();
    if (!windows.empty()) {
        windows.front()->keyboard().enter(FocusStep::next);
    }
}

void KeyboardRound::goOn(WidgetWindow& from, FocusStep step) {
    std::vector<WidgetWindow*> windows = order();
    if (windows.empty()) {
        return;
    }
    if (step == FocusStep::previous) {
        std::ranges::reverse(windows);
    }
    const auto here = std::ranges::find(windows, &from);
    const bool isLast = here == windows.end() || here + 1 == windows.end();
    (isLast ? windows.front() : *(here + 1))->keyboard().enter(step);
}

std::vector<WidgetWindow*> KeyboardRound::order() const {
    std::vector<WidgetWindow*> order;
    for (const QPointer<WidgetWindow>& window : windows_) {
        if (window && window->isVisible() && window->keyboard().hasTargets()) {
            order.push_back(window);
        }
    }
    std::ranges::stable_sort(order, {}, [](const WidgetWindow* window) {
        const int inward =
            window->layoutDirection() == Qt::LeftToRight ? window->x() : -window->x();
        return std::tuple(window->y(), inward);
    });
    return order;
}

}  // namespace kelmar::desktop
