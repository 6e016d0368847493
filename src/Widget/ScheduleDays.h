#pragma once

#include <string>
#include <vector>

#include "Shared/WidgetData.h"
#include "Widget/Surroundings.h"

/// Which day of the timetable is shown at a moment, and how far it has got by then.
namespace kelmar::widget {

using ScheduleDay = shared::WidgetData::ScheduleDay;
using ScheduleBlock = ScheduleDay::Block;

/// Today while a block of it is still to end, else the next day of the list that has blocks, or
/// nothing. A day that starts later than `now` counts as a next one: where the planner dates today
/// by a later hour, today comes back with finished blocks.
[[nodiscard]] const ScheduleDay* shownDay(const std::vector<ScheduleDay>& schedule,
                                          system::Date now, const system::Calendar& calendar);

/// "Today", "Tomorrow" or the weekday. "Tomorrow" is meant for who looks at the widget, so it is
/// the one text that asks the clock: an entry that outlives its day does not use it.
[[nodiscard]] std::string dayTitle(system::Date day, system::Date now,
                                   const Surroundings& surroundings);

[[nodiscard]] inline bool hasEnded(const ScheduleBlock& block, system::Date now) {
    return block.end <= now;
}

/// A day at a moment. Refers to the day.
struct DayProgress {
    const ScheduleBlock* current = nullptr;  ///< The first block that is running.
    std::vector<const ScheduleBlock*> rest;  ///< What has not finished, but for the current block.

    /// Whether a block is the current one or equal to it in every field.
    [[nodiscard]] bool isCurrent(const ScheduleBlock& block) const {
        return current != nullptr && block == *current;
    }
};

[[nodiscard]] DayProgress dayProgress(const ScheduleDay& day, system::Date now);

}  // namespace kelmar::widget
