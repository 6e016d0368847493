#include "Desktop/Instance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include "Desktop/BusNames.h"

namespace kelmar::desktop {

Instance claimInstance(const QDBusConnection& bus, host::Log& log) {
    if (!bus.isConnected()) {
        log.write(
            host::LogLevel::notice,
            "There is no session bus: the desktop's colours and font are not followed, nobody "
            "can ask for a reload, and a second start would not notice this one.");
        return Instance::only;
    }
    const auto answer = bus.interface()->registerService(
        bus::serviceName, QDBusConnectionInterface::DontQueueService,
        QDBusConnectionInterface::DontAllowReplacement);
    if (!answer.isValid()) {
        log.write(host::LogLevel::warning,
                  std::string("The session bus does not give out the name ") + bus::serviceName +
                      " (" + answer.error().message().toStdString() +
                      "): nobody can ask for a reload, and a second start would not notice this "
                      "one.");
        return Instance::only;
    }
    return answer.value() == QDBusConnectionInterface::ServiceRegistered ? Instance::only
                                                                         : Instance::later;
}

void releaseInstance(const QDBusConnection& bus) {
    QDBusMessage release = QDBusMessage::createMethodCall(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ReleaseName");
    release << bus::serviceName;
    // Nobody waits for the answer, which would hold up the end where the bus gives none.
    static_cast<void>(bus.send(release));
}

std::optional<int> showGalleryOfFirst(const QDBusConnection& bus, host::Log& log) {
    const QDBusMessage answer = bus.call(QDBusMessage::createMethodCall(
        bus::serviceName, bus::objectPath, bus::interfaceName, "ShowGallery"));
    const QDBusError::ErrorType error = QDBusError(answer).type();
    if (error == QDBusError::ServiceUnknown || error == QDBusError::NoReply) {
        return std::nullopt;
    }
    if (answer.type() == QDBusMessage::ErrorMessage) {
        log.write(host::LogLevel::error,
                  "The widgets are on the desktop already, but their program does not show the "
                  "gallery: " +
                      answer.errorMessage().toStdString());
        return 1;
    }
    log.write(host::LogLevel::info,
              "The widgets are on the desktop already; their program was asked for its gallery.");
    return 0;
}

}  // namespace kelmar::desktop
