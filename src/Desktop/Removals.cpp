#include "Desktop/Removals.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelmar::desktop {

Removals::Removals(const Parts& parts) : parts_(parts) {}

Removals::~Removals() = default;

void Removals::add(const WidgetPlace& place, const std::string& name,
                   const std::vector<ScreenArea>& screens) {
    auto bar = std::make_unique<UndoBar>(
        UndoBar::Words{QString::fromStdString(parts_.texts.text("{} removed", name)),
                       QString::fromStdString(parts_.texts.text("Undo"))},
        parts_.look, parts_.compositor.isRunning() ? Corners::transparent : Corners::cutOut,
        parts_.stacking.current());
    connect(bar.get(), &UndoBar::undoRequested, this,
            [this, made = bar.get()] { undo(find(made)); });
    connect(bar.get(), &UndoBar::expired, this, [this, made = bar.get()] { expire(find(made)); });
    bar->present(shownGeometry(place, screens), screenOf(place, screens).visible);
    removed_.push_back({place, std::move(bar)});
}

bool Removals::areOffered() const {
    return std::any_of(removed_.begin(), removed_.end(),
                       [](const Removal& removal) { return removal.bar != nullptr; });
}

void Removals::undoLatest() {
    undo(std::prev(removed_.end()));
}

void Removals::undo(Position removal) {
    dismiss(*removal);
    const WidgetPlace place = std::move(removal->place);
    removed_.erase(removal);
    emit undone(place);
}

void Removals::expire(Position removal) {
    dismiss(*removal);
    emit offerExpired();
}

void Removals::dismiss(Removal& removal) {
    if (removal.bar) {
        // It may be what asked for this.
        removal.bar->disconnect(this);
        removal.bar->hide();
        removal.bar.release()->deleteLater();
    }
}

Removals::Position Removals::find(const UndoBar* bar) {
    return std::find_if(removed_.begin(), removed_.end(),
                        [bar](const Removal& removal) { return removal.bar.get() == bar; });
}

}  // namespace kelmar::desktop
