#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kelmar::system {

/// Which file stands at a path, and in which state: one that was replaced or written to since is
/// another version. Says nothing about what is in it.
struct FileVersion {
    std::uint64_t device = 0;
    std::uint64_t number = 0;  ///< On its device.
    std::int64_t size = 0;     ///< In bytes.
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;

    friend bool operator==(const FileVersion&, const FileVersion&) = default;
};

/// The version that stands there now, links followed; nothing where none does.
[[nodiscard]] std::optional<FileVersion> fileVersion(const std::string& path);

}  // namespace kelmar::system
