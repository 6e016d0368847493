#pragma once

#include <algorithm>
#include <chrono>

#include "Host/HostLimits.h"

namespace kelmar::host {

/// How long to wait before the next try of something that keeps failing: twice as long each time,
/// up to a limit, and from the beginning once it went well.
class Backoff {
public:
    explicit Backoff(const HostLimits& limits)
        : first_(limits.firstRetry), longest_(limits.longestRetry), next_(limits.firstRetry) {}

    [[nodiscard]] std::chrono::milliseconds next() {
        const auto delay = std::min(next_, longest_);
        next_ = std::min(2 * delay, longest_);
        return delay;
    }
    void reset() { next_ = first_; }
    /// Whether it went well the last time.
    [[nodiscard]] bool isReset() const { return next_ == first_; }

private:
    std::chrono::milliseconds first_;
    std::chrono::milliseconds longest_;
    std::chrono::milliseconds next_;
};

}  // namespace kelmar::host
