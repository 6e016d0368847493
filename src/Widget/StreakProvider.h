#pragma once

#include "Widget/BundledWidget.h"
#include "Widget/Snapshots.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The Streak widget from some moment on.
using StreakEntry = SnapshotEntry;

using StreakTimeline = EntryTimeline<StreakEntry>;

/// Answers the host's three requests for the Streak widget. Keeps no state: every request reads
/// the snapshot afresh.
class StreakProvider {
public:
    explicit StreakProvider(const Surroundings& surroundings) : surroundings_(surroundings) {}

    [[nodiscard]] StreakEntry placeholder() const;
    [[nodiscard]] StreakEntry snapshot(bool isPreview) const;
    /// Entries for the moments at which the outcome of a day can change: now, the next two
    /// midnights and, as far as they are still to come, the late hours of today and tomorrow. To be
    /// asked for again after the second midnight.
    [[nodiscard]] StreakTimeline timeline() const;

private:
    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
