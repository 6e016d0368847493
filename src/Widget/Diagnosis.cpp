#include "Widget/Diagnosis.h"

#include <fmt/format.h>

#include "Shared/PlannerFiles.h"
#include "Shared/SnapshotCoding.h"

namespace kelmar::widget {

std::vector<std::string> diagnose(const Surroundings& surroundings) {
    const auto text = surroundings.plannerFolder.read(shared::snapshotName);
    if (!text) {
        return {fmt::format("The planner's snapshot cannot be read: {}", text.failure().reason)};
    }
    const auto data = shared::decodeSnapshot(*text);
    if (!data) {
        const shared::SnapshotFault& fault = data.failure();
        return {fmt::format("The snapshot {}/{} is unreadable: at {} stood {}, expected was {}.",
                            shared::plannerFolderPath, shared::snapshotName, fault.path,
                            fault.found, fault.expected)};
    }
    return {};
}

}  // namespace kelmar::widget
