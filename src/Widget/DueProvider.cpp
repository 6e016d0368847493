#include "Widget/DueProvider.h"

#include "Shared/SampleSnapshots.h"

namespace kelmar::widget {

using shared::WidgetData;
using shared::WidgetTicks;

DueEntry DueProvider::sampleEntry(system::Date now) const {
    return {.date = now,
            .data = std::make_shared<const WidgetData>(shared::sample(now, surroundings_.calendar)),
            .undo = std::nullopt};
}

/// What was ticked off here disappears at once, though the planner has not rewritten its file.
Snapshot DueProvider::loadWithoutPending() const {
    Snapshot data = loadSnapshot(surroundings_);
    if (!data) {
        return nullptr;
    }
    const auto pending = WidgetTicks(surroundings_.tickedFolder).pending();
    if (pending.empty()) {
        return data;
    }
    return std::make_shared<const WidgetData>(data->without({pending.begin(), pending.end()}));
}

DueEntry DueProvider::placeholder() const {
    return sampleEntry(surroundings_.clock.now());
}

DueEntry DueProvider::snapshot(bool isPreview) const {
    const system::Date now = surroundings_.clock.now();
    if (isPreview) {
        return sampleEntry(now);
    }
    return {.date = now,
            .data = loadWithoutPending(),
            .undo = WidgetTicks(surroundings_.tickedFolder).latest(now)};
}

DueTimeline DueProvider::timeline() const {
    const system::Calendar& calendar = surroundings_.calendar;
    const system::Date now = surroundings_.clock.now();
    const Snapshot data = loadWithoutPending();
    const system::Date firstMidnight = nextMidnight(now, calendar);
    const system::Date secondMidnight = nextMidnight(firstMidnight, calendar);

    const auto regrouped = [&](system::Date date) {
        return data ? std::make_shared<const WidgetData>(data->regrouped(date, calendar)) : nullptr;
    };
    DueEntry first{.date = now, .data = regrouped(now), .undo = std::nullopt};
    std::vector<DueEntry> entries;
    if (auto latest = WidgetTicks(surroundings_.tickedFolder).latest(now)) {
        const system::Date undoEnd = latest->note.at + WidgetTicks::undoAge;
        first.undo = std::move(latest);
        entries.push_back(first);
        // What is shown then is still grouped as of now: only the undo bar goes.
        entries.push_back({.date = undoEnd, .data = first.data, .undo = std::nullopt});
    } else {
        entries.push_back(std::move(first));
    }
    for (const system::Date midnight : {firstMidnight, secondMidnight}) {
        entries.push_back({.date = midnight, .data = regrouped(midnight), .undo = std::nullopt});
    }
    return {.entries = std::move(entries), .policy = kit::ReloadAfter{secondMidnight}};
}

}  // namespace kelmar::widget
