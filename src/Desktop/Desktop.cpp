#include "Desktop/Desktop.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <algorithm>
#include <iterator>

#include "Desktop/ControlEntries.h"
#include "Desktop/FirstArrangement.h"
#include "Desktop/LastUpdate.h"
#include "Desktop/Screens.h"
#include "Desktop/WidgetMenu.h"
#include "Desktop/WindowColors.h"
#include "Kit/Metrics.h"

namespace kelmar::desktop {

namespace {

const kit::WidgetDescriptor* findWidget(const kit::Bundle& bundle, const std::string& kind) {
    const auto widget = std::find_if(bundle.widgets.begin(), bundle.widgets.end(),
                                     [&](const auto& offered) { return offered.kind == kind; });
    return widget != bundle.widgets.end() ? &*widget : nullptr;
}

/// What a widget shows before the extension has ever answered: its empty card.
const kit::DrawnEntry emptyCard{
    .content = kit::Spacer{}, .background = kit::tertiaryFill, .widgetUrl = std::nullopt};

}  // namespace

Desktop::Desktop(const DesktopParts& parts, const Options& options)
    : parts_(parts), removals_({parts.look, parts.compositor, parts.texts}) {
    const std::optional<Arrangement> kept = parts_.arrangementFile.load();
    isFirstStart_ = !kept && options.additions.empty();
    const Arrangement arrangement = kept.value_or(Arrangement{});
    lock_ = arrangement.lock;
    unknown_ = arrangement.unknown;
    parts_.look.setRenderingMode(options.renderingMode.value_or(arrangement.renderingMode));
    followSurroundings();
    addAll(arrangement.widgets);
    for (const Addition& addition : options.additions) {
        addFresh(addition.kind, addition.family, currentScreens().front().visible.center());
    }
    if (parts_.host.bundle()) {
        takeBundle();
    }
    // A desktop without any widget would leave nothing to take hold of.
    if (shown_.empty() && !isFirstStart_) {
        showGallery();
    }
}

Desktop::~Desktop() {
    delete gallery_;
}

void Desktop::save() const {
    if (isFirstStart_) {
        return;  // Nothing is there yet, and a file would keep it that way.
    }
    Arrangement arrangement{.renderingMode = parts_.look.renderingMode(),
                            .lock = lock_,
                            .widgets = places(),
                            .unknown = unknown_};
    arrangement.widgets.insert(arrangement.widgets.end(), notOffered_.begin(), notOffered_.end());
    parts_.arrangementFile.save(arrangement);
}

void Desktop::showGallery() {
    const std::vector<ScreenArea> screens = currentScreens();
    const QRect visible = screenAt(QCursor::pos(), screens).visible;
    if (!gallery_) {
        gallery_ = new GalleryWindow({.host = parts_.host,
                                      .look = parts_.look,
                                      .compositor = parts_.compositor,
                                      .clock = parts_.clock,
                                      .texts = parts_.texts,
                                      .direction = parts_.direction,
                                      .dragRule = dragRule(std::nullopt)});
        connect(gallery_, &GalleryWindow::chosen, this,
                [this](const std::string& kind, kit::Family family) {
                    addFresh(kind, family, gallery_->frameGeometry().center());
                });
        connect(gallery_, &GalleryWindow::dropped, this, &Desktop::addDropped);
        connect(gallery_, &GalleryWindow::closed, this, [this] {
            gallery_ = nullptr;  // It goes by itself.
            tellIfEmpty();
        });
    }
    gallery_->present(visible);
}

void Desktop::followSurroundings() {
    connect(&parts_.host, &host::WidgetHost::bundleChanged, this, &Desktop::takeBundle);
    connect(&parts_.host, &host::WidgetHost::entryChanged, this, &Desktop::showContent);
    connect(&parts_.host, &host::WidgetHost::clockStepped, this, &Desktop::takeClockStep);
    connect(&parts_.look, &Look::changed, this, &Desktop::takeLook);
    connect(&parts_.compositor, &Compositor::changed, this, &Desktop::takeLook);
    connect(&screenWatch_, &ScreenWatch::changed, this, &Desktop::putWindowsInPlace);
    connect(&removals_, &Removals::undone, this, &Desktop::bringBack);
    connect(&removals_, &Removals::offerExpired, this, &Desktop::tellIfEmpty);
}

void Desktop::takeBundle() {
    if (isFirstStart_) {
        isFirstStart_ = false;
        addAll(firstWidgets(*parts_.host.bundle(), currentScreens()));
        save();
    }
    putUnknownAside();
    bringKnownBack();
    for (const auto& [id, shown] : shown_) {
        shown.window->setName(nameOf(shown.place.kind));
    }
}

void Desktop::putUnknownAside() {
    std::vector<host::WidgetId> unknown;
    for (const auto& [id, shown] : shown_) {
        if (!isOffered(shown.place.kind)) {
            unknown.push_back(id);
        }
    }
    std::for_each(unknown.begin(), unknown.end(), [this](host::WidgetId id) { putAside(id); });
}

void Desktop::bringKnownBack() {
    const auto known =
        std::partition(notOffered_.begin(), notOffered_.end(),
                       [this](const WidgetPlace& place) { return !isOffered(place.kind); });
    const std::vector<WidgetPlace> back(known, notOffered_.end());
    notOffered_.erase(known, notOffered_.end());
    addAll(back);
}

void Desktop::putAside(host::WidgetId id) {
    const WidgetPlace& place = shown_.at(id).place;
    parts_.log.write(host::LogLevel::warning, "The extension offers no widget \"" + place.kind +
                                                  "\"; its place is kept until it does.");
    notOffered_.push_back(place);
    parts_.host.remove(id);
    shown_.erase(id);
}

void Desktop::addAll(const std::vector<WidgetPlace>& places) {
    std::for_each(places.begin(), places.end(), [this](const WidgetPlace& place) { add(place); });
}

void Desktop::add(const WidgetPlace& place) {
    const host::WidgetId id = parts_.host.add(place.kind, environment(place.family));
    Shown& shown = shown_[id];
    shown.place = place;
    shown.window = std::make_unique<WidgetWindow>(place.family, parts_.clock);
    WidgetWindow& window = *shown.window;
    connectWindow(id, window);
    window.setName(nameOf(place.kind));
    window.setDragRule(dragRuleUnlessLocked(id));
    dress(window);
    showContent(id);
    window.move(shownGeometry(place, currentScreens()).topLeft());
    window.show();
}

void Desktop::addFresh(const std::string& kind, kit::Family family, QPoint near) {
    const std::vector<ScreenArea> screens = currentScreens();
    add(freshPlace(kind, family, places(), screens, screenAt(near, screens)));
    save();
}

void Desktop::addDropped(const std::string& kind, kit::Family family, QPoint position) {
    add(movedTo(position, {.kind = kind, .family = family, .screen = {}, .position = {}},
                currentScreens()));
    save();
}

void Desktop::remove(host::WidgetId id) {
    parts_.host.remove(id);
    // The window's own menu asked for this and is still at work.
    Shown& shown = shown_.at(id);
    WidgetWindow* window = shown.window.release();
    window->disconnect(this);
    window->hide();
    window->deleteLater();
    removals_.add(shown.place, nameOf(shown.place.kind).toStdString(), currentScreens());
    shown_.erase(id);
    save();
}

void Desktop::bringBack(const WidgetPlace& place) {
    add(place);
    save();
}

void Desktop::tellIfEmpty() {
    if (shown_.empty() && notOffered_.empty() && !removals_.areOffered() && !gallery_) {
        emit emptied();
    }
}

void Desktop::resize(host::WidgetId id, kit::Family family) {
    Shown& shown = shown_.at(id);
    shown.place.family = family;
    shown.window->setFamily(family);
    parts_.host.setEnvironment(id, environment(family));
    showContent(id);
    putWindowsInPlace();
    save();
}

void Desktop::connectWindow(host::WidgetId id, WidgetWindow& window) {
    keyboardRound_.add(window);
    connect(&window, &WidgetWindow::actionRequested, this, &Desktop::run);
    connect(&window, &WidgetWindow::menuRequested, this,
            [this, id](QPoint position) { popUpMenu(id, position); });
    window.setToolTipSource([this, id] {
        const auto since = parts_.host.outdatedSince(id);
        return since ? lastUpdateText(parts_.clock.now() - *since, parts_.texts) : QString();
    });
    connect(&window, &WidgetWindow::movedByHand, this, [this, id](QPoint position) {
        Shown& shown = shown_.at(id);
        shown.place = movedTo(position, shown.place, currentScreens());
        putWindowsInPlace();
        save();
    });
}

void Desktop::showContent(host::WidgetId id) {
    const auto shown = shown_.find(id);
    if (shown == shown_.end()) {
        return;  // Still being added.
    }
    const kit::Entry* entry = parts_.host.shownEntry(id);
    shown->second.window->setContent(
        entry != nullptr ? entry->view : emptyCard,
        parts_.host.showsPlaceholder(id) ? paint::Redaction::redacted : paint::Redaction::shown,
        parts_.direction, parts_.look.resources());
}

void Desktop::dress(WidgetWindow& window) const {
    window.setCorners(parts_.compositor.isRunning() ? Corners::transparent : Corners::cutOut);
    window.setAppearance(parts_.look.appearance());
    window.setMotion(parts_.look.motion());
}

void Desktop::takeLook() {
    for (const auto& [id, shown] : shown_) {
        dress(*shown.window);
        parts_.host.setEnvironment(id, environment(shown.place.family));
        showContent(id);
    }
}

void Desktop::takeClockStep() {
    for (const auto& [id, shown] : shown_) {
        shown.window->followClock();
    }
}

void Desktop::putWindowsInPlace() {
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

void Desktop::popUpMenu(host::WidgetId id, QPoint position) {
    const Shown& shown = shown_.at(id);
    auto* menu = new QMenu(shown.window.get());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setPalette(menuColors(parts_.look.appearance()));
    const auto undoRemoval = [this] { removals_.undoLatest(); };
    fillWidgetMenu(*menu,
                   {.bundle = parts_.host.bundle().value_or(kit::Bundle{}),
                    .kind = shown.place.kind,
                    .family = shown.place.family,
                    .lock = lock_,
                    .renderingMode = parts_.look.renderingMode()},
                   {.resize = [this, id](kit::Family family) { resize(id, family); },
                    .remove = [this, id] { remove(id); },
                    .undoRemoval = removals_.areEmpty() ? std::function<void()>() : undoRemoval,
                    .showGallery = [this] { showGallery(); },
                    .setLock = [this](ArrangementLock lock) { setLock(lock); },
                    .setRenderingMode =
                        [this](kit::RenderingMode mode) {
                            parts_.look.setRenderingMode(mode);
                            save();
                        },
                    .quit = [this] { emit quitRequested(); }},
                   parts_.texts);
    new ControlEntries(*menu, parts_.host, menu->palette().color(QPalette::WindowText));
    menu->popup(position);
}

void Desktop::run(const layout::Action& action) {
    std::visit(
        kit::Match{
            [](std::monostate) {},
            [this](const layout::LinkAction& link) { parts_.host.openLink(link.url); },
            [this](const layout::ButtonAction& button) { parts_.host.perform(button.intent); },
            [this](const layout::ToggleAction& toggle) { parts_.host.perform(toggle.intent); }},
        action);
}

void Desktop::setLock(ArrangementLock lock) {
    lock_ = lock;
    for (const auto& [id, shown] : shown_) {
        shown.window->setDragRule(dragRuleUnlessLocked(id));
    }
    save();
}

void Desktop::setDirection(layout::Direction direction) {
    parts_.direction = direction;
    for (const auto& [id, shown] : shown_) {
        showContent(id);
    }
}

std::vector<DesktopItem> Desktop::items() const {
    std::vector<DesktopItem> items;
    std::transform(shown_.begin(), shown_.end(), std::back_inserter(items), [](const auto& entry) {
        return DesktopItem{entry.second.place, entry.first};
    });
    std::transform(notOffered_.begin(), notOffered_.end(), std::back_inserter(items),
                   [](const WidgetPlace& place) {
                       return DesktopItem{place, std::nullopt};
                   });
    return items;
}

std::vector<WidgetPlace> Desktop::places() const {
    std::vector<WidgetPlace> places;
    std::transform(shown_.begin(), shown_.end(), std::back_inserter(places),
                   [](const auto& entry) { return entry.second.place; });
    return places;
}

DragRule Desktop::dragRule(std::optional<host::WidgetId> dragged) const {
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

DragRule Desktop::dragRuleUnlessLocked(host::WidgetId id) const {
    return lock_ == ArrangementLock::open ? dragRule(id) : DragRule();
}

kit::Environment Desktop::environment(kit::Family family) const {
    // Larger texts leave room for fewer of them, and the extension decides which.
    const double textScale = parts_.look.resources().textScale();
    const kit::Size room = kit::contentSize(family);
    return {.family = family,
            .contentSize = {room.width / textScale, room.height / textScale},
            .renderingMode = parts_.look.renderingMode()};
}

bool Desktop::isOffered(const std::string& kind) const {
    const auto& bundle = parts_.host.bundle();
    return bundle && findWidget(*bundle, kind) != nullptr;
}

QString Desktop::nameOf(const std::string& kind) const {
    const auto& bundle = parts_.host.bundle();
    const kit::WidgetDescriptor* widget = bundle ? findWidget(*bundle, kind) : nullptr;
    return QString::fromStdString(widget != nullptr ? widget->displayName : kind);
}

}  // namespace kelmar::desktop
