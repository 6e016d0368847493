#pragma once

#include <QSocketNotifier>
#include <memory>

#include "Host/Log.h"
#include "Host/WallClockTimer.h"

namespace kelmar::host {

/// The kernel's own absolute timer (timerfd_create(2)), which also tells when the clock was set
/// and when the machine woke up, so that nobody has to look at the clock from time to time.
class TimerfdWallClockTimer final : public WallClockTimer {
public:
    explicit TimerfdWallClockTimer(Log& log);
    ~TimerfdWallClockTimer() override;
    TimerfdWallClockTimer(const TimerfdWallClockTimer&) = delete;
    TimerfdWallClockTimer& operator=(const TimerfdWallClockTimer&) = delete;

    void arm(std::optional<system::Date> date) override;

private:
    void wake();

    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace kelmar::host
