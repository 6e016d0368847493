#include "Host/InotifyFileWatch.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sys/inotify.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kelmar::host {
namespace {

constexpr std::uint32_t folderWentAway = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t entryCame = IN_CREATE | IN_MOVED_TO | IN_ATTRIB;
/// Every end of a change, but not each write on the way there, whichever file of the folder it
/// goes to: a neighbour that is written to all day shall not wake us.
constexpr std::uint32_t entryChanged = entryCame | IN_CLOSE_WRITE | IN_MOVED_FROM | IN_DELETE;

bool isFolder(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

bool mayBeRead(const std::filesystem::path& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), R_OK, AT_EACCESS) == 0;
}

/// The nearest folder that is there awaits the next step towards the file; those above it matter
/// only in that they may be moved or deleted.
void planFile(const std::filesystem::path& file, InotifyFileWatch::Plan& plan) {
    auto step = file;
    while (!isFolder(step.parent_path()) && step != step.parent_path()) {
        step = step.parent_path();
    }
    auto& place = plan[step.parent_path()];
    place.events |= folderWentAway | (step == file ? entryChanged : entryCame);
    place.names.insert(step.filename());
    // What may not be read cannot be watched either; the folder above tells when that changes.
    if (const auto nearest = step.parent_path(); !mayBeRead(nearest)) {
        auto& above = plan[nearest.parent_path()];
        above.events |= IN_ATTRIB;
        above.names.insert(nearest.filename());
    }
    for (auto folder = step.parent_path(); folder != folder.parent_path();) {
        folder = folder.parent_path();
        plan[folder].events |= folderWentAway;
    }
}

InotifyFileWatch::Plan planFor(const std::vector<std::string>& paths) {
    InotifyFileWatch::Plan plan;
    for (const auto& path : paths) {
        planFile(std::filesystem::path(path).lexically_normal(), plan);
    }
    return plan;
}

}  // namespace

InotifyFileWatch::InotifyFileWatch(const HostLimits& limits, Timers& timers, Log& log)
    : burst_(limits.fileBurst),
      log_(log),
      descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
      burstTimer_(timers.make([this] { endBurst(); })) {
    if (descriptor_ < 0) {
        log_.write(LogLevel::error,
                   fmt::format("files cannot be watched ({}; see fs.inotify.max_user_instances); "
                               "widgets are not reloaded when they change",
                               std::strerror(errno)));
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { readEvents(); });
}

InotifyFileWatch::~InotifyFileWatch() {
    notifier_.reset();
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void InotifyFileWatch::watch(std::vector<std::string> paths, std::function<void()> changed) {
    paths_ = std::move(paths);
    changed_ = std::move(changed);
    place();
}

void InotifyFileWatch::place() {
    if (descriptor_ < 0) {
        return;
    }
    // A folder may come or go between the look at it and the watch on it, so look again after. The
    // number of tries is limited for somebody who makes and deletes folders all the time.
    constexpr int tries = 8;
    for (int count = 0; count < tries; ++count) {
        const auto plan = planFor(paths_);
        apply(plan);
        if (planFor(paths_) == plan) {
            return;
        }
    }
    noteChange();
}

/// New watches are set before old ones go: a folder that stays keeps its watch and loses no event.
void InotifyFileWatch::apply(const Plan& plan) {
    const auto earlier = std::exchange(watches_, {});
    for (const auto& [folder, place] : plan) {
        const int watch = inotify_add_watch(descriptor_, folder.c_str(), place.events | IN_ONLYDIR);
        if (watch >= 0) {
            watches_[watch] = place;
            unwatchable_.erase(folder);
        } else if (errno != ENOENT && !place.names.empty() && unwatchable_.insert(folder).second) {
            log_.write(LogLevel::warning,
                       fmt::format("{} cannot be watched ({}); widgets are not reloaded when "
                                   "something changes there",
                                   folder, std::strerror(errno)));
        }
    }
    for (const auto& [watch, place] : earlier) {
        if (!watches_.contains(watch)) {
            inotify_rm_watch(descriptor_, watch);
        }
    }
}

void InotifyFileWatch::readEvents() {
    alignas(inotify_event) std::array<char, 16'384> bytes{};
    for (;;) {
        const auto count = read(descriptor_, bytes.data(), bytes.size());
        if (count <= 0) {
            return;
        }
        for (std::size_t offset = 0; offset < static_cast<std::size_t>(count);) {
            inotify_event event{};
            std::memcpy(&event, &bytes.at(offset), sizeof event);
            const auto* const name = &bytes.at(offset + sizeof event - 1) + 1;
            if (concernsUs(event, event.len > 0 ? name : "")) {
                noteChange();
            }
            offset += sizeof event + event.len;
        }
    }
}

/// An event without a name is about the folder itself.
bool InotifyFileWatch::concernsUs(const inotify_event& event, std::string_view name) const {
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
        return true;
    }
    const auto watch = watches_.find(event.wd);
    return watch != watches_.end() && (name.empty() || watch->second.names.contains(name));
}

/// A burst is measured from its first change, so that somebody who never stops writing is heard.
void InotifyFileWatch::noteChange() {
    if (!std::exchange(burstRuns_, true)) {
        burstTimer_->start(burst_);
    }
}

void InotifyFileWatch::endBurst() {
    burstRuns_ = false;
    place();
    changed_();
}

}  // namespace kelmar::host
