#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "Host/ExtensionProcess.h"
#include "Host/HostLimits.h"
#include "Host/RationedLog.h"
#include "Host/Timers.h"

namespace kelmar::host {

/// Starts extensions as child processes. It keeps those that are on their way out until they are
/// gone; destroying it waits for them, at most `HostLimits::ending`. `timers` and `log` outlive it.
class ProcessLauncher final : public ExtensionLauncher {
public:
    ProcessLauncher(std::string executable, const HostLimits& limits, Timers& timers, Log& log);
    ~ProcessLauncher() override;
    ProcessLauncher(const ProcessLauncher&) = delete;
    ProcessLauncher& operator=(const ProcessLauncher&) = delete;

    [[nodiscard]] std::unique_ptr<ExtensionProcess> launch(ExtensionListener& listener) override;

private:
    std::string executable_;
    HostLimits limits_;
    RationedLog overstays_;  ///< For those that had to be killed: it may be each of them.
    QObject children_;
};

}  // namespace kelmar::host
