#include "Widget/ScheduleProvider.h"

#include <algorithm>

#include "Shared/SampleSnapshots.h"

namespace kelmar::widget {

namespace {

using shared::WidgetData;

/// What is left of a crowded day is reached by the next reload.
constexpr std::size_t mostChanges = 40;

/// The moments after `now` at which what is shown may change, each once and in order. Only days
/// before `horizon` count: whatever the blocks of a later day do, they do it behind the reload.
std::vector<system::Date> changes(const std::vector<WidgetData::ScheduleDay>& schedule,
                                  system::Date now, system::Date horizon) {
    std::vector<system::Date> dates;
    for (const WidgetData::ScheduleDay& day : schedule) {
        if (day.day >= horizon) {
            continue;
        }
        for (const WidgetData::ScheduleDay::Block& block : day.blocks) {
            for (const system::Date date : {block.start, block.end}) {
                if (date > now) {
                    dates.push_back(date);
                }
            }
        }
    }
    std::ranges::sort(dates);
    dates.erase(std::unique(dates.begin(), dates.end()), dates.end());
    dates.resize(std::min(dates.size(), mostChanges));
    return dates;
}

}  // namespace

ScheduleEntry ScheduleProvider::placeholder() const {
    return sampleEntry(shared::scheduleSample, surroundings_);
}

ScheduleEntry ScheduleProvider::snapshot(bool isPreview) const {
    return isPreview ? placeholder() : loadedEntry(surroundings_);
}

ScheduleTimeline ScheduleProvider::timeline() const {
    const ScheduleEntry first = loadedEntry(surroundings_);
    const system::Date horizon = nextMidnight(first.date, surroundings_.calendar);
    ScheduleTimeline timeline{.entries = {first}, .policy = kit::ReloadAfter{horizon}};
    if (first.data && first.data->schedule) {
        for (const system::Date date : changes(*first.data->schedule, first.date, horizon)) {
            timeline.entries.push_back({.date = date, .data = first.data});
        }
    }
    return timeline;
}

}  // namespace kelmar::widget
