#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/ArrangementFile.h"
#include "Desktop/Compositor.h"
#include "Desktop/DesktopItem.h"
#include "Desktop/GalleryWindow.h"
#include "Desktop/KeyboardRound.h"
#include "Desktop/Look.h"
#include "Desktop/Options.h"
#include "Desktop/Removals.h"
#include "Desktop/ScreenWatch.h"
#include "Desktop/WidgetWindow.h"
#include "Host/Log.h"
#include "Host/WidgetHost.h"
#include "Layout/Layout.h"
#include "System/Clock.h"
#include "System/Localization.h"

namespace kelmar::desktop {

/// What the desktop works with; all of it outlives the desktop.
struct DesktopParts {
    host::WidgetHost& host;
    ArrangementFile& arrangementFile;
    Look& look;
    const Compositor& compositor;
    const system::Clock& clock;
    const system::Localization& texts;
    host::Log& log;
    layout::Direction direction = layout::Direction::leftToRight;
};

/// The widgets on the desktop: a window for each, what the user does to them, and where they are
/// from one session to the next.
class Desktop final : public QObject {
    Q_OBJECT

public:
    /// Shows the arrangement of the last session and what the options add to it. On the first start
    /// one widget of every kind appears as soon as the extension has said what it offers; where the
    /// last session left none, the gallery does.
    Desktop(const DesktopParts& parts, const Options& options);
    ~Desktop() override;

    /// Gives the keyboard to the widgets, until Escape gives it back.
    void takeKeyboard() { keyboardRound_.begin(); }

    /// Keeps the places for the next session.
    void save() const;

    /// Opens the gallery on the screen under the pointer, or brings it to the front.
    void showGallery();
    /// The user's language is another, and may be written from the other side.
    void setDirection(layout::Direction direction);

    /// Everything that belongs on the desktop, back to front.
    [[nodiscard]] std::vector<DesktopItem> items() const;

signals:
    void quitRequested();
    /// Nothing is left to be seen: the last widget has been removed, the bar that offered to bring
    /// it back has gone, and the gallery is closed.
    void emptied();

private:
    struct Shown {
        WidgetPlace place;
        std::unique_ptr<WidgetWindow> window;
    };

    void followSurroundings();
    void takeBundle();
    void putUnknownAside();
    void putAside(host::WidgetId id);
    void bringKnownBack();

    void addAll(const std::vector<WidgetPlace>& places);
    void add(const WidgetPlace& place);
    void addFresh(const std::string& kind, kit::Family family, QPoint near);
    void addDropped(const std::string& kind, kit::Family family, QPoint position);
    void remove(host::WidgetId id);
    void bringBack(const WidgetPlace& place);
    void tellIfEmpty();
    void resize(host::WidgetId id, kit::Family family);

    void connectWindow(host::WidgetId id, WidgetWindow& window);
    void showContent(host::WidgetId id);
    void dress(WidgetWindow& window) const;
    void takeLook();
    void takeClockStep();
    void putWindowsInPlace();
    void popUpMenu(host::WidgetId id, QPoint position);
    void run(const layout::Action& action);
    void setLock(ArrangementLock lock);

    [[nodiscard]] std::vector<WidgetPlace> places() const;
    /// Among all widgets but that one.
    [[nodiscard]] DragRule dragRule(std::optional<host::WidgetId> dragged) const;
    [[nodiscard]] DragRule dragRuleUnlessLocked(host::WidgetId id) const;
    [[nodiscard]] kit::Environment environment(kit::Family family) const;
    [[nodiscard]] bool isOffered(const std::string& kind) const;
    [[nodiscard]] QString nameOf(const std::string& kind) const;

    DesktopParts parts_;
    ScreenWatch screenWatch_;
    KeyboardRound keyboardRound_;
    bool isFirstStart_ = false;
    ArrangementLock lock_ = ArrangementLock::open;
    QJsonObject unknown_;  ///< Of the arrangement, kept as it is.
    std::map<host::WidgetId, Shown> shown_;
    /// Kept for the day on which the extension offers their kinds again.
    std::vector<WidgetPlace> notOffered_;
    Removals removals_;
    QPointer<GalleryWindow> gallery_;  ///< Null while it is closed.
};

}  // namespace kelmar::desktop
