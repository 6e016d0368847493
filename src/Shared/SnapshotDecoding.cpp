#include "Shared/RecordDecoding.h"
#include "Shared/SnapshotCoding.h"
#include "Shared/SnapshotFields.h"
#include "System/Folder.h"

namespace kelmar::shared {

system::Result<WidgetData, SnapshotFault> decodeSnapshot(std::string_view json) {
    std::string copy;
    copy.reserve(json.size() + system::spareCapacity);
    copy = json;
    return decodeSnapshotInPlace(copy);
}

system::Result<WidgetData, SnapshotFault> decodeSnapshotInPlace(std::string& json) {
    return decodeRecord<WidgetData>(json);
}

}  // namespace kelmar::shared
