#include "Desktop/TrayIcon.h"

#include <QCursor>
#include <QSystemTrayIcon>

#include "Desktop/MenuLook.h"
#include "Desktop/MenuText.h"
#include "Desktop/SymbolIcon.h"

namespace kelmar::desktop {

namespace {

/// A menu in the tray is drawn by the tray's owner, who does not say in what colours: this is
/// readable on light and on dark ones.
const QColor ink(0x80, 0x80, 0x88);

/// The card of the icon where the desktop names no accent.
const QColor defaultCard(0x4F, 0x46, 0xE5);

}  // namespace

TrayIcon::TrayIcon(const Parts& parts) : parts_(parts) {
    const auto word = [this](std::string_view key) {
        return escapedForMenu(QString::fromStdString(parts_.texts.text(key)));
    };
    menu_.addAction(word("Add widgets…"), this, &TrayIcon::galleryRequested);
    menu_.addAction(word("Use widgets by keyboard"), this, &TrayIcon::keyboardRequested);
    menu_.addAction(word("Quit"), this, &TrayIcon::quitRequested);
    // Trays that draw no menus of their own have it drawn here.
    connect(&menu_, &QMenu::aboutToShow, this, [this] { dressMenu(menu_, parts_.look); });
    controls_ = new ControlEntries(menu_, parts_.host, ink);
    connect(&watch_, &TrayWatch::found, this, &TrayIcon::appear);
    connect(&watch_, &TrayWatch::missing, this, &TrayIcon::tellThereIsNone);
    watch_.start();
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::appear() {
    icon_ = std::make_unique<QSystemTrayIcon>();
    icon_->setContextMenu(&menu_);
    connect(icon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    menu_.popup(QCursor::pos());
                }
            });
    connect(controls_, &ControlEntries::changed, this, &TrayIcon::describe);
    connect(&parts_.look, &Look::changed, this, &TrayIcon::draw);
    draw();
    describe();
    icon_->show();
}

void TrayIcon::draw() {
    const QColor accent = parts_.look.appearance().accent;
    icon_->setIcon(cardIcon(symbols_, "timer", accent.isValid() ? accent : defaultCard));
}

void TrayIcon::describe() {
    icon_->setToolTip(controls_->summary());
}

void TrayIcon::tellThereIsNone() {
    parts_.log.write(host::LogLevel::notice,
                     "There is no system tray: until one comes, everything is in the widgets' own "
                     "menus only.");
}

}  // namespace kelmar::desktop
