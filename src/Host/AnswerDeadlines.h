#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "Host/Timers.h"

namespace kelmar::host {

/// The host numbers its requests in the order in which they are sent.
using RequestNumber = std::int64_t;

/// Watches that every request is answered in time. The count can be suspended, for what the
/// extension has to wait for itself.
class AnswerDeadlines {
public:
    /// `overdue` names the request; the others are still watched.
    AnswerDeadlines(Timers& timers, std::chrono::milliseconds limit,
                    std::function<void(RequestNumber)> overdue);

    void sent(RequestNumber number);
    void answered(RequestNumber number);
    /// All that are outstanding have their whole time again.
    void beginAnew();
    void suspend();
    void resume();

private:
    [[nodiscard]] std::chrono::milliseconds counted() const;
    void arm();
    void fire();

    Timers& timers_;
    std::chrono::milliseconds limit_;
    std::function<void(RequestNumber)> overdue_;
    std::unique_ptr<Timer> timer_;
    /// In counted time. Numbers ascend with time, so the first is the nearest.
    std::map<RequestNumber, std::chrono::milliseconds> deadlines_;
    std::chrono::milliseconds countedBefore_{0};
    std::chrono::milliseconds countsSince_;
    bool isSuspended_ = false;
};

}  // namespace kelmar::host
