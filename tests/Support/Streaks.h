#pragma once

#include <string>

#include "Shared/WidgetData.h"
#include "tests/Support/TestSurroundings.h"

/// Streaks around the usual day, 2025-10-09.
namespace kelmar::testing {

inline constexpr const char* usualDay = "2025-10-09";
inline constexpr const char* dayBefore = "2025-10-08";
inline constexpr const char* dayAfter = "2025-10-10";

/// A streak of `count` days of which the last is `lastDate`, with a freeze at hand.
[[nodiscard]] inline shared::WidgetData::Streak streakOf(std::int64_t count,
                                                         const std::string& lastDate) {
    return {.count = count, .best = 21, .lastDate = lastDate, .hist = {}, .freezeNext = ""};
}

[[nodiscard]] inline shared::WidgetData snapshotWith(const shared::WidgetData::Streak& streak) {
    shared::WidgetData data = snapshotOf({});
    data.streak = streak;
    return data;
}

}  // namespace kelmar::testing
