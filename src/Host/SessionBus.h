#pragma once

#include <chrono>
#include <string>

namespace kelmar::host {

/// Whether something says where this session's bus is. Where nothing does, the D-Bus libraries
/// would start a bus of their own, which nobody else is on.
[[nodiscard]] bool mayHaveSessionBus();

/// Whether somebody keeps the bus's socket who answers nothing within `patience`, be it a bus that
/// hangs or one that is being started: the D-Bus libraries would wait for half a minute, or for
/// ever. False for a socket that refuses or is missing, where they do not wait.
[[nodiscard]] bool isSilentBus(const std::string& address, std::chrono::milliseconds patience);

/// If the session bus is silent, has this process, and what it starts, do as where there is none,
/// and returns its address; returns nothing else. To be called before anything looks for the bus.
[[nodiscard]] std::string leaveSilentSessionBus();

}  // namespace kelmar::host
