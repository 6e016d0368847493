#include "System/ResourceLimits.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fmt/format.h>
#include <new>
#include <sys/resource.h>
#include <unistd.h>

#include "System/Fatal.h"
#include "System/RawLine.h"

namespace kelmar::system {
namespace {

// The address sanitizer maps terabytes that it never touches, and could not start to work within
// any limit.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool canLimitMemory = false;
#elif defined(__has_feature)
constexpr bool canLimitMemory = !__has_feature(address_sanitizer);
#else
constexpr bool canLimitMemory = true;
#endif

/// What is allowed already may be less, and is not to become more.
bool limit(decltype(RLIMIT_AS) resource, rlim_t most) {
    rlimit limits = {};
    if (::getrlimit(resource, &limits) != 0)
        return false;
    limits.rlim_max = std::min(limits.rlim_max, most);
    limits.rlim_cur = limits.rlim_max;
    return ::setrlimit(resource, &limits) == 0;
}

[[noreturn]] void endForWantOfMemory() {
    writeRawLine({"there is not enough memory within its limit"});
    ::_exit(fatalExitStatus);
}

}  // namespace

Result<Done> limitResources() {
    std::set_new_handler(endForWantOfMemory);
    // The signal would end the process where an error is enough.
    std::signal(SIGXFSZ, SIG_IGN);
    const bool areSet = (!canLimitMemory || limit(RLIMIT_AS, memoryLimit)) &&
                        limit(RLIMIT_FSIZE, fileSizeLimit) && limit(RLIMIT_CORE, 0);
    if (!areSet)
        return Failure{fmt::format("its memory and files have no limit: {}", std::strerror(errno))};
    return Done{};
}

}  // namespace kelmar::system
