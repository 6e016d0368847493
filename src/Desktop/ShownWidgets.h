#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/DesktopItem.h"
#include "Desktop/DesktopParts.h"
#include "Desktop/Dragging.h"
#include "Desktop/KeyboardRound.h"
#include "Desktop/ScreenWatch.h"
#include "Desktop/WidgetPresentation.h"
#include "Desktop/WidgetWindow.h"
#include "Host/WidgetId.h"

namespace kelmar::desktop {

/// The widgets that are to be seen on the desktop, with a window each: kept in their places and in
/// the desktop's look, drawn when their content changes, and run when they are pressed.
class ShownWidgets final : public QObject {
    Q_OBJECT

public:
    /// The presentation must outlive them.
    ShownWidgets(const DesktopParts& parts, const WidgetPresentation& presentation);

    void add(const std::vector<WidgetPlace>& places);
    void add(const WidgetPlace& place);
    void resize(host::WidgetId id, kit::Family family);
    /// Its window goes as soon as its menu, which may have asked for this, is no longer at work.
    void remove(host::WidgetId id);

    /// Whether the user may move them.
    void setLock(ArrangementLock lock);
    [[nodiscard]] ArrangementLock lock() const { return lock_; }
    /// Their content is written from another side.
    void takeDirection();
    /// Gives the keyboard to them, until Escape gives it back.
    void takeKeyboard() { keyboardRound_.begin(); }

    [[nodiscard]] bool areNone() const { return shown_.empty(); }
    [[nodiscard]] const WidgetPlace& place(host::WidgetId id) const { return shown_.at(id).place; }
    [[nodiscard]] WidgetWindow& window(host::WidgetId id) { return *shown_.at(id).window; }
    /// Back to front.
    [[nodiscard]] std::vector<DesktopItem> items() const;
    [[nodiscard]] std::vector<WidgetPlace> places() const;
    /// For what is put among them. Valid as long as they are.
    [[nodiscard]] DragRule dragRule() const { return dragRule(std::nullopt); }

signals:
    /// The user has put one somewhere else.
    void moved();
    void menuRequested(kelmar::host::WidgetId id, QPoint screenPosition);

private:
    struct Shown {
        WidgetPlace place;
        std::unique_ptr<WidgetWindow> window;
    };

    void connectWindow(host::WidgetId id, WidgetWindow& window);
    void run(const layout::Action& action);
    void takeNames();
    void takeEntry(host::WidgetId id);
    void dress();
    void takeLook();
    /// What a window shows already, in another form.
    void fillAgain(host::WidgetId id);
    void takeClockStep();
    void takeScreens();
    void takePlace(host::WidgetId id, QPoint position);
    void putInPlace();
    /// Among all of them but that one.
    [[nodiscard]] DragRule dragRule(std::optional<host::WidgetId> dragged) const;
    [[nodiscard]] DragRule dragRuleUnlessLocked(host::WidgetId id) const;

    DesktopParts parts_;
    const WidgetPresentation& presentation_;
    ScreenWatch screenWatch_;
    KeyboardRound keyboardRound_;
    ArrangementLock lock_ = ArrangementLock::open;
    std::map<host::WidgetId, Shown> shown_;
};

}  // namespace kelmar::desktop
