#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Kit/Descriptor.h"
#include "Kit/Timeline.h"
#include "Shared/WidgetTicks.h"
#include "Widget/Snapshots.h"

namespace kelmar::widget {

/// An entry of any widget: its date, what it carries, and how it is drawn.
struct ProvidedEntry {
    system::Date date;
    Snapshot data;
    std::optional<shared::WidgetTicks::Tick> undo;
    std::function<kit::DrawnEntry(const kit::Environment&)> draw;
};

struct ProvidedTimeline {
    std::vector<ProvidedEntry> entries;
    kit::ReloadPolicy policy;
};

/// Entries of one widget as its provider gives them.
template <class Entry>
struct EntryTimeline {
    std::vector<Entry> entries;
    kit::ReloadPolicy policy;
};

/// A widget of the bundle behind the one face that all of them have: how it presents itself, and
/// its answers to the host's three requests.
struct BundledWidget {
    kit::WidgetDescriptor descriptor;
    std::function<ProvidedEntry()> placeholder;
    std::function<ProvidedEntry(bool isPreview)> snapshot;
    std::function<ProvidedTimeline()> timeline;
};

/// Puts a widget behind that face. `Provider` has placeholder(), snapshot(isPreview) and timeline()
/// of some entry type; `draw` turns such an entry and an environment into a drawn entry.
template <class Provider, class Draw>
[[nodiscard]] BundledWidget bundledWidget(const kit::WidgetDescriptor& descriptor,
                                          Provider provider, Draw draw) {
    const auto provided = [draw](const auto& entry) {
        ProvidedEntry all{.date = entry.date, .data = entry.data, .undo = {}, .draw = {}};
        if constexpr (requires { entry.undo; }) {
            all.undo = entry.undo;
        }
        all.draw = [draw, entry](const kit::Environment& environment) {
            return draw(entry, environment);
        };
        return all;
    };
    return {.descriptor = descriptor,
            .placeholder = [=] { return provided(provider.placeholder()); },
            .snapshot = [=](bool isPreview) { return provided(provider.snapshot(isPreview)); },
            .timeline =
                [=] {
                    const auto timeline = provider.timeline();
                    ProvidedTimeline all{.entries = {}, .policy = timeline.policy};
                    for (const auto& entry : timeline.entries) {
                        all.entries.push_back(provided(entry));
                    }
                    return all;
                }};
}

}  // namespace kelmar::widget
