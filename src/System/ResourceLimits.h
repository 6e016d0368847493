#pragma once

#include "System/Result.h"

namespace kelmar::system {

/// How much of the machine a confined process gets (getrlimit(2)), in bytes. A hundred thousand
/// assignments, which no student has, take a third of the memory.
inline constexpr unsigned long memoryLimit = 512UL << 20U;
/// No single file that it writes gets larger; what it writes is a few hundred bytes.
inline constexpr unsigned long fileSizeLimit = 16UL << 20U;

/// Sets both limits for good, and has no core files written, because they would hold what the
/// student has to do. Memory that is refused ends the process like a fatal fault, with a line on
/// standard error; a file that would get too large is an error of the call that writes it.
[[nodiscard]] Result<Done> limitResources();

}  // namespace kelmar::system
