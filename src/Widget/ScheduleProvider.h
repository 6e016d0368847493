#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Snapshots.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The Schedule widget from some moment on.
using ScheduleEntry = SnapshotEntry;

using ScheduleTimeline = EntryTimeline<ScheduleEntry>;

/// Answers the host's three requests for the Schedule widget. Keeps no state: every request reads
/// the snapshot afresh.
class ScheduleProvider {
public:
    explicit ScheduleProvider(const Surroundings& surroundings) : surroundings_(surroundings) {}

    [[nodiscard]] ScheduleEntry placeholder() const;
    [[nodiscard]] ScheduleEntry snapshot(bool isPreview) const;
    /// Entries for now and for the first 40 of the moments to come at which a block of today, or
    /// of a day before, begins or ends; to be asked for again after the next midnight.
    [[nodiscard]] ScheduleTimeline timeline() const;

private:
    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
