#include "Host/ReloadRequests.h"

#include <utility>

namespace kelmar::host {

ReloadRequests::ReloadRequests(Timers& timers, const HostLimits& limits,
                               std::function<void(const std::string& kind)> reload,
                               std::function<void()> reloadAll)
    : timers_(timers),
      span_(limits.askedReloadsTime),
      throttle_(limits.askedReloads, limits.askedReloadsTime),
      reload_(std::move(reload)),
      reloadAll_(std::move(reloadAll)),
      timer_(timers.make([this] { runGathered(); })) {}

void ReloadRequests::ask(const std::string& kind) {
    if (mayGoOn()) {
        reload_(kind);
    } else {
        gathered_.insert(kind);
    }
}

void ReloadRequests::askForAll() {
    if (mayGoOn()) {
        reloadAll_();
    } else {
        allAreGathered_ = true;
    }
}

bool ReloadRequests::mayGoOn() {
    if (isGathering_) {
        return false;
    }
    if (throttle_.admit(timers_.elapsed()) == Throttle::Verdict::drop) {
        isGathering_ = true;
        timer_->start(span_);
        return false;
    }
    return true;
}

void ReloadRequests::runGathered() {
    isGathering_ = false;
    const auto kinds = std::exchange(gathered_, {});
    if (std::exchange(allAreGathered_, false)) {
        reloadAll_();
        return;
    }
    for (const std::string& kind : kinds) {
        reload_(kind);
    }
}

}  // namespace kelmar::host
