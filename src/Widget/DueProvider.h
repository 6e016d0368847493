#pragma once

#include <optional>

#include "Shared/WidgetTicks.h"
#include "Widget/BundledWidget.h"
#include "Widget/Snapshots.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The Due Today widget from some moment on.
struct DueEntry {
    system::Date date;
    Snapshot data;
    std::optional<shared::WidgetTicks::Tick> undo;  ///< The tick that may still be taken back.
};

using DueTimeline = EntryTimeline<DueEntry>;

/// Answers the host's three requests for the Due Today widget. Keeps no state: every request reads
/// the snapshot and the tick journal afresh.
class DueProvider {
public:
    explicit DueProvider(const Surroundings& surroundings) : surroundings_(surroundings) {}

    [[nodiscard]] DueEntry placeholder() const;
    [[nodiscard]] DueEntry snapshot(bool isPreview) const;
    /// Entries for now, the next two midnights and, behind the first, for the end of an undo; to be
    /// asked for again after the second midnight.
    [[nodiscard]] DueTimeline timeline() const;

private:
    [[nodiscard]] DueEntry sampleEntry(system::Date now) const;
    [[nodiscard]] Snapshot loadWithoutPending() const;

    const Surroundings& surroundings_;
};

}  // namespace kelmar::widget
