#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Snapshots.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The Study Timer widget from some moment on.
using TimerEntry = SnapshotEntry;

using TimerTimeline = EntryTimeline<TimerEntry>;

/// Answers the host's three requests for the Study Timer widget. Keeps no state: every request
/// reads the snapshot afresh.
class TimerProvider {
public:
    explicit TimerProvider(const Surroundings& surroundings) : surroundings_(surroundings) {}

    [[nodiscard]] TimerEntry placeholder() const;
    [[nodiscard]] TimerEntry snapshot(bool isPreview) const;
    /// Entries for now and for the end of a session that is still to come. What happens in between
    /// the host counts down by itself, and only the planner can know what happens after: the
    /// timeline never asks to be reloaded.
    [[nodiscard]] TimerTimeline timeline() const;

private:
    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
