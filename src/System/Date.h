#pragma once

#include <compare>

namespace kelmar::system {

/// A span of elapsed time, in seconds; fractions count.
using Seconds = double;

/// A point in time. Two epochs are in use: everything is seconds since 1970-01-01 00:00 UTC
/// except the moment in a tick file, which counts from 2001-01-01 00:00 UTC. The factories and
/// readers name their epoch so that the two cannot be mixed up.
class Date {
public:
    constexpr Date() = default;

    [[nodiscard]] static constexpr Date since1970(Seconds seconds) { return Date(seconds); }
    [[nodiscard]] static constexpr Date since2001(Seconds seconds) {
        return Date(seconds + epochs2001Minus1970);
    }

    [[nodiscard]] constexpr Seconds secondsSince1970() const { return seconds_; }
    [[nodiscard]] constexpr Seconds secondsSince2001() const {
        return seconds_ - epochs2001Minus1970;
    }

    friend constexpr auto operator<=>(Date, Date) = default;  // NOLINT(modernize-use-nullptr)
    friend constexpr Date operator+(Date date, Seconds elapsed) {
        return Date(date.seconds_ + elapsed);
    }
    friend constexpr Seconds operator-(Date later, Date earlier) {
        return later.seconds_ - earlier.seconds_;
    }

private:
    static constexpr Seconds epochs2001Minus1970 = 978'307'200;

    explicit constexpr Date(Seconds seconds) : seconds_(seconds) {}

    Seconds seconds_ = 0;
};

}  // namespace kelmar::system
