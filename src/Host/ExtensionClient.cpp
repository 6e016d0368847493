#include "Host/ExtensionClient.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <utility>

namespace kelmar::host {
namespace {

RationedLog rationed(const ExtensionClient::Parts& parts) {
    return {parts.log, parts.timers, parts.limits.logLines, parts.limits.logPause};
}

}  // namespace

ExtensionClient::ExtensionClient(Parts parts, std::function<void(kit::Bundle)> bundleCame)
    : parts_(std::move(parts)),
      errorLines_(rationed(parts_)),
      mistakes_(rationed(parts_)),
      turns_(rationed(parts_)),
      bundleCame_(std::move(bundleCame)),
      backoff_(parts_.limits),
      retryTimer_(parts_.timers.make([this] { retry(); })),
      idleTimer_(parts_.timers.make([this] { retire(); })),
      refusalTimer_(parts_.timers.make([this] { answerRefused(); })) {}

ExtensionClient::~ExtensionClient() = default;

void ExtensionClient::introduce() {
    isOutOfDate_ = isOutOfDate_ || (session_ && session_->isOutdated());
    if (!session_ || isOutOfDate_) {
        isToIntroduceItself_ = true;
        proceed();
    }
}

void ExtensionClient::request(ExtensionRequest request) {
    waiting_.push_back(std::move(request));
    if (isPausing_) {
        refuseTheImpatient();
    }
    proceed();
}

void ExtensionClient::proceed() {
    if (isPausing_ || (!isToIntroduceItself_ && waiting_.empty())) {
        return;
    }
    idleTimer_->stop();
    if (session_ && !makeWayForUpdate()) {
        return;
    }
    if (!session_) {
        SessionOwner& owner = *this;
        session_ = std::make_unique<ExtensionSession>(
            owner, ExtensionSession::Parts{parts_.launcher, parts_.urlGate, parts_.timers,
                                           parts_.log, errorLines_, mistakes_, parts_.limits,
                                           parts_.name, parts_.systemVersion});
    }
    while (!waiting_.empty() && maySend(waiting_.front())) {
        session_->send(std::move(waiting_.front()));
        waiting_.pop_front();
    }
}

/// Who asks with lasting patience asks again when it comes to nothing, and need not wait until the
/// extension has introduced itself: it reads one after the other.
bool ExtensionClient::maySend(const ExtensionRequest& request) const {
    return session_->isReady() || request.patience == Patience::lasting;
}

/// Ends the process if its program was updated, or what it knows of the machine is out of date.
/// False while it has yet to answer what it was asked before: what is asked now is then for its
/// successor.
bool ExtensionClient::makeWayForUpdate() {
    const bool isUpdated = session_->isOutdated();
    if (!isUpdated && !isOutOfDate_) {
        return true;
    }
    if (!session_->isIdle()) {
        return false;
    }
    if (isUpdated) {
        parts_.log.write(LogLevel::notice,
                         parts_.name + ": its program was updated; starts the new one");
    }
    retire();
    return true;
}

void ExtensionClient::sessionReady(kit::Bundle bundle) {
    isToIntroduceItself_ = isOutOfDate_;
    bundleCame_(std::move(bundle));
    proceed();
}

void ExtensionClient::sessionAnswered() {
    if (!backoff_.isReset()) {
        backoff_.reset();
        turns_.write(LogLevel::notice, parts_.name + ": answers again");
    }
}

void ExtensionClient::sessionWentIdle() {
    if (!waiting_.empty() || isToIntroduceItself_) {
        proceed();
        return;
    }
    idleTimer_->start(parts_.limits.idle);
}

void ExtensionClient::retire() {
    if (session_ && session_->isIdle()) {
        session_->end(Ending::gently);
        lastSession_ = std::move(session_);
        isOutOfDate_ = false;
    }
}

void ExtensionClient::sessionFailed(const std::string& how) {
    const auto pause = backoff_.next();
    turns_.write(LogLevel::warning,
                 fmt::format("{}: {}; not started again before {:g} s", parts_.name, how,
                             std::chrono::duration<double>(pause).count()));
    idleTimer_->stop();
    lastSession_ = std::move(session_);
    isOutOfDate_ = false;
    isPausing_ = true;
    pauseEnds_ = parts_.timers.elapsed() + pause;
    retryTimer_->start(pause);
    refuseTheImpatient();
    for (const auto& request : lastSession_->takeUnanswered()) {
        if (request.answer) {
            request.answer(RequestFailure{RequestFailure::Kind::unavailable, "it " + how});
        }
    }
}

void ExtensionClient::hastenRetry() {
    const std::chrono::milliseconds pause = parts_.limits.firstRetry;
    if (isPausing_ && untilRetry() > pause) {
        pauseEnds_ = parts_.timers.elapsed() + pause;
        retryTimer_->start(pause);
    }
}

void ExtensionClient::retry() {
    isPausing_ = false;
    proceed();
}

std::chrono::milliseconds ExtensionClient::untilRetry() const {
    return pauseEnds_ - parts_.timers.elapsed();
}

void ExtensionClient::refuseTheImpatient() {
    if (untilRetry() <= parts_.limits.answer) {
        return;
    }
    const auto impatient = std::stable_partition(
        waiting_.begin(), waiting_.end(),
        [](const auto& request) { return request.patience == Patience::lasting; });
    std::move(impatient, waiting_.end(), std::back_inserter(refused_));
    waiting_.erase(impatient, waiting_.end());
    if (!refused_.empty()) {
        refusalTimer_->start(std::chrono::milliseconds(0));
    }
}

void ExtensionClient::answerRefused() {
    for (const auto& request : std::exchange(refused_, {})) {
        request.answer(
            RequestFailure{RequestFailure::Kind::unavailable,
                           fmt::format("it failed before and is not started again before {:g} s",
                                       std::chrono::duration<double>(untilRetry()).count())});
    }
}

}  // namespace kelmar::host
