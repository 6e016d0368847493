#include "Desktop/SessionBus.h"

#include <QFile>

namespace kelmar::desktop {

QDBusConnection sessionBus() {
    // Without an address the D-Bus library would start a bus of its own, which nobody else is on.
    const bool mayBeThere = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
                            QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
    return mayBeThere ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

}  // namespace kelmar::desktop
