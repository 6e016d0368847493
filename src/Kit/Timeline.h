#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Kit/View.h"
#include "System/Date.h"

namespace kelmar::kit {

/// A widget as it is to look from some moment on.
struct DrawnEntry {
    View content;
    Color background = tertiaryFill;
    std::optional<std::string> widgetUrl =
        std::nullopt;  ///< What a press beside every other link opens.

    bool operator==(const DrawnEntry&) const = default;
};

struct Entry {
    system::Date date;  ///< From when the entry is to be shown.
    DrawnEntry view;

    bool operator==(const Entry&) const = default;
};

/// When the host asks for the next timeline by itself.
struct ReloadAfter {
    system::Date date;
    bool operator==(const ReloadAfter&) const = default;
};
struct ReloadNever {
    bool operator==(const ReloadNever&) const = default;
};
using ReloadPolicy = std::variant<ReloadAfter, ReloadNever>;

/// Entries in the order that decides which one shows: the last whose date is not after now.
struct Timeline {
    std::vector<Entry> entries;
    ReloadPolicy policy;

    bool operator==(const Timeline&) const = default;
};

}  // namespace kelmar::kit
