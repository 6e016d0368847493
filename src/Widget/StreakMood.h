#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "Shared/WidgetData.h"
#include "System/Calendar.h"
#include "System/Localization.h"

/// How a streak stands at a moment, and the words for it.
namespace kelmar::widget {

/// The moods of a streak.
namespace mood {

/// Today counts and makes the streak as long as one of the lengths that are worth a word.
struct Milestone {
    std::int64_t count = 0;
    bool operator==(const Milestone&) const = default;
};

/// Today counts.
struct Done {
    bool operator==(const Done&) const = default;
};

/// Today does not count yet, and there is a streak to lose.
struct AtRisk {
    bool late = false;  ///< From 21:00 on by the wall clock.
    bool operator==(const AtRisk&) const = default;
};

/// There is no streak.
struct Start {
    bool operator==(const Start&) const = default;
};

}  // namespace mood

using Mood = std::variant<mood::Milestone, mood::Done, mood::AtRisk, mood::Start>;

[[nodiscard]] bool todayCounts(const Mood& mood);

/// A streak as the calendar sees it at a moment.
struct StreakStanding {
    Mood mood;
    std::int64_t shownCount = 0;  ///< The streak's length; none where it has ended.
    bool hasFreeze = false;       ///< Whether a freeze would cover today.

    bool operator==(const StreakStanding&) const = default;
};

[[nodiscard]] StreakStanding standing(const shared::WidgetData::Streak& streak, system::Date at,
                                      const system::Calendar& calendar);

enum class HeadlineLength { shortForm, longForm };

[[nodiscard]] std::string headline(const Mood& mood, HeadlineLength length,
                                   const system::Localization& localization);
/// What today means for the streak.
[[nodiscard]] std::string subline(const StreakStanding& standing,
                                  const system::Localization& localization);

}  // namespace kelmar::widget
