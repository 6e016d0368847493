#include "tests/Desktop/FakePortal.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QProcess>

namespace kelmar::desktop::test {

namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* objectPath = "/org/freedesktop/portal/desktop";
constexpr const char* connectionName = "portal";
constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// Runs until the program ends.
struct BusDaemon {
    BusDaemon() {
        process.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        process.waitForReadyRead();
        address = QString::fromUtf8(process.readLine()).trimmed();
    }
    ~BusDaemon() {
        process.terminate();
        process.waitForFinished();
    }
    BusDaemon(const BusDaemon&) = delete;
    BusDaemon& operator=(const BusDaemon&) = delete;

    QProcess process;
    QString address;
};

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
    qputenv(addressVariable, address().toUtf8());
}

PrivateBus::~PrivateBus() {
    leaveSessionBus();
}

const QString& PrivateBus::address() const {
    static BusDaemon daemon;
    return daemon.address;
}

void leaveSessionBus() {
    qputenv(addressVariable, "disabled:");
}

}  // namespace kelmar::desktop::test
