#include "Host/HostParts.h"

#include <utility>

#include "Host/InotifyFileWatch.h"
#include "Host/ProcessLauncher.h"
#include "Host/TimerfdWallClockTimer.h"

namespace kelmar::host {

struct MachineParts::Parts {
    Parts(const std::string& executable, Log& anyLog)
        : log(anyLog),
          wallClockTimer(log),
          fileWatch(limits, timers, log),
          launcher(executable, limits, timers, log) {}

    HostLimits limits;
    Log& log;
    QtTimers timers;
    TimerfdWallClockTimer wallClockTimer;
    InotifyFileWatch fileWatch;
    ProcessLauncher launcher;
};

MachineParts::MachineParts(const ExtensionFile& extensionFile, Log& log)
    : parts_(std::make_unique<Parts>(extensionFile.executable, log)) {}

MachineParts::~MachineParts() = default;

HostParts MachineParts::with(UrlOpener& urlOpener, const system::Clock& clock,
                             std::string systemVersion) {
    return {urlOpener,
            clock,
            parts_->wallClockTimer,
            parts_->timers,
            parts_->launcher,
            parts_->fileWatch,
            parts_->log,
            parts_->limits,
            std::move(systemVersion)};
}

}  // namespace kelmar::host
