#pragma once

#include <string>
#include <string_view>

#include "Shared/WidgetData.h"
#include "System/Result.h"

namespace kelmar::shared {

/// What makes a snapshot unreadable.
struct SnapshotFault {
    std::string path;      ///< Where, as a JSON path: "$.upcoming[3].hasTime".
    std::string found;     ///< What stood there: "nothing", "the text \"soon\"", "null" ...
    std::string expected;  ///< What should have: "true or false".

    bool operator==(const SnapshotFault&) const = default;
};

/// All or nothing: the record, or the first fault. The whole text must be valid JSON in valid
/// UTF-8 without a byte order mark. Unknown keys are ignored; of doubled keys the last wins;
/// integers may be written 3.0 but not 3.5; dates are numbers.
[[nodiscard]] system::Result<WidgetData, SnapshotFault> decodeSnapshot(std::string_view json);

/// The same without a copy of the text: the string may only grow in capacity, which one that was
/// read from a folder need not.
[[nodiscard]] system::Result<WidgetData, SnapshotFault> decodeSnapshotInPlace(std::string& json);

/// The same JSON form, keys in the order of declaration, absent options left out.
[[nodiscard]] std::string encodeSnapshot(const WidgetData& data);

}  // namespace kelmar::shared
