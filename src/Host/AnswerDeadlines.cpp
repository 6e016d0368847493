#include "Host/AnswerDeadlines.h"

#include <algorithm>
#include <utility>

namespace kelmar::host {

AnswerDeadlines::AnswerDeadlines(Timers& timers, std::chrono::milliseconds limit,
                                 std::function<void(RequestNumber)> overdue)
    : timers_(timers),
      limit_(limit),
      overdue_(std::move(overdue)),
      timer_(timers.make([this] { fire(); })),
      countsSince_(timers.elapsed()) {}

void AnswerDeadlines::sent(RequestNumber number) {
    deadlines_[number] = counted() + limit_;
    arm();
}

void AnswerDeadlines::answered(RequestNumber number) {
    deadlines_.erase(number);
    arm();
}

void AnswerDeadlines::beginAnew() {
    for (auto& [number, deadline] : deadlines_) {
        deadline = counted() + limit_;
    }
    arm();
}

void AnswerDeadlines::suspend() {
    countedBefore_ = counted();
    isSuspended_ = true;
    arm();
}

void AnswerDeadlines::resume() {
    countsSince_ = timers_.elapsed();
    isSuspended_ = false;
    arm();
}

std::chrono::milliseconds AnswerDeadlines::counted() const {
    return isSuspended_ ? countedBefore_ : countedBefore_ + (timers_.elapsed() - countsSince_);
}

void AnswerDeadlines::arm() {
    if (isSuspended_ || deadlines_.empty()) {
        timer_->stop();
        return;
    }
    timer_->start(std::max(deadlines_.begin()->second - counted(), std::chrono::milliseconds(0)));
}

/// Timers may fire a little early.
void AnswerDeadlines::fire() {
    const auto first = deadlines_.begin();
    if (first != deadlines_.end() && first->second <= counted()) {
        const auto number = first->first;
        deadlines_.erase(first);
        arm();
        overdue_(number);
    } else {
        arm();
    }
}

}  // namespace kelmar::host
