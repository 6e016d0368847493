#pragma once

#include <QMenu>
#include <QString>

#include "Desktop/ControlEntries.h"
#include "Desktop/Look.h"
#include "Host/WidgetHost.h"
#include "System/Localization.h"

namespace kelmar::desktop {

/// The menu in the tray: the extension's controls and what concerns all widgets.
class TrayMenu final : public QMenu {
    Q_OBJECT

public:
    /// All of them outlive the menu.
    struct Parts {
        host::WidgetHost& host;
        const Look& look;
        const system::Localization& texts;
    };

    explicit TrayMenu(const Parts& parts);

    /// What the controls say, a line each.
    [[nodiscard]] QString summary() const { return controls_->summary(); }

signals:
    void galleryRequested();
    void keyboardRequested();
    void quitRequested();
    void summaryChanged();

private:
    ControlEntries* controls_ = nullptr;
};

}  // namespace kelmar::desktop
