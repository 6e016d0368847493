#pragma once

#include <QDBusConnection>

namespace kelmar::desktop {

/// The session bus, or a connection that is not connected where there is none.
[[nodiscard]] QDBusConnection sessionBus();

}  // namespace kelmar::desktop
