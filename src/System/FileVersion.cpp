#include "System/FileVersion.h"

#include <sys/stat.h>

namespace kelmar::system {

std::optional<FileVersion> fileVersion(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return FileVersion{.device = status.st_dev,
                       .number = status.st_ino,
                       .size = status.st_size,
                       .modifiedSeconds = status.st_mtim.tv_sec,
                       .modifiedNanoseconds = status.st_mtim.tv_nsec};
}

}  // namespace kelmar::system
