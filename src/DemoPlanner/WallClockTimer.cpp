#include "DemoPlanner/WallClockTimer.h"

#include <cmath>
#include <cstdint>
#include <sys/timerfd.h>
#include <unistd.h>
#include <utility>

#include "System/Fatal.h"

namespace kelmar::demo {

namespace {

/// An all-zero time would switch the timer off; the first moment of 1970 is as past as any.
itimerspec specOf(system::Date moment) {
    const double seconds = std::max(moment.secondsSince1970(), 1.0);
    const double whole = std::floor(seconds);
    itimerspec spec{};
    spec.it_value.tv_sec = static_cast<time_t>(whole);
    spec.it_value.tv_nsec = static_cast<long>((seconds - whole) * 1e9);
    return spec;
}

}  // namespace

WallClockTimer::WallClockTimer(std::function<void()> woken)
    : descriptor_(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)),
      woken_(std::move(woken)) {
    if (descriptor_ < 0) {
        system::fatal("The system gives no timer");
    }
    notifier_.emplace(descriptor_, QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, [this] { read(); });
}

WallClockTimer::~WallClockTimer() {
    notifier_.reset();
    ::close(descriptor_);
}

void WallClockTimer::set(std::optional<system::Date> moment) {
    const itimerspec spec = moment ? specOf(*moment) : itimerspec{};
    ::timerfd_settime(descriptor_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &spec, nullptr);
}

/// Reading fails when the clock was set; that is a reason to look at it too.
void WallClockTimer::read() {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const auto size = ::read(descriptor_, &expirations, sizeof expirations);
    woken_();
}

}  // namespace kelmar::demo
