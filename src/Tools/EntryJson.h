#pragma once

#include <string>

#include "Kit/Environment.h"
#include "Widget/BundledWidget.h"

namespace kelmar::tools {

/// {"date", "data", "undo", "view"}; `undo` only for the widget that has one.
[[nodiscard]] std::string entryJson(const widget::ProvidedEntry& entry, const std::string& kind,
                                    const kit::Environment& environment);

/// {"entries", "policy"}.
[[nodiscard]] std::string timelineJson(const widget::ProvidedTimeline& timeline,
                                       const std::string& kind,
                                       const kit::Environment& environment);

}  // namespace kelmar::tools
