#include "Host/Timers.h"

#include <QTimer>
#include <utility>

namespace kelmar::host {
namespace {

class QtTimer final : public Timer {
public:
    explicit QtTimer(std::function<void()> fired) {
        timer_.setSingleShot(true);
        timer_.callOnTimeout(std::move(fired));
    }
    void start(std::chrono::milliseconds delay) override { timer_.start(delay); }
    void stop() override { timer_.stop(); }

private:
    QTimer timer_;
};

}  // namespace

std::chrono::milliseconds QtTimers::elapsed() const {
    return std::chrono::milliseconds(elapsed_.elapsed());
}

std::unique_ptr<Timer> QtTimers::make(std::function<void()> fired) {
    return std::make_unique<QtTimer>(std::move(fired));
}

}  // namespace kelmar::host
