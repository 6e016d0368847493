#include "Host/RationedLog.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace kelmar::host {

RationedLog::RationedLog(Log& log, Timers& timers, int most, std::chrono::milliseconds pause)
    : log_(log),
      timers_(timers),
      most_(most),
      pause_(pause),
      left_(most),
      refilled_(timers.elapsed()) {}

void RationedLog::write(LogLevel level, std::string line) {
    refill();
    if (left_ == 0) {
        ++leftOut_;
        return;
    }
    if (const auto leftOut = std::exchange(leftOut_, 0); leftOut > 0) {
        line += fmt::format(" ({} like it left out before)", leftOut);
    }
    if (--left_ == 0) {
        line += fmt::format(" (more like it is left out, but for a line every {:g} min)",
                            std::chrono::duration<double, std::ratio<60>>(pause_).count());
    }
    log_.write(level, line);
}

void RationedLog::refill() {
    const auto now = timers_.elapsed();
    const auto gained = (now - refilled_) / pause_;
    const auto missing = most_ - left_;
    if (gained >= missing) {
        left_ = most_;
        refilled_ = now;
    } else {
        left_ += static_cast<int>(gained);
        refilled_ += gained * pause_;
    }
}

}  // namespace kelmar::host
