#pragma once

#include <QDBusConnection>
#include <optional>

#include "Host/Log.h"

namespace kelmar::desktop {

/// Whether this process is the one that keeps the session's widgets.
enum class Instance {
    only,   ///< It is, or nobody can say, where there is no session bus.
    later,  ///< Another one was first.
};

/// Takes the host's name on the bus. It is given up with the process, if not before.
[[nodiscard]] Instance claimInstance(const QDBusConnection& bus, host::Log& log);

/// Gives the name up at the end, once the places are saved: to wait for an extension may take this
/// process some time yet, and who starts the widgets meanwhile is to have them.
void releaseInstance(const QDBusConnection& bus);

/// Has the first instance show its gallery; returns the exit status of this one, or nothing if the
/// first was gone already, as just after a crash: its place is free then.
[[nodiscard]] std::optional<int> showGalleryOfFirst(const QDBusConnection& bus, host::Log& log);

}  // namespace kelmar::desktop
