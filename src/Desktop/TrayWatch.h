#pragma once

#include <QObject>

#include "Desktop/SelectionOwner.h"

namespace kelmar::desktop {

/// Waits for a tray to put an icon into, of either kind: one that is spoken with over the session
/// bus (freedesktop.org's StatusNotifierItem), or one that takes windows in (its System Tray
/// Protocol). Qt looks for the former only once, so it must not be asked before.
class TrayWatch final : public QObject {
    Q_OBJECT

public:
    TrayWatch();

    /// Looks for one from now on.
    void start();

signals:
    /// There is a tray; told once.
    void found();
    /// There is none yet; told at most once, before `found`.
    void missing();

private:
    void askOnBus();
    void takeAnswer(bool isOnBus);
    Q_SLOT void tellFound();

    SelectionOwner windowTray_;
    bool isFound_ = false;
    bool isMissingTold_ = false;
};

}  // namespace kelmar::desktop
