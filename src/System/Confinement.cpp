#include "System/Confinement.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "System/FileConfinement.h"
#include "System/ResourceLimits.h"
#include "System/SystemCallFilter.h"

namespace kelmar::system {
namespace {

/// Where systems keep the data behind time zones, locales and translations. The time zone may be
/// set at any time, and is looked up afresh for every request.
constexpr std::array sharedData{"/usr/share/zoneinfo",     "/etc/localtime",
                                "/usr/share/zoneinfo-icu", "/usr/share/icu",
                                "/usr/share/locale",       "/usr/lib/locale"};

Result<Done> refuseNewPrivileges() {
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1UL, 0UL, 0UL, 0UL) != 0)
        return Failure{fmt::format("privileges can be gained: {}", std::strerror(errno))};
    return Done{};
}

/// The libraries behind the account database keep connections open.
Result<Done> closeInheritedFiles() {
    if (::close_range(STDERR_FILENO + 1, ~0U, 0) != 0)
        return Failure{fmt::format("open files stay open: {}", std::strerror(errno))};
    return Done{};
}

}  // namespace

Confinement Confinement::enter(const FileRights& rights) {
    Confinement confinement;
    // Looked at before the rights are given: what comes in between counts as new.
    for (const std::vector<std::string>* const paths : {&rights.readable, &rights.writable}) {
        for (const std::string& path : *paths)
            confinement.confinedTo_.emplace_back(path, identityOf(path));
    }
    FileRights all = rights;
    all.readable.insert(all.readable.end(), sharedData.begin(), sharedData.end());
    // The filter comes last, because it would refuse the others; each goes on without those that
    // failed.
    const auto note = [&](const Result<Done>& step) {
        if (!step)
            confinement.gaps_.push_back(step.failure().reason);
    };
    note(closeInheritedFiles());
    note(limitResources());
    note(refuseNewPrivileges());
    note(confineFiles(all, landlockVersion()));
    note(filterSystemCalls());
    return confinement;
}

bool Confinement::isOutdated() const {
    return std::ranges::any_of(confinedTo_, [](const auto& confined) {
        const Identity now = identityOf(confined.first);
        return now && now != confined.second;
    });
}

Confinement::Identity Confinement::identityOf(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return std::pair(std::uint64_t{status.st_dev}, std::uint64_t{status.st_ino});
}

}  // namespace kelmar::system
