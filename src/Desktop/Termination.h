#pragma once

#include <QObject>
#include <array>
#include <functional>

class QSocketNotifier;

namespace kelmar::desktop {

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the event loop, where it is safe to save and
/// tidy up. One a process.
class Termination final : public QObject {
public:
    explicit Termination(std::function<void()> requested);
    ~Termination() override;

private:
    std::array<int, 2> pipe_{-1, -1};
    std::function<void()> requested_;
};

}  // namespace kelmar::desktop
