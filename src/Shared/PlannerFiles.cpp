#include "Shared/PlannerFiles.h"

#include "Shared/SnapshotCoding.h"

namespace kelmar::shared {

std::optional<WidgetData> loadSnapshot(const system::Folder& folder) {
    system::Result<std::string> json = folder.read(snapshotName);
    if (!json)
        return std::nullopt;
    std::string text = *std::move(json);
    system::Result<WidgetData, SnapshotFault> data = decodeSnapshotInPlace(text);
    if (!data)
        return std::nullopt;
    return *std::move(data);
}

}  // namespace kelmar::shared
