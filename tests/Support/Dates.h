#pragma once

#include <chrono>

#include "System/Date.h"

namespace kelmar::testing {

/// A moment in universal time.
inline system::Date utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                        double second = 0) {
    const std::chrono::sys_days date =
        std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day);
    const std::chrono::duration<double> midnight = date.time_since_epoch();
    return system::Date::since1970(midnight.count() + hour * 3600 + minute * 60 + second);
}

}  // namespace kelmar::testing
