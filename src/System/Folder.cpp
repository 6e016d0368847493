#include "System/Folder.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "System/Descriptor.h"

namespace kelmar::system {
namespace {

/// Far above any snapshot or note, and far below what would trouble the machine.
constexpr off_t largestFile = off_t{256} << 20;

/// Opening never waits for the other end of a FIFO, never makes a terminal the process's own, and
/// is never inherited.
constexpr int commonFlags = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

Failure failure(const std::string& path, const std::string& reason) {
    return Failure{path + ": " + reason};
}

Failure lastError(const std::string& path) {
    return failure(path, std::strerror(errno));
}

/// The size of a regular file, or why it is none that may be read or written here.
Result<std::size_t> regularSize(const Descriptor& file, const std::string& path) {
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0)
        return lastError(path);
    if (!S_ISREG(status.st_mode))
        return failure(path, "not a regular file");
    if (status.st_size > largestFile)
        return failure(path, "too large");
    return static_cast<std::size_t>(status.st_size);
}

/// Repeats what a signal has interrupted.
template <class Call>
ssize_t uninterrupted(Call call) {
    ssize_t result = 0;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

Result<std::string> readAll(const Descriptor& file, std::size_t expectedSize,
                            const std::string& path) {
    std::string bytes;
    std::size_t size = 0;
    // One byte more than expected is asked for: getting none says that the end has been reached,
    // also when somebody changes the file meanwhile.
    bytes.reserve(expectedSize + 1 + spareCapacity);
    bytes.resize(expectedSize + 1);
    for (;;) {
        const ssize_t count = uninterrupted(
            [&] { return ::read(file.get(), bytes.data() + size, bytes.size() - size); });
        if (count < 0)
            return lastError(path);
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
        if (size > static_cast<std::size_t>(largestFile))
            return failure(path, "too large");
        if (size == bytes.size())
            bytes.resize(size * 2);
    }
    bytes.resize(size);
    bytes.reserve(size + spareCapacity);
    return bytes;
}

Result<Done> writeAll(const Descriptor& file, std::string_view bytes, const std::string& path) {
    if (::ftruncate(file.get(), 0) != 0)
        return lastError(path);
    while (!bytes.empty()) {
        const ssize_t count =
            uninterrupted([&] { return ::write(file.get(), bytes.data(), bytes.size()); });
        if (count < 0)
            return lastError(path);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return Done{};
}

bool isSingleComponent(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

}  // namespace

std::vector<std::string> DiskFolder::names() const {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(path_.c_str()), &::closedir);
    std::vector<std::string> result;
    if (!listing)
        return result;
    while (const dirent* entry = ::readdir(listing.get())) {
        if (isSingleComponent(entry->d_name))
            result.emplace_back(entry->d_name);
    }
    return result;
}

Result<std::string> DiskFolder::read(const std::string& name) const {
    if (!isSingleComponent(name))
        return failure(name, "not the name of a file in a folder");
    return readFile(pathOf(name));
}

Result<Done> DiskFolder::write(const std::string& name, std::string_view bytes) {
    if (!isSingleComponent(name))
        return failure(name, "not the name of a file in a folder");
    const std::string path = pathOf(name);
    constexpr mode_t mode = 0644;
    const int fresh = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | commonFlags, mode);
    const Descriptor file(
        fresh >= 0 ? fresh : ::open(path.c_str(), O_WRONLY | O_CREAT | commonFlags, mode));
    if (!file.isOpen())
        return lastError(path);
    const Result<std::size_t> size = regularSize(file, path);
    if (!size)
        return size.failure();
    Result<Done> written = writeAll(file, bytes, path);
    // A name may mean something by itself, so a failure leaves none that was not there before.
    if (!written && fresh >= 0)
        ::unlink(path.c_str());
    return written;
}

Result<Done> DiskFolder::remove(const std::string& name) {
    if (!isSingleComponent(name))
        return failure(name, "not the name of a file in a folder");
    const std::string path = pathOf(name);
    if (::unlink(path.c_str()) != 0)
        return lastError(path);
    return Done{};
}

std::string DiskFolder::pathOf(const std::string& name) const {
    return path_ + "/" + name;
}

Result<std::string> readFile(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | commonFlags));
    if (!file.isOpen())
        return lastError(path);
    const Result<std::size_t> size = regularSize(file, path);
    if (!size)
        return size.failure();
    return readAll(file, *size, path);
}

}  // namespace kelmar::system
