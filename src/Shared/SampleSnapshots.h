#pragma once

#include "Shared/WidgetData.h"
#include "System/Calendar.h"
#include "System/Date.h"

/// Snapshots for the gallery and for placeholders, built relative to the moment they are asked for.
namespace kelmar::shared {

[[nodiscard]] WidgetData sample(system::Date now, const system::Calendar& calendar);
[[nodiscard]] WidgetData scheduleSample(system::Date now, const system::Calendar& calendar);
[[nodiscard]] WidgetData streakSample(system::Date now, const system::Calendar& calendar);
[[nodiscard]] WidgetData timerSample(system::Date now, const system::Calendar& calendar);

}  // namespace kelmar::shared
