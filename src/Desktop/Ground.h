#pragma once

#include <string>
#include <utility>

#include "Desktop/ActivationToken.h"
#include "Desktop/InstalledFiles.h"
#include "Desktop/SettingsFollower.h"
#include "Host/ApplicationVariables.h"
#include "Host/LoadedUrlOpener.h"
#include "Host/Log.h"
#include "Host/WidgetHost.h"
#include "Layout/Layout.h"
#include "Paint/FontSearch.h"
#include "System/Clock.h"

namespace kelmar::desktop {

/// Everything that both the desktop and its picture stand on.
struct Ground {
    /// The fonts and the log must outlive it.
    Ground(const host::ExtensionFile& extensionFile, const std::string& systemVersion,
           host::ApplicationVariables variables, const paint::FontSearch& fonts,
           host::Log& messages)
        : fontSearch(fonts),
          log(messages),
          urlOpener(installedUrlOpenerModule(), makeActivationToken, std::move(variables)),
          host(extensionFile, urlOpener, clock, systemVersion) {}

    const paint::FontSearch& fontSearch;
    host::Log& log;
    system::SystemClock clock;
    host::LoadedUrlOpener urlOpener;
    host::WidgetHost host;
    layout::Direction direction = writingDirection();
};

}  // namespace kelmar::desktop
