#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Host/AnswerDeadlines.h"
#include "Host/ExtensionProcess.h"
#include "Host/ExtensionRequest.h"
#include "Host/HostLimits.h"
#include "Host/Log.h"
#include "Host/RationedLog.h"
#include "Host/Timers.h"
#include "Host/UrlGate.h"
#include "Kit/Descriptor.h"
#include "Kit/Protocol.h"

namespace kelmar::host {

/// Who has sessions hears how they go.
class SessionOwner {
public:
    virtual ~SessionOwner() = default;
    /// The extension has introduced itself; requests may be sent.
    virtual void sessionReady(kit::Bundle bundle) = 0;
    /// A request was answered, be it with an error.
    virtual void sessionAnswered() = 0;
    /// Nothing is outstanding any more in either direction.
    virtual void sessionWentIdle() = 0;
    /// The process is gone or was ended because of what it did; `how` follows its name.
    virtual void sessionFailed(const std::string& how) = 0;
};

/// One run of the extension, from the start of the process to its end: speaks the protocol with
/// it and decides when it has misbehaved too much to go on.
class ExtensionSession final : private ExtensionListener {
public:
    /// All of them outlive the session.
    struct Parts {
        ExtensionLauncher& launcher;
        UrlGate& urlGate;
        Timers& timers;
        Log& log;
        RationedLog& errorLines;  ///< For what it says on standard error.
        RationedLog& mistakes;
        const HostLimits& limits;
        const std::string& name;           ///< Of the extension, for the log.
        const std::string& systemVersion;  ///< What the extension is told.
    };

    ExtensionSession(SessionOwner& owner, const Parts& parts);
    ~ExtensionSession() override;
    ExtensionSession(const ExtensionSession&) = delete;
    ExtensionSession& operator=(const ExtensionSession&) = delete;

    void send(ExtensionRequest request);
    [[nodiscard]] bool isReady() const { return isReady_; }
    [[nodiscard]] bool isIdle() const { return outstanding_.empty() && urls_.isEmpty(); }
    /// Whether its program has been replaced on disk since it was started.
    [[nodiscard]] bool isOutdated() const { return process_->isOutdated(); }
    /// The session is over, its owner hears nothing more.
    void end(Ending ending);
    /// What was not answered before the end. The oldest comes last: it is the likeliest cause of
    /// the end, and shall not keep the others from their answers once more.
    [[nodiscard]] std::vector<ExtensionRequest> takeUnanswered();

private:
    /// Of a request of the extension; absent when it wants no answer.
    using Id = std::optional<kit::MessageId>;

    void lineCame(std::string_view line) override;
    void overlongLineCame() override;
    void errorLineCame(std::string_view line) override;
    void processEnded(std::string how) override;

    void handle(const kit::InvalidLine& invalid, std::string_view line);
    void handle(const kit::Request& request);
    void handle(const kit::Response& response);
    void introduce(const kit::Response& response);
    void openUrl(const Id& id, const kit::OpenRequest& request);
    void answer(const Id& id, const std::string& error);
    void refuse(const Id& id, const std::string& reason, const std::string& url);
    void endOpening(const Id& id, const std::string& url, const std::string& error);
    void tellIfIdle();
    void noteFault(const std::string& what);
    void fail(const std::string& how);

    SessionOwner& owner_;
    Parts parts_;
    std::map<RequestNumber, ExtensionRequest> outstanding_;
    RequestNumber lastNumber_ = 0;
    AnswerDeadlines deadlines_;
    UrlQueue urls_;
    int faults_ = 0;
    bool isReady_ = false;
    bool isOver_ = false;
    std::unique_ptr<ExtensionProcess> process_;
};

}  // namespace kelmar::host
