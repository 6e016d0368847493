#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Shared/SnapshotCoding.h"

namespace kelmar::shared {

/// What is wrong with the values of some keys of one object. A later value of the same key puts
/// it right again, because of doubled keys the last wins. Empty, and free, in a good document.
class KeyFaults {
public:
    void set(std::string_view key, SnapshotFault fault) {
        forget(key);
        faults_.emplace_back(key, std::move(fault));
    }
    void forget(std::string_view key) {
        if (!faults_.empty())
            std::erase_if(faults_, [&](const auto& entry) { return entry.first == key; });
    }
    [[nodiscard]] bool empty() const { return faults_.empty(); }
    /// The first in the text, there being any.
    [[nodiscard]] const SnapshotFault& front() const { return faults_.front().second; }

private:
    std::vector<std::pair<std::string, SnapshotFault>> faults_;
};

}  // namespace kelmar::shared
