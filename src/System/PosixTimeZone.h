#pragma once

#include <memory>
#include <string>
#include <unicode/timezone.h>

namespace kelmar::system {

/// What a time zone rule comes to: one in the form that POSIX.1-2017 gives to the environment
/// variable TZ (section 8.3), "CET-1CEST,M3.5.0,M10.5.0/3". ICU knows zones by their names only.
struct PosixTimeZone {
    std::unique_ptr<icu::TimeZone> zone;  ///< None for a text that is no such rule.
    /// Whether it has daylight saving time that is left out: the rule does not say when (each C
    /// library takes what it likes), counts its days from zero, or has the clocks change at a time
    /// of day that no day has.
    bool lacksDaylightSaving = false;
};

[[nodiscard]] PosixTimeZone readPosixTimeZone(const std::string& rule);

}  // namespace kelmar::system
