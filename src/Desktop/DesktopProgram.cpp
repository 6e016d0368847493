#include "Desktop/DesktopProgram.h"

#include <QApplication>
#include <QPixmapCache>
#include <QTimer>
#include <chrono>
#include <optional>

#include "Desktop/BusService.h"
#include "Desktop/Desktop.h"
#include "Desktop/Instance.h"
#include "Desktop/Termination.h"
#include "Desktop/TrayIcon.h"
#include "Desktop/WidgetAccessibility.h"
#include "Desktop/X11Hints.h"

namespace kelmar::desktop {

namespace {

/// In kilobytes. Qt's style keeps every piece of a menu or scroll bar that it has drawn, by colours
/// that are new to it with each window: its own limit is 10 MB.
constexpr int styleCacheLimit = 256;

/// For the menus: Qt would only know from translations of its own, which it has not got here.
void setMenuDirection(layout::Direction direction) {
    QApplication::setLayoutDirection(direction == layout::Direction::rightToLeft ? Qt::RightToLeft
                                                                                 : Qt::LeftToRight);
}

/// What the desktop lacks and a person would miss; the parts that use the bus speak for themselves.
void tellWhatIsMissing(const Compositor& compositor, host::Log& log) {
    if (!hasWindowManager()) {
        log.write(host::LogLevel::notice,
                  "There is no window manager: nothing keeps the widgets below other windows.");
    }
    if (!compositor.isRunning()) {
        log.write(host::LogLevel::notice,
                  "There is no compositor: the widgets' corners are cut out instead of blended.");
    }
}

/// Once whoever has something to write has waited for the fonts: nobody waits for this.
void tellIfFontsAreMissing(const paint::FontSearch& fontSearch, host::Log& log) {
    constexpr std::chrono::seconds untilSomethingIsWritten{1};
    QTimer::singleShot(untilSomethingIsWritten, qApp, [&fontSearch, &log] {
        if (fontSearch.fonts().get().family(kit::FontDesign::standard).isEmpty()) {
            log.write(host::LogLevel::error,
                      "No font is installed that has letters: the widgets have no texts. Install "
                      "the packages fonts-inter and fonts-quicksand, or any others, and start the "
                      "widgets anew.");
        }
    });
}

}  // namespace

int showDesktop(Ground& ground, const host::LocaleVariables& sessionLocale, const Options& options,
                const QDBusConnection& bus) {
    host::Log& log = ground.log;
    QPixmapCache::setCacheLimit(styleCacheLimit);
    const SettingsFollower follower(ground.host, sessionLocale, log);
    const system::GettextLocalization texts("", system::catalogueFolder());
    setMenuDirection(ground.direction);
    ArrangementFile arrangementFile(ArrangementFile::standardPath(), log);
    const PortalSettings settings(log);
    const Compositor compositor;
    const StackingRule stacking;
    tellWhatIsMissing(compositor, log);
    tellIfFontsAreMissing(ground.fontSearch, log);
    installWidgetAccessibility();
    Look look(settings, options.scheme, ground.fontSearch.fonts());
    Desktop desktop({.host = ground.host,
                     .arrangementFile = arrangementFile,
                     .look = look,
                     .compositor = compositor,
                     .stacking = stacking,
                     .clock = ground.clock,
                     .texts = texts,
                     .log = log,
                     .direction = ground.direction},
                    options);
    QObject::connect(&follower, &SettingsFollower::localeChanged, &desktop,
                     [&desktop](layout::Direction direction) {
                         setMenuDirection(direction);
                         desktop.setDirection(direction);
                     });
    const TrayIcon tray({.host = ground.host, .look = look, .texts = texts}, log);
    std::optional<BusService> busService;
    if (bus.isConnected()) {
        busService.emplace(
            BusService::Parts{.host = ground.host, .items = [&desktop] { return desktop.items(); }},
            bus);
        QObject::connect(&*busService, &BusService::galleryRequested, &desktop,
                         &Desktop::showGallery);
    }
    // Not quit(): it would ask every window whether it may be closed, and they all say no.
    const auto end = [] { QApplication::exit(0); };
    QObject::connect(&desktop, &Desktop::quitRequested, qApp, end, Qt::QueuedConnection);
    QObject::connect(&tray, &TrayIcon::quitRequested, qApp, end, Qt::QueuedConnection);
    QObject::connect(&tray, &TrayIcon::galleryRequested, &desktop, &Desktop::showGallery);
    // Without the tray there would be nothing left to take hold of.
    const auto endUnlessInTray = [&tray, end] {
        if (!tray.isShown()) {
            end();
        }
    };
    QObject::connect(&desktop, &Desktop::emptied, qApp, endUnlessInTray, Qt::QueuedConnection);
    // Once the menu is gone, which has the keyboard itself.
    QObject::connect(&tray, &TrayIcon::keyboardRequested, &desktop, &Desktop::takeKeyboard,
                     Qt::QueuedConnection);
    const Termination termination(end);
    const int status = QApplication::exec();
    desktop.save();
    releaseInstance(bus);
    return status;
}

}  // namespace kelmar::desktop
