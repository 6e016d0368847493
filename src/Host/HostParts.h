#pragma once

#include <memory>
#include <string>

#include "Host/ExtensionFile.h"
#include "Host/ExtensionProcess.h"
#include "Host/FileWatch.h"
#include "Host/HostLimits.h"
#include "Host/Log.h"
#include "Host/SystemVersion.h"
#include "Host/Timers.h"
#include "Host/UrlOpener.h"
#include "Host/WallClockTimer.h"
#include "System/Clock.h"

namespace kelmar::host {

/// Everything through which a WidgetHost touches the world.
struct HostParts {
    UrlOpener& urlOpener;
    const system::Clock& clock;
    WallClockTimer& wallClockTimer;
    Timers& timers;
    ExtensionLauncher& launcher;
    FileWatch& fileWatch;
    Log& log;
    HostLimits limits;
    std::string systemVersion = newestSystemVersion;  ///< What the extension is told.
};

/// The real ones, of this machine.
class MachineParts {
public:
    explicit MachineParts(const ExtensionFile& extensionFile, Log& log);
    ~MachineParts();
    MachineParts(const MachineParts&) = delete;
    MachineParts& operator=(const MachineParts&) = delete;

    [[nodiscard]] HostParts with(UrlOpener& urlOpener, const system::Clock& clock,
                                 std::string systemVersion);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace kelmar::host
