#pragma once

#include <optional>
#include <string>

#include "System/Date.h"

namespace kelmar::tools {

/// A point in time as a command line names it: seconds since 1970, or ISO 8601 with an offset from
/// UTC ("2025-03-07T15:30:00-05:00"). Nothing for anything else: a time without an offset would
/// mean something else on every machine.
[[nodiscard]] std::optional<system::Date> momentNamed(const std::string& text);

/// ISO 8601 in UTC, for people.
[[nodiscard]] std::string describedMoment(system::Date date);

}  // namespace kelmar::tools
