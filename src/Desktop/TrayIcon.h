#pragma once

#include <QMenu>
#include <QObject>
#include <memory>

#include "Desktop/ControlEntries.h"
#include "Desktop/Look.h"
#include "Desktop/TrayWatch.h"
#include "Host/Log.h"
#include "Host/WidgetHost.h"
#include "System/Localization.h"

class QSystemTrayIcon;

namespace kelmar::desktop {

/// The program's icon in the tray, as soon as there is a tray, with a menu of the extension's
/// controls and of what concerns all widgets.
class TrayIcon final : public QObject {
    Q_OBJECT

public:
    /// All of them outlive the icon.
    struct Parts {
        host::WidgetHost& host;
        const Look& look;
        const system::Localization& texts;
        host::Log& log;
    };

    explicit TrayIcon(const Parts& parts);
    ~TrayIcon() override;

    [[nodiscard]] const QMenu& menu() const { return menu_; }
    /// Whether there is a tray that it is in.
    [[nodiscard]] bool isShown() const { return icon_ != nullptr; }

signals:
    void galleryRequested();
    void keyboardRequested();
    void quitRequested();

private:
    void appear();
    void draw();
    void describe();
    void tellThereIsNone();

    Parts parts_;
    QMenu menu_;
    TrayWatch watch_;
    paint::SymbolSet symbols_;
    ControlEntries* controls_ = nullptr;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace kelmar::desktop
