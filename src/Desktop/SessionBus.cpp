#include "Desktop/SessionBus.h"

#include "Host/SessionBus.h"

namespace kelmar::desktop {

QDBusConnection sessionBus() {
    return host::mayHaveSessionBus() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

}  // namespace kelmar::desktop
