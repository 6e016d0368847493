#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kelmar::host {

/// Tells when one of some files has changed, appeared or gone. The files and the folders they lie
/// in may be missing and may be replaced as a whole.
class FileWatch {
public:
    virtual ~FileWatch() = default;
    /// Watches these files (absolute paths) instead of earlier ones. `changed` runs once for a
    /// burst of changes.
    virtual void watch(std::vector<std::string> paths, std::function<void()> changed) = 0;
};

}  // namespace kelmar::host
