#pragma once

#include <QElapsedTimer>
#include <chrono>
#include <functional>
#include <memory>

namespace kelmar::host {

/// Fires once, some time after it was started. Starting it again takes the earlier start back.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void start(std::chrono::milliseconds delay) = 0;
    virtual void stop() = 0;
};

/// Elapsed time, for limits and retries: no step of the wall clock touches it and sleep does not
/// count, so an extension that was asleep with the machine is not taken for one that hangs.
class Timers {
public:
    virtual ~Timers() = default;
    /// Since some fixed moment.
    [[nodiscard]] virtual std::chrono::milliseconds elapsed() const = 0;
    [[nodiscard]] virtual std::unique_ptr<Timer> make(std::function<void()> fired) = 0;
};

/// Timers of the thread's Qt event loop.
class QtTimers final : public Timers {
public:
    QtTimers() { elapsed_.start(); }
    [[nodiscard]] std::chrono::milliseconds elapsed() const override;
    [[nodiscard]] std::unique_ptr<Timer> make(std::function<void()> fired) override;

private:
    QElapsedTimer elapsed_;
};

}  // namespace kelmar::host
