#include "Host/SessionBus.h"

#include <QFile>

namespace kelmar::host {

bool mayHaveSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

}  // namespace kelmar::host
