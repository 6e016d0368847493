#include "Desktop/TrayMenu.h"

#include "Desktop/MenuLook.h"
#include "Desktop/MenuText.h"

namespace kelmar::desktop {

namespace {

/// A menu in the tray is drawn by the tray's owner, who does not say in what colours: this is
/// readable on light and on dark ones.
const QColor ink(0x80, 0x80, 0x88);

}  // namespace

TrayMenu::TrayMenu(const Parts& parts) {
    const auto word = [&parts](std::string_view key) {
        return escapedForMenu(QString::fromStdString(parts.texts.text(key)));
    };
    addAction(word("Add widgets…"), this, &TrayMenu::galleryRequested);
    addAction(word("Use widgets by keyboard"), this, &TrayMenu::keyboardRequested);
    addAction(word("Quit"), this, &TrayMenu::quitRequested);
    // Trays that draw no menus of their own have it drawn here.
    connect(this, &QMenu::aboutToShow, this,
            [this, &look = parts.look] { dressMenu(*this, look); });
    controls_ = new ControlEntries(*this, parts.host, ink);
    connect(controls_, &ControlEntries::changed, this, &TrayMenu::summaryChanged);
}

}  // namespace kelmar::desktop
