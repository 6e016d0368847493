#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelmar::system {

/// The files that a confined process may still open, with the locale and time-zone data of the
/// system besides. What is missing is left out.
struct FileRights {
    /// Files, and folders with everything below them, that may be read.
    std::vector<std::string> readable;
    /// Folders below which regular files may be read, made, written and removed.
    std::vector<std::string> writable;
};

/// The calling process, locked in for the rest of its life, so that whoever takes it over by way
/// of what it parses gets nothing but what it needs itself: no other files (Landlock), no socket,
/// program, process or debugger (seccomp), little memory and no large files (resource limits), no
/// privilege by a program's set-user-id bit, and no descriptor but the standard three. What is
/// tried all the same fails, and is said on standard error.
class Confinement {
public:
    /// For a process that has one thread, before it reads what others wrote.
    [[nodiscard]] static Confinement enter(const FileRights& rights);

    /// What this kernel could not do, one line each. The rest is in force all the same.
    [[nodiscard]] const std::vector<std::string>& gaps() const { return gaps_; }

    /// Whether something of the caller's rights came to be, or was replaced, after the rights had
    /// been given: they hold for the files and folders themselves, not for their names, so only
    /// another process will get there.
    [[nodiscard]] bool isOutdated() const;

private:
    /// A device and a number on it; nothing where nothing stands.
    using Identity = std::optional<std::pair<std::uint64_t, std::uint64_t>>;

    [[nodiscard]] static Identity identityOf(const std::string& path);

    std::vector<std::string> gaps_;
    std::vector<std::pair<std::string, Identity>> confinedTo_;
};

}  // namespace kelmar::system
