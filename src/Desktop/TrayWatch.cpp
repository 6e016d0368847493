#include "Desktop/TrayWatch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <utility>

#include "Desktop/SessionBus.h"

namespace kelmar::desktop {

namespace {

/// The service and its interface.
const auto watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto path = QStringLiteral("/StatusNotifierWatcher");

}  // namespace

TrayWatch::TrayWatch() : windowTray_(x11::Atom::systemTray) {
    connect(&windowTray_, &SelectionOwner::changed, this, [this] {
        if (windowTray_.isThere()) {
            tellFound();
        }
    });
}

void TrayWatch::start() {
    QDBusConnection bus = sessionBus();
    if (!bus.isConnected()) {
        takeAnswer(false);
        return;
    }
    // The watcher may be there long before anybody shows what it watches.
    bus.connect(watcher, path, watcher, QStringLiteral("StatusNotifierHostRegistered"), this,
                SLOT(tellFound()));
    auto* coming =
        new QDBusServiceWatcher(watcher, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(coming, &QDBusServiceWatcher::serviceRegistered, this, &TrayWatch::askOnBus);
    askOnBus();
}

void TrayWatch::askOnBus() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcher, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << watcher << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* question = new QDBusPendingCallWatcher(sessionBus().asyncCall(call), this);
    connect(question, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* answered) {
                const QDBusPendingReply<QDBusVariant> isShown = *answered;
                takeAnswer(!isShown.isError() && isShown.value().variant().toBool());
                answered->deleteLater();
            });
}

void TrayWatch::takeAnswer(bool isOnBus) {
    if (isOnBus || windowTray_.isThere()) {
        tellFound();
    } else if (!isFound_ && !std::exchange(isMissingTold_, true)) {
        emit missing();
    }
}

void TrayWatch::tellFound() {
    if (!std::exchange(isFound_, true)) {
        emit found();
    }
}

}  // namespace kelmar::desktop
