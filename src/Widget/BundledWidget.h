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

/// A widget of the bundle behind the one face that all of them have: how it presents itself, and
/// its answers to the host's three requests.
struct BundledWidget {
    kit::WidgetDescriptor descriptor;
    std::function<ProvidedEntry()> placeholder;
    std::function<ProvidedEntry(bool isPreview)> snapshot;
    std::function<ProvidedTimeline()> timeline;
};

}  // namespace kelmar::widget
