#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "Shared/SnapshotCoding.h"

namespace kelmar::shared {

/// What is wrong with the values of some keys of one object. A later value of the same key puts
/// it right again, because of doubled keys the last wins. Empty, and free, in a good document.
class KeyFaults {
public:
    void set(std::string_view key, SnapshotFault fault) {
        faults_.insert_or_assign(std::string(key), std::move(fault));
    }
    void forget(std::string_view key) {
        if (!faults_.empty())
            faults_.erase(std::string(key));
    }
    [[nodiscard]] bool empty() const { return faults_.empty(); }
    /// One of the faults, there being any.
    [[nodiscard]] const SnapshotFault& front() const { return faults_.begin()->second; }

private:
    std::map<std::string, SnapshotFault> faults_;
};

}  // namespace kelmar::shared
