#include "Desktop/Application.h"

#include <QApplication>
#include <QPixmapCache>
#include <QTimer>
#include <cstdlib>
#include <string_view>

#include "Desktop/ActivationToken.h"
#include "Desktop/BusService.h"
#include "Desktop/Desktop.h"
#include "Desktop/DesktopPicture.h"
#include "Desktop/FirstArrangement.h"
#include "Desktop/InstalledFiles.h"
#include "Desktop/Instance.h"
#include "Desktop/Options.h"
#include "Desktop/SessionBus.h"
#include "Desktop/SettingsFollower.h"
#include "Desktop/Termination.h"
#include "Desktop/TrayIcon.h"
#include "Desktop/WidgetAccessibility.h"
#include "Desktop/X11Hints.h"
#include "Host/GioUrlOpener.h"
#include "Paint/FontSearch.h"
#include "System/HomeFolder.h"

namespace kelmar::desktop {

namespace {

constexpr int failureStatus = 1;
/// In kilobytes. Qt's style keeps every piece of a menu or scroll bar that it has drawn, by colours
/// that are new to it with each window: its own limit is 10 MB.
constexpr int styleCacheLimit = 256;
/// How long a picture waits for the extension, in milliseconds.
constexpr int pictureDeadline = 10'000;

/// What Qt reads before there is an application object.
void prepareQt(const Options& options) {
    // The desktop's platform theme (on GNOME that of GTK) costs more memory and time at the start
    // than all the widgets; what we want of it the settings portal tells us. Only this switch keeps
    // Qt from loading it.
    QApplication::setDesktopSettingsAware(false);
    // Qt looks for a screen reader once, at the start, and a screen reader that comes later would
    // find no widgets.
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    // Memory shared with the X server makes every drawing wait until the server has read the one
    // before: three wakeups more for each tick of a countdown, whose pixels are sent in no time.
    qputenv("QT_XCB_NO_MITSHM", "1");
    // Only X11 lets a window ask to lie on the desktop; in a Wayland session that is XWayland.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", options.pictureFile ? "offscreen" : "xcb");
    }
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName("kelmar-widgets");
    QApplication::setDesktopFileName("com.kelmarplanner.Widgets");
}

/// Everything that both the desktop and its picture stand on.
struct Ground {
    Ground(const host::ExtensionFile& extensionFile, const std::string& systemVersion)
        : host(extensionFile, urlOpener, clock, systemVersion) {}

    system::SystemClock clock;
    host::GioUrlOpener urlOpener{makeActivationToken};
    host::WidgetHost host;
    layout::Direction direction = writingDirection();
};

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

int showDesktop(Ground& ground, const Options& options, const QDBusConnection& bus,
                const paint::FontSearch& fontSearch, host::Log& log) {
    QPixmapCache::setCacheLimit(styleCacheLimit);
    const SettingsFollower follower(ground.host, log);
    const system::GettextLocalization texts("", system::catalogueFolder());
    setMenuDirection(ground.direction);
    ArrangementFile arrangementFile(ArrangementFile::standardPath(), log);
    const PortalSettings settings(log);
    const Compositor compositor;
    tellWhatIsMissing(compositor, log);
    installWidgetAccessibility();
    Look look(settings, options.scheme, fontSearch.fonts());
    Desktop desktop({.host = ground.host,
                     .arrangementFile = arrangementFile,
                     .look = look,
                     .compositor = compositor,
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
    const TrayIcon tray({.host = ground.host, .look = look, .texts = texts, .log = log});
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
    return status;
}

/// The widgets that a picture shows: those of the arrangement and of the options, else the first
/// ones, which only the extension can name.
std::vector<WidgetPlace> placesInPicture(const Options& options,
                                         const std::optional<Arrangement>& arrangement,
                                         const kit::Bundle& bundle) {
    const std::vector<ScreenArea> screens = pictureScreens();
    if (!arrangement && options.additions.empty()) {
        return firstWidgets(bundle, screens);
    }
    std::vector<WidgetPlace> places =
        arrangement ? arrangement->widgets : std::vector<WidgetPlace>();
    for (const Addition& addition : options.additions) {
        places.push_back(
            freshPlace(addition.kind, addition.family, places, screens, screens.front()));
    }
    return places;
}

paint::PaintStyle pictureStyle(const Options& options,
                               const std::optional<Arrangement>& arrangement) {
    const kit::RenderingMode keptMode =
        arrangement ? arrangement->renderingMode : kit::RenderingMode::fullColor;
    return {.appearance = {.scheme = options.scheme == SchemeChoice::dark ? paint::Scheme::dark
                                                                          : paint::Scheme::light,
                           .renderingMode = options.renderingMode.value_or(keptMode),
                           .accent = {}},
            .scale = qApp->devicePixelRatio(),
            .redaction = paint::Redaction::shown};
}

int drawDesktop(Ground& ground, const Options& options, const paint::FontSearch& fontSearch,
                host::Log& log) {
    const std::optional<Arrangement> arrangement =
        ArrangementFile(ArrangementFile::standardPath(), log).load();
    const paint::PaintResources resources(fontSearch.fonts());
    std::unique_ptr<DesktopPicture> picture;
    int status = failureStatus;
    const auto finish = [&](const QImage& image) {
        const QString file = QString::fromStdString(*options.pictureFile);
        if (image.save(file, "PNG")) {
            status = 0;
        } else {
            log.write(host::LogLevel::error,
                      "The picture could not be written to " + *options.pictureFile + ".");
        }
        QApplication::quit();
    };
    const auto begin = [&] {
        picture = std::make_unique<DesktopPicture>(
            DesktopPicture::Parts{ground.host, ground.clock, resources, ground.direction},
            placesInPicture(options, arrangement, *ground.host.bundle()),
            pictureStyle(options, arrangement));
        QObject::connect(picture.get(), &DesktopPicture::finished, qApp, finish);
    };
    QObject::connect(&ground.host, &host::WidgetHost::bundleChanged, qApp, begin);
    QTimer::singleShot(pictureDeadline, qApp, [&] {
        log.write(host::LogLevel::error, "The extension has given nothing to draw in time.");
        QApplication::quit();
    });
    QApplication::exec();
    return status;
}

}  // namespace

int runDesktop(int argc, char** argv) {
    const auto read = readOptions(argc, argv);
    if (const auto* exit = std::get_if<ExitStatus>(&read)) {
        return exit->status;
    }
    const auto& options = std::get<Options>(read);
    host::StreamLog log = host::StreamLog::onStandardError();
    if (options.onlyIfArranged && ArrangementFile(ArrangementFile::standardPath(), log).isEmpty()) {
        // The bus would go on waiting for a program that it has started and that has ended well.
        return qEnvironmentVariableIsSet("DBUS_STARTER_ADDRESS") ? failureStatus : 0;
    }
    prepareQt(options);
    if (qgetenv("QT_QPA_PLATFORM") == "xcb" && !canReachXServer()) {
        log.write(host::LogLevel::error, "There is no X display to put widgets on.");
        return failureStatus;
    }
    paint::FontSearch fontSearch;
    QApplication application(argc, argv);
    const QDBusConnection bus = options.pictureFile ? QDBusConnection(QString()) : sessionBus();
    if (!options.pictureFile && claimInstance(bus, log) == Instance::later) {
        // At login the planner's message may have been quicker: nobody has asked for a gallery.
        if (options.onlyIfArranged) {
            return 0;
        }
        const std::optional<int> status = showGalleryOfFirst(bus, log);
        if (status) {
            return *status;
        }
        if (claimInstance(bus, log) == Instance::later) {
            log.write(host::LogLevel::error,
                      "The widgets are on the desktop already, but their program does not answer.");
            return failureStatus;
        }
    }
    const auto extensionFile = host::readExtensionFile(
        options.keyFile.empty() ? installedKeyFile() : options.keyFile, system::homeFolder());
    if (!extensionFile) {
        log.write(host::LogLevel::error, extensionFile.failure().reason);
        return failureStatus;
    }
    fontSearch.begin(QApplication::font().family());
    Ground ground(*extensionFile, options.systemVersion);
    return options.pictureFile ? drawDesktop(ground, options, fontSearch, log)
                               : showDesktop(ground, options, bus, fontSearch, log);
}

}  // namespace kelmar::desktop
