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

system::Date nextMidnight(system::Date date, const system::Calendar& calendar) {
    return orFatal(calendar.startOfNextDay(date));
}

system::Date addingDays(system::Date date, int days, const system::Calendar& calendar) {
    return orFatal(calendar.addingDays(date, days));
}

}  // namespace kelmar::widget
