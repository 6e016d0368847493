#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "Host/ExtensionProcess.h"
#include "Host/HostLimits.h"
#include "Host/Log.h"

namespace kelmar::host {

/// Starts extensions as child processes. It keeps those that are on their way out until they are
/// gone; destroying it waits for them, at most `HostLimits::ending`.
class ProcessLauncher final : public ExtensionLauncher {
public:
    ProcessLauncher(std::string executable, const HostLimits& limits, Log& log);
    ~ProcessLauncher() override;
    ProcessLauncher(const ProcessLauncher&) = delete;
    ProcessLauncher& operator=(const ProcessLauncher&) = delete;

    [[nodiscard]] std::unique_ptr<ExtensionProcess> launch(ExtensionListener& listener) override;

private:
    std::string executable_;
    HostLimits limits_;
    Log& log_;
    QObject children_;
};

}  // namespace kelmar::host
