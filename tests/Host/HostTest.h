#pragma once

#include <gtest/gtest.h>

#include "Host/HostParts.h"
#include "System/Clock.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {

/// Surroundings that a test plays, to put a host into their middle.
class HostTest : public ::testing::Test {
protected:
    explicit HostTest(system::Date now = system::Date::since1970(1'000)) : clock_(now) {}

    RecordingUrlOpener opener_;
    system::ManualClock clock_;
    ManualWallClockTimer wallClockTimer_;
    ManualTimers timers_;
    FakeLauncher launcher_;
    ManualFileWatch fileWatch_;
    RecordingLog log_;
    HostParts parts_{opener_,    clock_, wallClockTimer_, timers_, launcher_,
                     fileWatch_, log_,   HostLimits{}};
};

}  // namespace kelmar::host
