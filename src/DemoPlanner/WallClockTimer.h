#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <optional>

#include "System/Date.h"

namespace kelmar::demo {

/// Wakes once at a moment of the wall clock, which a timer that counts elapsed time misses when
/// the machine sleeps or the clock is set. Nothing runs in between.
class WallClockTimer {
public:
    /// `woken` runs in the event loop when the moment has come, and early when the clock was set.
    explicit WallClockTimer(std::function<void()> woken);
    ~WallClockTimer();
    WallClockTimer(const WallClockTimer&) = delete;
    WallClockTimer& operator=(const WallClockTimer&) = delete;

    /// Replaces the moment set before; nothing sleeps for good.
    void set(std::optional<system::Date> moment);

private:
    void read();

    int descriptor_;
    std::function<void()> woken_;
    std::optional<QSocketNotifier> notifier_;
};

}  // namespace kelmar::demo
