#include "Desktop/Desktop.h"

#include <QMenu>
#include <algorithm>
#include <iterator>

#include "Desktop/ControlEntries.h"
#include "Desktop/FirstArrangement.h"
#include "Desktop/MenuLook.h"
#include "Desktop/Screens.h"

namespace kelmar::desktop {

Desktop::Desktop(const DesktopParts& parts, const Options& options)
    : parts_(parts),
      presentation_(parts),
      widgets_(parts, presentation_),
      removals_({parts.look, parts.compositor, parts.stacking, parts.texts}),
      gallery_({.host = parts.host,
                .look = parts.look,
                .compositor = parts.compositor,
                .clock = parts.clock,
                .texts = parts.texts,
                .direction = parts.direction,
                .dragRule = widgets_.dragRule()}) {
    const std::optional<Arrangement> kept = parts_.arrangementFile.load();
    isFirstStart_ = !kept && options.additions.empty();
    const Arrangement arrangement = kept.value_or(Arrangement{});
    unknown_ = arrangement.unknown;
    parts_.look.setRenderingMode(options.renderingMode.value_or(arrangement.renderingMode));
    connectParts();
    widgets_.setLock(arrangement.lock);
    widgets_.add(arrangement.widgets);
    for (const Addition& addition : options.additions) {
        addFresh(addition.kind, addition.family, currentScreens().front().visible.center());
    }
    if (parts_.host.bundle()) {
        takeBundle();
    }
    // A desktop without any widget would leave nothing to take hold of.
    if (widgets_.areNone() && !isFirstStart_) {
        showGallery();
    }
}

void Desktop::connectParts() {
    connect(&parts_.host, &host::WidgetHost::bundleChanged, this, &Desktop::takeBundle);
    connect(&widgets_, &ShownWidgets::moved, this, &Desktop::save);
    connect(&widgets_, &ShownWidgets::menuRequested, this, &Desktop::popUpMenu);
    connect(&removals_, &Removals::undone, this, &Desktop::addAndSave);
    connect(&removals_, &Removals::offerExpired, this, &Desktop::tellIfEmpty);
    connect(&gallery_, &Gallery::chosen, this, &Desktop::addFresh);
    connect(&gallery_, &Gallery::dropped, this, &Desktop::addDropped);
    connect(&gallery_, &Gallery::closed, this, &Desktop::tellIfEmpty);
}

void Desktop::save() const {
    if (isFirstStart_) {
        return;  // Nothing is there yet, and a file would keep it that way.
    }
    Arrangement arrangement{.renderingMode = parts_.look.renderingMode(),
                            .lock = widgets_.lock(),
                            .widgets = widgets_.places(),
                            .unknown = unknown_};
    arrangement.widgets.insert(arrangement.widgets.end(), notOffered_.begin(), notOffered_.end());
    parts_.arrangementFile.save(arrangement);
}

void Desktop::setDirection(layout::Direction direction) {
    presentation_.setDirection(direction);
    widgets_.takeDirection();
    gallery_.setDirection(direction);
}

std::vector<DesktopItem> Desktop::items() const {
    std::vector<DesktopItem> items = widgets_.items();
    std::ranges::transform(notOffered_, std::back_inserter(items), [](const WidgetPlace& place) {
        return DesktopItem{place, std::nullopt};
    });
    return items;
}

void Desktop::takeBundle() {
    if (isFirstStart_ && !parts_.host.bundle()->widgets.empty()) {
        isFirstStart_ = false;
        widgets_.add(firstWidgets(*parts_.host.bundle(), currentScreens()));
        save();
    }
    putUnknownAside();
    bringKnownBack();
}

void Desktop::putUnknownAside() {
    for (const DesktopItem& item : widgets_.items()) {
        if (!presentation_.isOffered(item.place.kind)) {
            parts_.log.write(host::LogLevel::warning, "The extension offers no widget \"" +
                                                          item.place.kind +
                                                          "\"; its place is kept until it does.");
            notOffered_.push_back(item.place);
            widgets_.remove(*item.id);
        }
    }
}

void Desktop::bringKnownBack() {
    const auto known = std::partition(
        notOffered_.begin(), notOffered_.end(),
        [this](const WidgetPlace& place) { return !presentation_.isOffered(place.kind); });
    const std::vector<WidgetPlace> back(known, notOffered_.end());
    notOffered_.erase(known, notOffered_.end());
    widgets_.add(back);
}

void Desktop::addAndSave(const WidgetPlace& place) {
    widgets_.add(place);
    save();
}

void Desktop::addFresh(const std::string& kind, kit::Family family, QPoint near) {
    const std::vector<ScreenArea> screens = currentScreens();
    addAndSave(freshPlace(kind, family, widgets_.places(), screens, screenAt(near, screens)));
}

void Desktop::addDropped(const std::string& kind, kit::Family family, QPoint position) {
    addAndSave(movedTo(position, {.kind = kind, .family = family, .screen = {}, .position = {}},
                       currentScreens()));
}

void Desktop::remove(host::WidgetId id) {
    const WidgetPlace place = widgets_.place(id);
    widgets_.remove(id);
    removals_.add(place, presentation_.name(place.kind).toStdString(), currentScreens());
    save();
}

void Desktop::tellIfEmpty() {
    if (widgets_.areNone() && notOffered_.empty() && !removals_.areOffered() &&
        !gallery_.isOpen()) {
        emit emptied();
    }
}

void Desktop::popUpMenu(host::WidgetId id, QPoint position) {
    const WidgetPlace& place = widgets_.place(id);
    auto* menu = new QMenu(&widgets_.window(id));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillWidgetMenu(*menu,
                   {.bundle = parts_.host.bundle().value_or(kit::Bundle{}),
                    .kind = place.kind,
                    .family = place.family,
                    .lock = widgets_.lock(),
                    .renderingMode = parts_.look.renderingMode()},
                   menuActions(id), parts_.texts);
    dressMenu(*menu, parts_.look);
    new ControlEntries(*menu, parts_.host, menu->palette().color(QPalette::WindowText));
    menu->popup(position);
}

MenuActions Desktop::menuActions(host::WidgetId id) {
    const auto thenSave = [this](auto change) {
        return [this, change](auto... arguments) {
            change(arguments...);
            save();
        };
    };
    const auto undoRemoval = [this] { removals_.undoLatest(); };
    return {.resize = thenSave([this, id](kit::Family family) { widgets_.resize(id, family); }),
            .remove = [this, id] { remove(id); },
            .undoRemoval = removals_.areEmpty() ? std::function<void()>() : undoRemoval,
            .showGallery = [this] { showGallery(); },
            .setLock = thenSave([this](ArrangementLock lock) { widgets_.setLock(lock); }),
            .setRenderingMode =
                thenSave([this](kit::RenderingMode mode) { parts_.look.setRenderingMode(mode); }),
            .quit = [this] { emit quitRequested(); }};
}

}  // namespace kelmar::desktop
