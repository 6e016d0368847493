#include "Widget/TimerProvider.h"

#include "Shared/SampleSnapshots.h"

namespace kelmar::widget {

using shared::WidgetData;

TimerEntry TimerProvider::placeholder() const {
    const system::Date now = surroundings_.clock.now();
    return {.date = now,
            .data = std::make_shared<const WidgetData>(
                shared::timerSample(now, surroundings_.calendar))};
}

TimerEntry TimerProvider::snapshot(bool isPreview) const {
    if (isPreview) {
        return placeholder();
    }
    return {.date = surroundings_.clock.now(), .data = loadSnapshot(surroundings_)};
}

TimerTimeline TimerProvider::timeline() const {
    const TimerEntry first = snapshot(false);
    TimerTimeline timeline{.entries = {first}, .policy = kit::ReloadNever{}};
    // Whatever the timer does: an end that does not matter costs one entry that looks the same.
    if (first.data && first.data->timer && first.data->timer->endAt > first.date) {
        timeline.entries.push_back({.date = *first.data->timer->endAt, .data = first.data});
    }
    return timeline;
}

}  // namespace kelmar::widget
