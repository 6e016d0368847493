#pragma once

#include <optional>

#include "Shared/WidgetData.h"
#include "System/Calendar.h"
#include "System/Date.h"

namespace kelmar::demo {

/// Keeps the day streak. A day counts once everything due on it is done; one missed day a week is
/// covered by a freeze, any other ends the streak. A streak that has ended keeps its count until
/// the next day that counts starts it again at 1.
struct StreakKeeper {
    using Streak = shared::WidgetData::Streak;

    Streak streak;
    /// The streak as it was before today counted, so that an assignment that turns up again can
    /// take the day back without a trace.
    std::optional<Streak> beforeToday;

    /// A student who has kept it up for six days, with a freeze used up, before the day of `now`.
    [[nodiscard]] static StreakKeeper begun(system::Date now, const system::Calendar& calendar);

    /// Counts the day of `now`, or takes it back, by whether everything due on it is done.
    void settleToday(bool everythingDone, system::Date now, const system::Calendar& calendar);
    /// Closes the days from the one that holds `lastSeen` up to the one before `now`.
    void closeDays(system::Date lastSeen, system::Date now, const system::Calendar& calendar);

    bool operator==(const StreakKeeper&) const = default;

private:
    /// Whether the day that begins at `day` counted or could be covered.
    bool closeDay(system::Date day, const system::Calendar& calendar);
};

}  // namespace kelmar::demo
