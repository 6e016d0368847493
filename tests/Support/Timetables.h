#pragma once

#include <string>
#include <vector>

#include "Widget/ScheduleDays.h"
#include "tests/Support/TestSurroundings.h"

/// Timetables whose other fields do not matter.
namespace kelmar::testing {

/// A class of the timetable.
[[nodiscard]] inline widget::ScheduleBlock block(const std::string& title, system::Date start,
                                                 system::Date end) {
    return {.kind = "period",
            .start = start,
            .end = end,
            .title = title,
            .color = "#10B981",
            .done = false,
            .assignmentId = "",
            .classId = "class " + title};
}

[[nodiscard]] inline widget::ScheduleDay dayOf(system::Date day,
                                               std::vector<widget::ScheduleBlock> blocks,
                                               std::vector<std::string> labels = {}) {
    return {.day = day, .labels = std::move(labels), .blocks = std::move(blocks)};
}

[[nodiscard]] inline shared::WidgetData scheduleOf(std::vector<widget::ScheduleDay> schedule) {
    shared::WidgetData data = snapshotOf({});
    data.schedule = std::move(schedule);
    return data;
}

}  // namespace kelmar::testing
