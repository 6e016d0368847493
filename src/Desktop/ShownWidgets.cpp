#include "Desktop/ShownWidgets.h"

#include <QGuiApplication>
#include <QMenu>
#include <algorithm>
#include <iterator>
#include <variant>

#include "Desktop/MenuLook.h"
#include "Desktop/Screens.h"

namespace kelmar::desktop {

ShownWidgets::ShownWidgets(const DesktopParts& parts, const WidgetPresentation& presentation)
    : parts_(parts), presentation_(presentation) {
    connect(&parts_.host, &host::WidgetHost::bundleChanged, this, &ShownWidgets::takeNames);
    connect(&parts_.host, &host::WidgetHost::entryChanged, this, &ShownWidgets::takeEntry);
    connect(&parts_.host, &host::WidgetHost::clockStepped, this, &ShownWidgets::takeClockStep);
    connect(&parts_.look, &Look::changed, this, &ShownWidgets::takeLook);
    connect(&parts_.compositor, &Compositor::changed, this, &ShownWidgets::dress);
    connect(&parts_.stacking, &StackingRule::changed, this, &ShownWidgets::dress);
    connect(&screenWatch_, &ScreenWatch::changed, this, &ShownWidgets::takeScreens);
}

void ShownWidgets::add(const std::vector<WidgetPlace>& places) {
    std::ranges::for_each(places, [this](const WidgetPlace& place) { add(place); });
}

void ShownWidgets::add(const WidgetPlace& place) {
    const host::WidgetId id = parts_.host.add(place.kind, parts_.look.environment(place.family));
    Shown& shown = shown_[id];
    shown.place = place;
    shown.window = std::make_unique<WidgetWindow>(place.family, parts_.clock);
    WidgetWindow& window = *shown.window;
    connectWindow(id, window);
    window.setName(presentation_.name(place.kind));
    window.setDragRule(dragRuleUnlessLocked(id));
    presentation_.dress(window);
    window.move(shownGeometry(place, currentScreens()).topLeft());
    window.show();
}

void ShownWidgets::connectWindow(host::WidgetId id, WidgetWindow& window) {
    keyboardRound_.add(window);
    window.setToolTipSource([this, id] {
        dressToolTips(parts_.look);
        return presentation_.age(id);
    });
    connect(&window, &WidgetWindow::actionRequested, this, &ShownWidgets::run);
    connect(&window, &WidgetWindow::menuRequested, this,
            [this, id](QPoint position) { emit menuRequested(id, position); });
    connect(&window, &WidgetWindow::movedByHand, this,
            [this, id](QPoint position) { takePlace(id, position); });
}

void ShownWidgets::resize(host::WidgetId id, kit::Family family) {
    Shown& shown = shown_.at(id);
    shown.place.family = family;
    shown.window->setFamily(family);
    parts_.host.setEnvironment(id, parts_.look.environment(family));
    fillAgain(id);
    putInPlace();
}

void ShownWidgets::remove(host::WidgetId id) {
    parts_.host.remove(id);
    WidgetWindow* window = shown_.at(id).window.release();
    window->disconnect(this);
    for (QMenu* menu : window->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        menu->close();  // What it offers is about a widget that is not there any more.
    }
    window->hide();
    window->deleteLater();
    shown_.erase(id);
}

void ShownWidgets::run(const layout::Action& action) {
    std::visit(
        kit::Match{
            [](std::monostate) {},
            [this](const layout::LinkAction& link) { parts_.host.openLink(link.url); },
            [this](const layout::ButtonAction& button) { parts_.host.perform(button.intent); },
            [this](const layout::ToggleAction& toggle) { parts_.host.perform(toggle.intent); }},
        action);
}

void ShownWidgets::takeNames() {
    for (const auto& [id, shown] : shown_) {
        shown.window->setName(presentation_.name(shown.place.kind));
    }
}

void ShownWidgets::takeEntry(host::WidgetId id) {
    const auto shown = shown_.find(id);
    if (shown != shown_.end()) {  // Else it is still being added.
        presentation_.fill(*shown->second.window, id);
    }
}

void ShownWidgets::takeDirection() {
    for (const auto& [id, shown] : shown_) {
        fillAgain(id);
    }
}

void ShownWidgets::dress() {
    for (const auto& [id, shown] : shown_) {
        presentation_.dress(*shown.window);
    }
}

void ShownWidgets::takeLook() {
    dress();
    for (const auto& [id, shown] : shown_) {
        parts_.host.setEnvironment(id, parts_.look.environment(shown.place.family));
        fillAgain(id);
    }
}

void ShownWidgets::fillAgain(host::WidgetId id) {
    WidgetWindow& window = *shown_.at(id).window;
    if (window.hasContent()) {  // Else the host is about to say what comes first.
        presentation_.fill(window, id);
    }
}

void ShownWidgets::takeClockStep() {
    for (const auto& [id, shown] : shown_) {
        shown.window->followClock();
    }
}

void ShownWidgets::takePlace(host::WidgetId id, QPoint position) {
    WidgetPlace& place = shown_.at(id).place;
    place = movedTo(position, place, currentScreens());
    putInPlace();
    emit moved();
}

void ShownWidgets::takeScreens() {
    for (const auto& [id, shown] : shown_) {
        shown.window->followScreens();
    }
    putInPlace();
}

void ShownWidgets::putInPlace() {
    if (QGuiApplication::primaryScreen() == nullptr) {
        return;  // Between the last screen's going and the next one's coming.
    }
    const std::vector<ScreenArea> screens = currentScreens();
    for (const auto& [id, shown] : shown_) {
        const QPoint place = shownGeometry(shown.place, screens).topLeft();
        if (shown.window->pos() != place) {
            shown.window->move(place);
        }
    }
}

void ShownWidgets::setLock(ArrangementLock lock) {
    lock_ = lock;
    for (const auto& [id, shown] : shown_) {
        shown.window->setDragRule(dragRuleUnlessLocked(id));
    }
}

DragRule ShownWidgets::dragRule(std::optional<host::WidgetId> dragged) const {
    return [this, dragged](const QRect& wanted, QPoint pointer) {
        std::vector<WidgetPlace> others;
        for (const auto& [id, shown] : shown_) {
            if (id != dragged) {
                others.push_back(shown.place);
            }
        }
        return restingPlace(wanted, pointer, others, currentScreens());
    };
}

DragRule ShownWidgets::dragRuleUnlessLocked(host::WidgetId id) const {
    return lock_ == ArrangementLock::open ? dragRule(id) : DragRule();
}

std::vector<DesktopItem> ShownWidgets::items() const {
    std::vector<DesktopItem> items;
    std::ranges::transform(shown_, std::back_inserter(items), [](const auto& entry) {
        return DesktopItem{entry.second.place, entry.first};
    });
    return items;
}

std::vector<WidgetPlace> ShownWidgets::places() const {
    std::vector<WidgetPlace> places;
    std::ranges::transform(shown_, std::back_inserter(places),
                           [](const auto& entry) { return entry.second.place; });
    return places;
}

}  // namespace kelmar::desktop
