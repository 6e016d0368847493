#include "Desktop/TrayWatch.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QTimer>
#include <utility>

#include "Desktop/SessionBus.h"

namespace kelmar::desktop {

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");

}  // namespace

TrayWatch::TrayWatch() : windowTray_("_NET_SYSTEM_TRAY_S0") {
    connect(&windowTray_, &SelectionOwner::changed, this, [this] {
        if (windowTray_.isThere()) {
            tellFound();
        }
    });
    QTimer::singleShot(0, this, &TrayWatch::lookOnBus);
}

void TrayWatch::lookOnBus() {
    QDBusConnection bus = sessionBus();
    if (!bus.isConnected()) {
        takeAnswer(false);
        return;
    }
    auto* coming = new QDBusServiceWatcher(watcherService, bus,
                                           QDBusServiceWatcher::WatchForRegistration, this);
    connect(coming, &QDBusServiceWatcher::serviceRegistered, this, &TrayWatch::tellFound);
    auto* question = new QDBusPendingCallWatcher(
        bus.interface()->asyncCall(QStringLiteral("NameHasOwner"), watcherService), this);
    connect(question, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* answered) {
                const QDBusPendingReply<bool> isOnBus = *answered;
                takeAnswer(!isOnBus.isError() && isOnBus.value());
                answered->deleteLater();
            });
}

void TrayWatch::takeAnswer(bool isOnBus) {
    if (isOnBus || windowTray_.isThere()) {
        tellFound();
    } else if (!isFound_) {
        emit missing();
    }
}

void TrayWatch::tellFound() {
    if (!std::exchange(isFound_, true)) {
        emit found();
    }
}

}  // namespace kelmar::desktop
