#pragma once

#include <QDBusConnection>

#include "Desktop/Ground.h"
#include "Desktop/Options.h"

namespace kelmar::desktop {

/// Keeps the widgets on the desktop until somebody ends the program; returns its exit status.
/// Without a connected bus it does what can be done without one.
[[nodiscard]] int showDesktop(Ground& ground, const Options& options, const QDBusConnection& bus);

}  // namespace kelmar::desktop
