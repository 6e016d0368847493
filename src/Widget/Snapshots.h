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

/// The next midnight, which every calendar in use can produce: fatal where it cannot.
[[nodiscard]] system::Date nextMidnight(system::Date date, const system::Calendar& calendar);
/// Calendar addition of days, equally sure.
[[nodiscard]] system::Date addingDays(system::Date date, int days,
                                      const system::Calendar& calendar);

}  // namespace kelmar::widget
