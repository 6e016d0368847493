#include "System/Clock.h"

#include <chrono>

namespace kelmar::system {

Date SystemClock::now() const {
    const auto elapsed = std::chrono::system_clock::now().time_since_epoch();
    return Date::since1970(std::chrono::duration<Seconds>(elapsed).count());
}

}  // namespace kelmar::system
