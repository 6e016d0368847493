#pragma once

#include "System/Date.h"

namespace kelmar::system {

/// What time it is. Everything that depends on the present asks a clock that it was given.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

/// The wall clock of the machine.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
};

/// A clock that stands still until it is set: the moment that a command line names, or a test's.
class ManualClock final : public Clock {
public:
    explicit ManualClock(Date now) : now_(now) {}
    [[nodiscard]] Date now() const override { return now_; }
    void set(Date now) { now_ = now; }

private:
    Date now_;
};

}  // namespace kelmar::system
