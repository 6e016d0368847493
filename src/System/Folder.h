#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "System/Result.h"

namespace kelmar::system {

/// How many bytes of room a text that was read has behind its end, so that a parser that reads
/// ahead need not copy it.
inline constexpr std::size_t spareCapacity = 64;

/// One folder of the file system that somebody else may change at any time. Nothing is cached or
/// locked; every call looks afresh. Names are single path components.
class Folder {
public:
    virtual ~Folder() = default;

    /// The names of all entries in the order in which the file system lists them; empty when the
    /// folder is missing or cannot be listed.
    [[nodiscard]] virtual std::vector<std::string> names() const = 0;
    /// The whole of a regular file (a link to one counts), or why it cannot be had. Never blocks:
    /// a FIFO, a device or a folder of that name is a failure.
    [[nodiscard]] virtual Result<std::string> read(const std::string& name) const = 0;
    /// Replaces the file's content directly (not atomically). The folder is never created.
    virtual Result<Done> write(const std::string& name, std::string_view bytes) = 0;
    virtual Result<Done> remove(const std::string& name) = 0;
};

/// A folder on disk.
class DiskFolder final : public Folder {
public:
    explicit DiskFolder(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] std::vector<std::string> names() const override;
    [[nodiscard]] Result<std::string> read(const std::string& name) const override;
    Result<Done> write(const std::string& name, std::string_view bytes) override;
    Result<Done> remove(const std::string& name) override;

private:
    [[nodiscard]] std::string pathOf(const std::string& name) const;

    std::string path_;
};

/// Reads a whole regular file by path; the same promises as Folder::read.
[[nodiscard]] Result<std::string> readFile(const std::string& path);

}  // namespace kelmar::system
