#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Shared/WidgetData.h"
#include "System/Folder.h"

namespace kelmar::shared {

/// The planner's folder and its parts, relative to the home folder.
inline constexpr std::string_view plannerFolderPath = "Library/Application Support/Kelmar Planner";
inline constexpr std::string_view tickedFolderPath =
    "Library/Application Support/Kelmar Planner/Ticked";
/// The snapshot's name in the planner's folder.
inline constexpr const char* snapshotName = "widget.json";

/// Reads and decodes the snapshot afresh; nothing when it is missing or unreadable.
[[nodiscard]] std::optional<WidgetData> loadSnapshot(const system::Folder& folder);

}  // namespace kelmar::shared
