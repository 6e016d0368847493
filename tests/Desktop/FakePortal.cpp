#include "tests/Desktop/FakePortal.h"

#include <QDBusMessage>
#include <QDBusMetaType>

namespace kelmar::desktop::test {

namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* objectPath = "/org/freedesktop/portal/desktop";
constexpr const char* connectionName = "portal";

}  // namespace

FakePortal::FakePortal(const QString& busAddress)
    : connection_(QDBusConnection::connectToBus(busAddress, connectionName)) {
    qDBusRegisterMetaType<Settings>();
    connection_.registerObject(objectPath, this,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    connection_.registerService(service);
}

FakePortal::~FakePortal() {
    connection_.unregisterService(service);
    QDBusConnection::disconnectFromBus(connectionName);
}

Settings FakePortal::ReadAll(const QStringList& namespaces) {
    askedFor = namespaces;
    if (wrongAnswer.isValid()) {
        setDelayedReply(true);
        connection().send(message().createReply(wrongAnswer));
    }
    return settings;
}

PrivateBus::PrivateBus() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    daemon_.waitForReadyRead();
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toUtf8());
}

PrivateBus::~PrivateBus() {
    daemon_.terminate();
    daemon_.waitForFinished();
}

}  // namespace kelmar::desktop::test
