#include "Desktop/TrayIcon.h"

#include <QCursor>
#include <QSystemTrayIcon>

#include "Desktop/SymbolIcon.h"

namespace kelmar::desktop {

namespace {

/// The card of the icon where the desktop names no accent.
const QColor defaultCard(0x4F, 0x46, 0xE5);

}  // namespace

TrayIcon::TrayIcon(const TrayMenu::Parts& parts, host::Log& log) : parts_(parts), log_(log) {
    connect(&watch_, &TrayWatch::found, this, &TrayIcon::appear);
    connect(&watch_, &TrayWatch::missing, this, &TrayIcon::tellThereIsNone);
    watch_.start();
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::appear() {
    menu_ = std::make_unique<TrayMenu>(parts_);
    connect(menu_.get(), &TrayMenu::galleryRequested, this, &TrayIcon::galleryRequested);
    connect(menu_.get(), &TrayMenu::keyboardRequested, this, &TrayIcon::keyboardRequested);
    connect(menu_.get(), &TrayMenu::quitRequested, this, &TrayIcon::quitRequested);
    connect(menu_.get(), &TrayMenu::summaryChanged, this, &TrayIcon::describe);
    icon_ = std::make_unique<QSystemTrayIcon>();
    icon_->setContextMenu(menu_.get());
    connect(icon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    menu_->popup(QCursor::pos());
                }
            });
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
    icon_->setToolTip(menu_->summary());
}

void TrayIcon::tellThereIsNone() {
    log_.write(host::LogLevel::notice,
               "There is no system tray: until one comes, everything is in the widgets' own "
               "menus only.");
}

}  // namespace kelmar::desktop
