#include "System/FileConfinement.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <linux/landlock.h>
#include <optional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "System/Descriptor.h"

namespace kelmar::system {
namespace {

// What is newer than the oldest kernel headers that this is built with.
constexpr std::uint64_t truncateFile = 1ULL << 14U;   // Version 3.
constexpr std::uint64_t controlDevice = 1ULL << 15U;  // Version 5.
constexpr std::uint64_t bindTcp = 1ULL << 0U;         // Version 4, as the next.
constexpr std::uint64_t connectTcp = 1ULL << 1U;
constexpr std::uint64_t abstractSocket = 1ULL << 0U;  // Version 6, as the next.
constexpr std::uint64_t signalOthers = 1ULL << 1U;

/// The kernel's landlock_ruleset_attr, as of version 6. An older kernel takes it as well as long
/// as the members that it does not know are zero.
struct RulesetAttributes {
    std::uint64_t fileAccess = 0;
    std::uint64_t networkAccess = 0;
    std::uint64_t scopes = 0;
};

constexpr std::uint64_t readFile = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr std::uint64_t readFolder = readFile | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t writeFolder = readFolder | LANDLOCK_ACCESS_FS_WRITE_FILE |
                                      LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_REMOVE_FILE |
                                      truncateFile;

/// Everything that a version can refuse.
RulesetAttributes attributesOf(int version) {
    RulesetAttributes attributes{.fileAccess = 2 * LANDLOCK_ACCESS_FS_MAKE_SYM - 1};
    if (version >= 2)
        attributes.fileAccess |= LANDLOCK_ACCESS_FS_REFER;
    if (version >= 3)
        attributes.fileAccess |= truncateFile;
    if (version >= 4)
        attributes.networkAccess = bindTcp | connectTcp;
    if (version >= 5)
        attributes.fileAccess |= controlDevice;
    if (version >= 6)
        attributes.scopes = abstractSocket | signalOthers;
    return attributes;
}

Failure lastError(std::string_view what) {
    return Failure{
        fmt::format("it can open every file of its user, {}: {}", what, std::strerror(errno))};
}

/// The rules that a process confines itself to.
class Ruleset {
public:
    explicit Ruleset(int version)
        : attributes_(attributesOf(version)),
          descriptor_(static_cast<int>(
              ::syscall(SYS_landlock_create_ruleset, &attributes_, sizeof attributes_, 0U))) {}

    [[nodiscard]] bool isMade() const { return descriptor_.isOpen(); }

    /// Allows what is handled of `folderAccess` below a folder, and of it what means something
    /// for a file on a single one. False with `errno` on failure; a path where nothing can be
    /// reached needs no rule.
    [[nodiscard]] bool allow(const std::string& path, std::uint64_t folderAccess) const {
        const Descriptor target(::open(path.c_str(), O_PATH | O_CLOEXEC));
        if (!target.isOpen())
            return true;
        struct stat status = {};
        if (::fstat(target.get(), &status) != 0)
            return false;
        const std::uint64_t access = S_ISDIR(status.st_mode) ? folderAccess : readFile;
        const landlock_path_beneath_attr rule = {.allowed_access = access & attributes_.fileAccess,
                                                 .parent_fd = target.get()};
        return ::syscall(SYS_landlock_add_rule, descriptor_.get(), LANDLOCK_RULE_PATH_BENEATH,
                         &rule, 0U) == 0;
    }

    [[nodiscard]] bool restrictSelf() const {
        return ::syscall(SYS_landlock_restrict_self, descriptor_.get(), 0U) == 0;
    }

private:
    RulesetAttributes attributes_;
    Descriptor descriptor_;
};

}  // namespace

int landlockVersion() {
    const long version =
        ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    return static_cast<int>(version < 0 ? -errno : version);
}

Result<Done> confineFiles(const FileRights& rights, int version) {
    if (version < 1) {
        errno = -version;
        return lastError("this kernel has no Landlock");
    }
    const Ruleset ruleset(version);
    if (!ruleset.isMade())
        return lastError("Landlock gives no set of rules");
    for (const std::string& path : rights.readable) {
        if (!ruleset.allow(path, readFolder))
            return lastError("Landlock takes no rule for " + path);
    }
    for (const std::string& path : rights.writable) {
        if (!ruleset.allow(path, writeFolder))
            return lastError("Landlock takes no rule for " + path);
    }
    if (!ruleset.restrictSelf())
        return lastError("Landlock does not put its rules in force");
    return Done{};
}

}  // namespace kelmar::system
