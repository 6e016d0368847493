#include "Widget/TimerProvider.h"

#include "Shared/SampleSnapshots.h"

namespace kelmar::widget {

TimerEntry TimerProvider::placeholder() const {
    return sampleEntry(shared::timerSample, surroundings_);
}

TimerEntry TimerProvider::snapshot(bool isPreview) const {
    return isPreview ? placeholder() : loadedEntry(surroundings_);
}

TimerTimeline TimerProvider::timeline() const {
    const TimerEntry first = loadedEntry(surroundings_);
    TimerTimeline timeline{.entries = {first}, .policy = kit::ReloadNever{}};
    // Whatever the timer does: an end that does not matter costs one entry that looks the same.
    if (first.data && first.data->timer && first.data->timer->endAt > first.date) {
        timeline.entries.push_back({.date = *first.data->timer->endAt, .data = first.data});
    }
    return timeline;
}

}  // namespace kelmar::widget
