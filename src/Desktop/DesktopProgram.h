#pragma once

#include <QDBusConnection>

#include "Desktop/Ground.h"
#include "Desktop/Options.h"
#include "Host/SettingsWatch.h"

namespace kelmar::desktop {

/// Keeps the widgets on the desktop until somebody ends the program; returns its exit status.
/// Without a connected bus it does what can be done without one. `sessionLocale` is what the
/// process was started with.
[[nodiscard]] int showDesktop(Ground& ground, const host::LocaleVariables& sessionLocale,
                              const Options& options, const QDBusConnection& bus);

}  // namespace kelmar::desktop
