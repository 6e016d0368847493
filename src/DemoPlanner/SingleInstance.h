#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <functional>
#include <memory>
#include <string>

#include "System/Result.h"

namespace kelmar::demo {

/// What one start of the program asks of the one that runs.
struct StartRequest {
    enum class Kind { show, stayInBackground, openUrl, quit };

    Kind kind = Kind::show;
    std::string url;  ///< Of `openUrl`.
    /// With which a window may come to the front; may be empty.
    std::string activationToken;

    bool operator==(const StartRequest&) const = default;
};

/// Makes sure that one program at most works on a planner folder. The first start holds a lock on
/// a file there for as long as it lives; the file names the socket on which later starts hand over
/// what they were started with. Neither a session bus nor the same environment is needed.
class SingleInstance {
public:
    /// The name of the lock file in the planner folder.
    static constexpr const char* lockName = "demo-instance";

    /// Being the only one, or having none of these when another program runs.
    [[nodiscard]] static system::Result<std::unique_ptr<SingleInstance>> claim(
        const std::string& plannerFolder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Begins to take in what later starts hand over. They wait until `handle` has run.
    system::Result<system::Done> listen(std::function<void(const StartRequest&)> handle);

    /// Hands a request to the program that runs, and waits until it has done it.
    [[nodiscard]] static system::Result<system::Done> handOver(const std::string& plannerFolder,
                                                               const StartRequest& request);

private:
    explicit SingleInstance(int lock, std::string plannerFolder)
        : lock_(lock), plannerFolder_(std::move(plannerFolder)) {}

    void greet(QLocalSocket* socket);
    void read(QLocalSocket& socket);

    int lock_;
    std::string plannerFolder_;
    QLocalServer server_;
    std::function<void(const StartRequest&)> handle_;
};

}  // namespace kelmar::demo
