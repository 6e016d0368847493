#pragma once

#include <string>

#include "DemoPlanner/Assignment.h"
#include "Shared/WidgetData.h"
#include "System/Calendar.h"
#include "System/Date.h"
#include "System/LocaleTexts.h"

namespace kelmar::demo {

/// What the planner's own window says. It speaks English; times are the user's.

/// "overdue", "due 3:30 PM", "due today" or "done".
[[nodiscard]] std::string dueText(const Assignment& assignment, system::Date now,
                                  const system::LocaleTexts& texts);

struct TimerTexts {
    std::string title;   ///< What is studied.
    std::string status;  ///< "until 3:30 PM", "12:30 left" ...
    std::string button;  ///< What pressing the timer's button does.

    bool operator==(const TimerTexts&) const = default;
};
[[nodiscard]] TimerTexts timerTexts(const shared::WidgetData::Timer& timer,
                                    const system::LocaleTexts& texts);

struct StreakTexts {
    std::string title;
    std::string status;

    bool operator==(const StreakTexts&) const = default;
};
[[nodiscard]] StreakTexts streakTexts(const shared::WidgetData::Streak& streak, system::Date now,
                                      const system::Calendar& calendar);

}  // namespace kelmar::demo
