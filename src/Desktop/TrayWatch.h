#pragma once

#include <QObject>

#include "Desktop/SelectionOwner.h"

namespace kelmar::desktop {

/// Waits for a tray to put an icon into, of either kind: one that is spoken with over the session
/// bus (org.kde.StatusNotifierWatcher), or one that takes windows in (freedesktop.org's System Tray
/// Protocol Specification). Qt looks for the former only once, so it must not be asked before.
class TrayWatch final : public QObject {
    Q_OBJECT

public:
    /// Looks as soon as the event loop runs.
    TrayWatch();

signals:
    /// There is a tray; told once.
    void found();
    /// There is none yet; told at most once, before `found`.
    void missing();

private:
    void lookOnBus();
    void takeAnswer(bool isOnBus);
    void tellFound();

    SelectionOwner windowTray_;
    bool isFound_ = false;
};

}  // namespace kelmar::desktop
