#pragma once

#include <QObject>
#include <memory>

#include "Desktop/TrayMenu.h"
#include "Desktop/TrayWatch.h"
#include "Host/Log.h"

class QSystemTrayIcon;

namespace kelmar::desktop {

/// The program's icon in the tray, with its menu. Neither is made before there is a tray: many
/// desktops have none.
class TrayIcon final : public QObject {
    Q_OBJECT

public:
    /// What the menu is made of, and the log, outlive the icon.
    TrayIcon(const TrayMenu::Parts& parts, host::Log& log);
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

    TrayMenu::Parts parts_;
    host::Log& log_;
    TrayWatch watch_;
    paint::SymbolSet symbols_;
    std::unique_ptr<TrayMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace kelmar::desktop
