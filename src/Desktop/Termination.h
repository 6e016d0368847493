#pragma once

#include <QObject>
#include <array>
#include <functional>

class QSocketNotifier;

namespace kelmar::desktop {

/// From here on SIGTERM, SIGINT and SIGHUP end the process as a wish that was granted, with exit
/// status 0: there is nothing to save yet, and a start that waits for something, such as the X
/// server, shall not have to be waited for.
void endOnSignals();

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the event loop, where it is safe to save and
/// tidy up. One a process; after it `endOnSignals` holds again.
class Termination final : public QObject {
public:
    explicit Termination(std::function<void()> requested);
    ~Termination() override;

private:
    std::array<int, 2> pipe_{-1, -1};
    std::function<void()> requested_;
};

}  // namespace kelmar::desktop
