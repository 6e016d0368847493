#include "Widget/StreakProvider.h"

#include <algorithm>

#include "Shared/SampleSnapshots.h"

namespace kelmar::widget {

namespace {

/// From the start of a day to its late hour. Elapsed time: on a day of a clock change the wall
/// clock then shows another hour than on other days.
constexpr system::Seconds untilLate = 21 * 3600;

}  // namespace

StreakEntry StreakProvider::placeholder() const {
    return sampleEntry(shared::streakSample, surroundings_);
}

StreakEntry StreakProvider::snapshot(bool isPreview) const {
    return isPreview ? placeholder() : loadedEntry(surroundings_);
}

StreakTimeline StreakProvider::timeline() const {
    const StreakEntry first = loadedEntry(surroundings_);
    const system::Calendar& calendar = surroundings_.calendar;
    const system::Date today = calendar.startOfDay(first.date);
    const system::Date tomorrow = nextMidnight(today, calendar);
    const system::Date dayAfter = nextMidnight(tomorrow, calendar);

    std::vector<system::Date> dates{first.date, tomorrow, dayAfter};
    for (const system::Date late : {today + untilLate, tomorrow + untilLate}) {
        if (first.date < late && late < dayAfter) {
            dates.push_back(late);
        }
    }
    std::ranges::stable_sort(dates);

    StreakTimeline timeline{.entries = {}, .policy = kit::ReloadAfter{dayAfter}};
    for (const system::Date date : dates) {
        timeline.entries.push_back({.date = date, .data = first.data});
    }
    return timeline;
}

}  // namespace kelmar::widget
