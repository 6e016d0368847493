#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Host/PlacedWidget.h"
#include "Host/ReloadJournal.h"
#include "Kit/Environment.h"
#include "System/Date.h"

/// What a person wants to know of a widget that shows something else than expected.
namespace kelmar::host {

enum class WidgetContent {
    nothing,      ///< No answer has come yet.
    placeholder,  ///< There never was a good timeline.
    timeline,
};

/// "timeline".
[[nodiscard]] std::string_view nameOf(WidgetContent content);

struct WidgetReport {
    /// The entry of the timeline that shows.
    struct Entry {
        std::size_t index = 0;
        std::size_t count = 0;
        system::Date date;
        bool operator==(const Entry&) const = default;
    };

    std::string kind;
    kit::Family family = kit::Family::medium;
    WidgetContent content = WidgetContent::nothing;
    std::optional<Entry> entry;
    std::string why;                         ///< Why it shows what it shows, one sentence.
    std::optional<system::Date> nextEntry;   ///< When another entry shows.
    std::optional<system::Date> nextReload;  ///< When another timeline is asked for.
    std::optional<ReloadRecord> lastReload;

    bool operator==(const WidgetReport&) const = default;
};

[[nodiscard]] WidgetReport reportOn(const PlacedWidget& widget, system::Date now,
                                    std::optional<ReloadRecord> lastReload);

}  // namespace kelmar::host
