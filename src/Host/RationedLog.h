#pragma once

#include <chrono>
#include <string>

#include "Host/Log.h"
#include "Host/Timers.h"

namespace kelmar::host {

/// What a stranger causes in the log: some lines at once, and then one now and again, for as long
/// as it goes on. A line that comes through says how many before it did not.
class RationedLog {
public:
    /// `most` at once, and after that one more in each `pause`. `log` and `timers` outlive this.
    RationedLog(Log& log, Timers& timers, int most, std::chrono::milliseconds pause);

    void write(LogLevel level, std::string line);

private:
    void refill();

    Log& log_;
    Timers& timers_;
    int most_;
    std::chrono::milliseconds pause_;
    int left_;                               ///< Lines that may still be written.
    std::chrono::milliseconds refilled_{0};  ///< When `left_` last grew, or was all there is.
    long leftOut_ = 0;
};

}  // namespace kelmar::host
