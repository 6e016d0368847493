#pragma once

#include <string_view>

namespace kelmar::system {

/// The exit status of a process that met a fault it must not survive (sysexits.h, EX_SOFTWARE).
inline constexpr int fatalExitStatus = 70;

/// Ends the process at once with `fatalExitStatus` after writing `reason` as one line to standard
/// error. For broken contracts only: what a bad file, a full disk or a vanished folder can cause
/// is never fatal.
[[noreturn]] void fatal(std::string_view reason);

}  // namespace kelmar::system
