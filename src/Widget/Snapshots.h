#pragma once

#include <memory>

#include "Shared/WidgetData.h"
#include "System/Calendar.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// A snapshot as entries carry it, or nothing when there is none. The entries of one timeline share
/// it, which is safe because it never changes.
using Snapshot = std::shared_ptr<const shared::WidgetData>;

/// Reads the planner's file afresh.
[[nodiscard]] Snapshot loadSnapshot(const Surroundings& surroundings);

/// An entry of a widget that shows the snapshot and nothing beside it.
struct SnapshotEntry {
    system::Date date;
    Snapshot data;
};

/// One of the built-in snapshots, made for a moment.
using Sample = shared::WidgetData (*)(system::Date now, const system::Calendar& calendar);

/// The entry of now that shows a sample. Touches no file.
[[nodiscard]] SnapshotEntry sampleEntry(Sample sample, const Surroundings& surroundings);
/// The entry of now that shows what the planner's file says.
[[nodiscard]] SnapshotEntry loadedEntry(const Surroundings& surroundings);

/// The next midnight, which every calendar in use can produce: fatal where it cannot.
[[nodiscard]] system::Date nextMidnight(system::Date date, const system::Calendar& calendar);
/// Calendar addition of days, equally sure.
[[nodiscard]] system::Date addingDays(system::Date date, int days,
                                      const system::Calendar& calendar);

}  // namespace kelmar::widget
