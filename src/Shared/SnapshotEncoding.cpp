#include "Shared/RecordEncoding.h"
#include "Shared/SnapshotCoding.h"
#include "Shared/SnapshotFields.h"

namespace kelmar::shared {

std::string encodeSnapshot(const WidgetData& data) {
    return encodeRecord(data);
}

}  // namespace kelmar::shared
