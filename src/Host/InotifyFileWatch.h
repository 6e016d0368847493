#pragma once

#include <QSocketNotifier>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Host/FileWatch.h"
#include "Host/HostLimits.h"
#include "Host/Log.h"
#include "Host/Timers.h"

struct inotify_event;

namespace kelmar::host {

/// Watches through inotify(7) the folder of each file, or, while that is missing, the nearest
/// folder above it that is there. The file itself is never watched: a file that is replaced by
/// renaming another over it would take the watch away with it.
class InotifyFileWatch final : public FileWatch {
public:
    /// What is awaited in one folder.
    struct Place {
        std::uint32_t events = 0;
        std::set<std::string, std::less<>> names;
        bool operator==(const Place&) const = default;
    };
    /// By the folder's path.
    using Plan = std::map<std::string, Place>;

    InotifyFileWatch(const HostLimits& limits, Timers& timers, Log& log);
    ~InotifyFileWatch() override;
    InotifyFileWatch(const InotifyFileWatch&) = delete;
    InotifyFileWatch& operator=(const InotifyFileWatch&) = delete;

    void watch(std::vector<std::string> paths, std::function<void()> changed) override;

private:
    void place();
    void apply(const Plan& plan);
    void readEvents();
    [[nodiscard]] bool concernsUs(const inotify_event& event, std::string_view name) const;
    void noteChange();
    void endBurst();

    std::vector<std::string> paths_;
    std::function<void()> changed_;
    std::map<int, Place> watches_;  ///< By the kernel's number of the watch.
    std::set<std::string> unwatchable_;
    bool burstRuns_ = false;
    std::chrono::milliseconds burst_;
    Log& log_;
    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::unique_ptr<Timer> burstTimer_;
};

}  // namespace kelmar::host
