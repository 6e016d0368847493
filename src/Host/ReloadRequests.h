#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "Host/HostLimits.h"
#include "Host/Throttle.h"
#include "Host/Timers.h"

namespace kelmar::host {

/// Reloads that other programs ask for. The first ones are done at once; those of somebody who
/// does not stop asking are gathered and done together, so that none is lost and no other program
/// keeps the extension busy.
class ReloadRequests {
public:
    ReloadRequests(Timers& timers, const HostLimits& limits,
                   std::function<void(const std::string& kind)> reload,
                   std::function<void()> reloadAll);

    void ask(const std::string& kind);
    void askForAll();

private:
    [[nodiscard]] bool mayGoOn();
    void runGathered();

    Timers& timers_;
    std::chrono::milliseconds span_;
    Throttle throttle_;
    std::function<void(const std::string& kind)> reload_;
    std::function<void()> reloadAll_;
    std::set<std::string> gathered_;
    bool allAreGathered_ = false;
    bool isGathering_ = false;
    std::unique_ptr<Timer> timer_;
};

}  // namespace kelmar::host
