#include "Host/TimerfdWallClockTimer.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fmt/format.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace kelmar::host {
namespace {

/// In the year 2255, some years before the kernel's own time ends.
constexpr double farAway = 9e9;

/// Rounded up, so that the clock has reached the date when the timer fires. Zero would disarm the
/// timer and negative times are refused, so dates before 1970 become the first instant after it.
timespec absoluteTime(system::Date date) {
    constexpr double nanosecond = 1e-9;
    const auto seconds = std::clamp(date.secondsSince1970(), nanosecond, farAway);
    const auto whole = std::floor(seconds);
    auto nanoseconds = static_cast<std::int64_t>(std::ceil((seconds - whole) * 1e9));
    auto full = static_cast<std::int64_t>(whole);
    if (nanoseconds >= 1'000'000'000) {
        nanoseconds -= 1'000'000'000;
        ++full;
    }
    return {.tv_sec = full, .tv_nsec = nanoseconds};
}

}  // namespace

TimerfdWallClockTimer::TimerfdWallClockTimer(Log& log)
    : descriptor_(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (descriptor_ < 0) {
        log.write(LogLevel::error,
                  fmt::format("no timer for the wall clock ({}); widgets change only when they are "
                              "reloaded for another reason",
                              std::strerror(errno)));
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { wake(); });
}

TimerfdWallClockTimer::~TimerfdWallClockTimer() {
    notifier_.reset();
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void TimerfdWallClockTimer::arm(std::optional<system::Date> date) {
    if (descriptor_ < 0) {
        return;
    }
    // A timer that is off tells no steps, hence the date that never comes.
    const itimerspec setting{
        .it_interval = {},
        .it_value = absoluteTime(date.value_or(system::Date::since1970(farAway)))};
    const auto failed = timerfd_settime(descriptor_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET,
                                        &setting, nullptr) != 0;
    // The kernel reports a step that nobody has read yet here, once, and sets the timer all the
    // same.
    if (failed && errno == ECANCELED) {
        QMetaObject::invokeMethod(
            notifier_.get(), [this] { call(ClockEvent::clockStepped); }, Qt::QueuedConnection);
    }
}

void TimerfdWallClockTimer::wake() {
    std::uint64_t expirations = 0;
    const auto count = read(descriptor_, &expirations, sizeof expirations);
    if (count < 0 && errno != ECANCELED) {
        return;  // It was armed anew after it had fired: the new date is still to come.
    }
    call(count < 0 ? ClockEvent::clockStepped : ClockEvent::dateReached);
}

}  // namespace kelmar::host
