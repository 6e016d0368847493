#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "System/Date.h"

namespace kelmar::host {

/// Why a wall-clock timer called.
enum class ClockEvent {
    dateReached,
    clockStepped,  ///< The clock was set, or the machine slept: what "now" is must be asked anew.
};

/// Calls at a date of the wall clock, however the clock gets there, and when the clock steps. One
/// serves the whole host; while it has no date only a step wakes the process.
class WallClockTimer {
public:
    virtual ~WallClockTimer() = default;

    /// Must be set before the first arming. A date calls once.
    void setHandler(std::function<void(ClockEvent)> handler) { handler_ = std::move(handler); }
    /// Replaces the date, or takes it back. A date that has passed is reached at once, but never
    /// before this function has returned.
    virtual void arm(std::optional<system::Date> date) = 0;

protected:
    void call(ClockEvent event) const { handler_(event); }

private:
    std::function<void(ClockEvent)> handler_;
};

}  // namespace kelmar::host
