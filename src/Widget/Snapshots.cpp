#include "Widget/Snapshots.h"

#include "Shared/PlannerFiles.h"
#include "System/Fatal.h"

namespace kelmar::widget {

namespace {

system::Date orFatal(std::optional<system::Date> date) {
    if (!date) {
        system::fatal("The calendar cannot produce the next day.");
    }
    return *date;
}

}  // namespace

Snapshot loadSnapshot(const Surroundings& surroundings) {
    auto data = shared::loadSnapshot(surroundings.plannerFolder);
    return data ? std::make_shared<const shared::WidgetData>(std::move(*data)) : nullptr;
}

SnapshotEntry sampleEntry(Sample sample, const Surroundings& surroundings) {
    const system::Date now = surroundings.clock.now();
    return {.date = now,
            .data = std::make_shared<const shared::WidgetData>(sample(now, surroundings.calendar))};
}

SnapshotEntry loadedEntry(const Surroundings& surroundings) {
    return {.date = surroundings.clock.now(), .data = loadSnapshot(surroundings)};
}

system::Date nextMidnight(system::Date date, const system::Calendar& calendar) {
    return orFatal(calendar.startOfNextDay(date));
}

system::Date addingDays(system::Date date, int days, const system::Calendar& calendar) {
    return orFatal(calendar.addingDays(date, days));
}

}  // namespace kelmar::widget
