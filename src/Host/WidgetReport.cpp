#include "Host/WidgetReport.h"

#include <utility>

#include "Host/TimelineSchedule.h"
#include "Kit/Names.h"

namespace kelmar::host {
namespace {

constexpr kit::NameTable<WidgetContent, 3> contents{{
    {WidgetContent::nothing, "nothing"},
    {WidgetContent::placeholder, "placeholder"},
    {WidgetContent::timeline, "timeline"},
}};

WidgetContent contentOf(const PlacedWidget& widget) {
    if (widget.timeline() != nullptr) {
        return WidgetContent::timeline;
    }
    return widget.shown() != nullptr ? WidgetContent::placeholder : WidgetContent::nothing;
}

std::string whyEntry(const WidgetReport::Entry& entry, system::Date now) {
    if (entry.date > now) {
        return "No entry's date has come yet, so the first one shows.";
    }
    if (entry.index + 1 == entry.count) {
        return "It is the last entry, and its date has come.";
    }
    return "It is the last entry in the list whose date has come.";
}

std::string why(const WidgetReport& report, system::Date now) {
    switch (report.content) {
        case WidgetContent::nothing:
            return "The extension has not answered yet.";
        case WidgetContent::placeholder:
            return "No good timeline has come yet, so the placeholder shows.";
        case WidgetContent::timeline:
            return whyEntry(*report.entry, now);
    }
    return {};
}

}  // namespace

std::string_view nameOf(WidgetContent content) {
    return kit::nameIn(contents, content);
}

WidgetReport reportOn(const PlacedWidget& widget, system::Date now,
                      std::optional<ReloadRecord> lastReload) {
    WidgetReport report{.kind = widget.kind(),
                        .family = widget.environment().family,
                        .content = contentOf(widget),
                        .entry = std::nullopt,
                        .why = {},
                        .nextEntry = std::nullopt,
                        .nextReload = widget.reloadAt(),
                        .lastReload = std::move(lastReload)};
    if (const kit::Timeline* const timeline = widget.timeline()) {
        const auto index = shownEntryIndex(*timeline, now);
        report.entry = {.index = index,
                        .count = timeline->entries.size(),
                        .date = timeline->entries[index].date};
        report.nextEntry = nextEntryChange(*timeline, now);
    }
    report.why = why(report, now);
    return report;
}

}  // namespace kelmar::host
