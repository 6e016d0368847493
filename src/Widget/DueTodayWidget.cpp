#include "Widget/DueTodayWidget.h"

#include "Widget/DueProvider.h"
#include "Widget/DueTodayView.h"

namespace kelmar::widget {

namespace {

ProvidedEntry provided(DueEntry entry, const Surroundings& surroundings) {
    ProvidedEntry provided{.date = entry.date, .data = entry.data, .undo = entry.undo, .draw = {}};
    provided.draw = [entry = std::move(entry), &surroundings](const kit::Environment& environment) {
        return DueTodayView(entry, environment, plannerAccent, surroundings).body();
    };
    return provided;
}

ProvidedTimeline provided(DueTimeline timeline, const Surroundings& surroundings) {
    ProvidedTimeline all{.entries = {}, .policy = timeline.policy};
    for (DueEntry& entry : timeline.entries) {
        all.entries.push_back(provided(std::move(entry), surroundings));
    }
    return all;
}

}  // namespace

BundledWidget dueTodayWidget(const Surroundings& surroundings) {
    const DueProvider provider(surroundings);
    return {
        .descriptor = {.kind = "DueToday",
                       .displayName = surroundings.localization.text("Due Today"),
                       .description = surroundings.localization.text(
                           "What's still to do today, and what's next, from Kelmar Planner."),
                       .families = {kit::Family::small, kit::Family::medium, kit::Family::large}},
        .placeholder = [=,
                        &surroundings] { return provided(provider.placeholder(), surroundings); },
        .snapshot =
            [=, &surroundings](bool isPreview) {
                return provided(provider.snapshot(isPreview), surroundings);
            },
        .timeline = [=, &surroundings] { return provided(provider.timeline(), surroundings); }};
}

}  // namespace kelmar::widget
