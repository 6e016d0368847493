#pragma once

#include <QObject>
#include <memory>

#include "Desktop/Look.h"
#include "Desktop/TrayMenu.h"
#include "Desktop/TrayWatch.h"
#include "Host/Log.h"
#include "Host/WidgetHost.h"
#include "System/Localization.h"

class QSystemTrayIcon;

namespace kelmar::desktop {

/// The program's icon in the tray, with its menu. Neither is made before there is a tray: many
/// desktops have none.
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
    TrayWatch watch_;
    paint::SymbolSet symbols_;
    std::unique_ptr<TrayMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace kelmar::desktop
