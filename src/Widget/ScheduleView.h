#pragma once

#include <string>

#include "Kit/Timeline.h"
#include "Widget/ScheduleDays.h"
#include "Widget/ScheduleProvider.h"
#include "Widget/ScheduleRows.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// What the Schedule widget shows for an entry: a day's blocks as far as the family has room for
/// them, or a sentence that says why there are none.
class ScheduleView {
public:
    ScheduleView(const ScheduleEntry& entry, const kit::Environment& environment, kit::Color accent,
                 const Surroundings& surroundings);

    [[nodiscard]] kit::DrawnEntry body() const;

private:
    [[nodiscard]] kit::DrawnEntry content(const ScheduleDay& day) const;
    [[nodiscard]] kit::View header(const ScheduleDay& day) const;
    [[nodiscard]] kit::View labelChip(const std::string& label) const;
    [[nodiscard]] kit::Children smallBlocks(const DayProgress& progress) const;
    [[nodiscard]] kit::Children mediumBlocks(const DayProgress& progress) const;
    [[nodiscard]] kit::View largeBlocks(const ScheduleDay& day, const DayProgress& progress) const;
    [[nodiscard]] kit::View empty(std::string message) const;

    const ScheduleEntry& entry_;
    kit::Environment environment_;
    kit::Color accent_;
    const Surroundings& surroundings_;
    ScheduleRows rows_;
};

}  // namespace kelmar::widget
