#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/ArrangementFile.h"
#include "Desktop/Compositor.h"
#include "Desktop/Look.h"
#include "Desktop/Options.h"
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
    /// Shows the arrangement of the last session and what the options add to it. Without either,
    /// one widget of every kind appears as soon as the extension has said what it offers.
    Desktop(const DesktopParts& parts, const Options& options);
    ~Desktop() override;

    /// Keeps the places for the next session.
    void save() const;

signals:
    /// By the user, or because the last widget has been removed.
    void quitRequested();

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
    void addFresh(const std::string& kind, kit::Family family);
    void remove(host::WidgetId id);
    void resize(host::WidgetId id, kit::Family family);

    void connectWindow(host::WidgetId id, WidgetWindow& window);
    void showContent(host::WidgetId id);
    void dress(WidgetWindow& window) const;
    void takeLook();
    void putWindowsInPlace();
    void popUpMenu(host::WidgetId id, QPoint position);
    void run(const layout::Action& action);

    [[nodiscard]] std::vector<WidgetPlace> places() const;
    [[nodiscard]] kit::Environment environment(kit::Family family) const;
    [[nodiscard]] bool isOffered(const std::string& kind) const;
    [[nodiscard]] QString nameOf(const std::string& kind) const;

    DesktopParts parts_;
    ScreenWatch screenWatch_;
    bool isFirstStart_ = false;
    std::map<host::WidgetId, Shown> shown_;
    /// Kept for the day on which the extension offers their kinds again.
    std::vector<WidgetPlace> notOffered_;
};

}  // namespace kelmar::desktop
