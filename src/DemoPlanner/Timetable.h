#pragma once

#include <vector>

#include "DemoPlanner/Coursework.h"
#include "Shared/WidgetData.h"
#include "System/Calendar.h"
#include "System/Date.h"

namespace kelmar::demo {

/// The calendars that the stand-in lives by.
struct Calendars {
    const system::Calendar& own;        ///< The user's.
    const system::Calendar& gregorian;  ///< By which schools keep their week, in the same zone.
};

/// The timetable of the week that begins with the day of `now`: classes on school days, which are
/// A and B days in turn, and study sessions in the afternoon for what is due the day after.
[[nodiscard]] std::vector<shared::WidgetData::ScheduleDay> timetable(const Coursework& coursework,
                                                                     system::Date now,
                                                                     const Calendars& calendars);

}  // namespace kelmar::demo
