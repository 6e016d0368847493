#pragma once

#include "System/Result.h"

namespace kelmar::system {

/// Leaves the process, for good, only the system calls of a program with one thread that reads and
/// writes files and pipes (seccomp, Linux, Documentation/userspace-api/seccomp_filter.rst). Any
/// other, be it one that a later kernel brings, fails with EPERM, and the first of each kind is
/// said on standard error. New code cannot be loaded or made either.
[[nodiscard]] Result<Done> filterSystemCalls();

}  // namespace kelmar::system
