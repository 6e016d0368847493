#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Host/Backoff.h"
#include "Host/ExtensionRequest.h"
#include "Host/ExtensionSession.h"
#include "Host/HostLimits.h"
#include "Host/RationedLog.h"
#include "Host/SystemVersion.h"
#include "Kit/Descriptor.h"

namespace kelmar::host {

/// The extension as the rest of the host sees it: always there. Starts its process when something
/// is asked, ends it when nothing was asked for a while or when its program was updated, and
/// replaces it when it fails, each time after a longer pause until it answers again.
class ExtensionClient final : private SessionOwner {
public:
    /// All of them outlive the client.
    struct Parts {
        ExtensionLauncher& launcher;
        UrlGate& urlGate;
        Timers& timers;
        Log& log;
        HostLimits limits;
        std::string name;                                 ///< Of the extension, for the log.
        std::string systemVersion = newestSystemVersion;  ///< What the extension is told.
    };

    /// `bundleCame` runs each time the extension has introduced itself.
    ExtensionClient(Parts parts, std::function<void(kit::Bundle)> bundleCame);
    ~ExtensionClient() override;
    ExtensionClient(const ExtensionClient&) = delete;
    ExtensionClient& operator=(const ExtensionClient&) = delete;

    /// Has the extension introduce itself, unless the process that runs does or has done so.
    void introduce();
    /// Requests reach the extension in the order in which they are made. `request.answer` runs
    /// exactly once, never within this call, unless the client goes before.
    void request(ExtensionRequest request);
    /// Uses another process for all requests from now on: what the running one took from the
    /// machine when it began is out of date. It ends when it has answered what it was asked.
    void replaceProcess() { isOutOfDate_ = session_ != nullptr; }
    /// What made the extension fail may be gone: cuts a long pause after failures down to the
    /// shortest. The next failure's is as long as it would have been.
    void hastenRetry();

private:
    void sessionReady(kit::Bundle bundle) override;
    void sessionAnswered() override;
    void sessionWentIdle() override;
    void sessionFailed(const std::string& how) override;

    void proceed();
    [[nodiscard]] bool maySend(const ExtensionRequest& request) const;
    [[nodiscard]] bool makeWayForUpdate();
    void retire();
    void retry();
    [[nodiscard]] std::chrono::milliseconds untilRetry() const;
    void refuseTheImpatient();
    void answerRefused();

    Parts parts_;
    // Of all its processes: one that fails at once again and again shall not fill the log either.
    RationedLog errorLines_;
    RationedLog mistakes_;
    RationedLog turns_;  ///< For its failures and recoveries.
    std::function<void(kit::Bundle)> bundleCame_;
    bool isToIntroduceItself_ = true;
    bool isOutOfDate_ = false;  ///< Whether the session is to make way for another.
    std::deque<ExtensionRequest> waiting_;
    std::vector<ExtensionRequest> refused_;
    Backoff backoff_;
    bool isPausing_ = false;  ///< Whether the extension failed and is not to be started yet.
    std::chrono::milliseconds pauseEnds_{0};
    std::unique_ptr<Timer> retryTimer_;
    std::unique_ptr<Timer> idleTimer_;
    std::unique_ptr<Timer> refusalTimer_;
    std::unique_ptr<ExtensionSession> session_;
    /// The session before: it may be what called us when it failed.
    std::unique_ptr<ExtensionSession> lastSession_;
};

}  // namespace kelmar::host
