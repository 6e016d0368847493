#include "Host/TimelineSchedule.h"

#include <variant>

namespace kelmar::host {

std::size_t shownEntryIndex(const kit::Timeline& timeline, system::Date now) {
    for (auto index = timeline.entries.size(); index-- > 0;) {
        if (timeline.entries[index].date <= now) {
            return index;
        }
    }
    return 0;
}

std::optional<system::Date> nextEntryChange(const kit::Timeline& timeline, system::Date now) {
    // All entries behind the shown one are still to come, and each of them would take its place.
    // Those before it cannot, whenever their time comes.
    std::optional<system::Date> next;
    for (auto index = shownEntryIndex(timeline, now) + 1; index < timeline.entries.size();
         ++index) {
        const auto date = timeline.entries[index].date;
        if (!next || date < *next) {
            next = date;
        }
    }
    return next;
}

std::optional<system::Date> reloadDate(const kit::Timeline& timeline) {
    return std::visit(
        kit::Match{
            [](const kit::ReloadAfter& after) { return std::optional(after.date); },
            [](const kit::ReloadNever&) -> std::optional<system::Date> { return std::nullopt; },
        },
        timeline.policy);
}

}  // namespace kelmar::host
