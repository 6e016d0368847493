#include "Desktop/Application.h"

#include <QApplication>

#include "Desktop/ArrangementFile.h"
#include "Desktop/DesktopProgram.h"
#include "Desktop/Ground.h"
#include "Desktop/InstalledFiles.h"
#include "Desktop/Instance.h"
#include "Desktop/Options.h"
#include "Desktop/PictureProgram.h"
#include "Desktop/QtMessages.h"
#include "Desktop/SessionBus.h"
#include "Desktop/Termination.h"
#include "Desktop/X11Hints.h"
#include "Host/ExtensionFile.h"
#include "Host/SessionBus.h"
#include "Host/SettingsWatch.h"
#include "System/HomeFolder.h"
#include "System/Localization.h"

namespace kelmar::desktop {

namespace {

constexpr int failureStatus = 1;

/// Has Qt find a variable that is meant for this program alone.
void set(host::ApplicationVariables& former, const char* name, const char* value) {
    former[name] =
        qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name).toStdString()) : std::nullopt;
    qputenv(name, value);
}

/// What Qt reads before there is an application object. Returns the variables as they were before,
/// which is what other applications are to find.
host::ApplicationVariables prepareQt(const Options& options) {
    host::ApplicationVariables former;
    // The desktop's platform theme (on GNOME that of GTK) costs more memory and time at the start
    // than all the widgets; what we want of it the settings portal tells us. Only this switch keeps
    // Qt from loading it.
    QApplication::setDesktopSettingsAware(false);
    // Qt looks for a screen reader once, at the start, and a screen reader that comes later would
    // find no widgets.
    set(former, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    // Memory shared with the X server makes every drawing wait until the server has read the one
    // before: three wakeups more for each tick of a countdown, whose pixels are sent in no time.
    set(former, "QT_XCB_NO_MITSHM", "1");
    // Only X11 lets a window ask to lie on the desktop; in a Wayland session that is XWayland.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        set(former, "QT_QPA_PLATFORM", options.pictureFile ? "offscreen" : "xcb");
    }
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName("kelmar-widgets");
    QApplication::setDesktopFileName("com.kelmarplanner.Widgets");
    return former;
}

/// Before there are other threads: it may change the environment.
void leaveSilentBus(host::Log& log) {
    if (const std::string address = host::leaveSilentSessionBus(); !address.empty()) {
        log.write(host::LogLevel::warning, "The session bus at " + address +
                                               " does not answer: it is left alone until the "
                                               "next start.");
    }
}

}  // namespace

int runDesktop(int argc, char** argv) {
    const auto read = readOptions(argc, argv);
    if (const auto* exit = std::get_if<ExitStatus>(&read)) {
        return exit->status;
    }
    const auto& options = std::get<Options>(read);
    host::StreamLog log = host::StreamLog::onStandardError();
    const QtMessages qtMessages(log);
    if (options.onlyIfArranged && ArrangementFile(ArrangementFile::standardPath(), log).isEmpty()) {
        // The bus would go on waiting for a program that it has started and that has ended well.
        return qEnvironmentVariableIsSet("DBUS_STARTER_ADDRESS") ? failureStatus : 0;
    }
    const host::ApplicationVariables formerVariables = prepareQt(options);
    if (qgetenv("QT_QPA_PLATFORM") == "xcb" && !canReachXServer()) {
        log.write(host::LogLevel::error, "There is no X display to put widgets on.");
        return failureStatus;
    }
    if (!options.pictureFile) {
        endOnSignals();
        leaveSilentBus(log);
    }
    const host::LocaleVariables sessionLocale = host::localeVariables();
    system::GettextLocalization::chooseLanguages("");
    paint::FontSearch fontSearch;  // The first of the threads.
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
    Ground ground(*extensionFile, options.systemVersion, formerVariables, fontSearch, log);
    return options.pictureFile ? drawDesktop(ground, options)
                               : showDesktop(ground, sessionLocale, options, bus);
}

}  // namespace kelmar::desktop
