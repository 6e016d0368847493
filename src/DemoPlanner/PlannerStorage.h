#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "System/Result.h"

namespace kelmar::demo {

/// The planner's folder, as far as the planner needs it. The widgets read the snapshot and change
/// the tick files at any time.
class PlannerStorage {
public:
    virtual ~PlannerStorage() = default;

    /// What was last saved; nothing when nothing ever was.
    [[nodiscard]] virtual system::Result<std::optional<std::string>> loadState() const = 0;
    /// Both replace what stood there in one step: a reader sees the old text or the new one whole,
    /// also after a power failure.
    virtual system::Result<system::Done> saveState(std::string_view json) = 0;
    virtual system::Result<system::Done> publish(std::string_view snapshot) = 0;

    /// The names of the regular files in the tick folder.
    [[nodiscard]] virtual std::vector<std::string> tickFiles() const = 0;
    [[nodiscard]] virtual std::optional<std::string> readTickFile(
        const std::string& name) const = 0;
    /// Both do nothing when the file has gone meanwhile.
    virtual void renameTickFile(const std::string& from, const std::string& to) = 0;
    virtual void removeTickFile(const std::string& name) = 0;
};

}  // namespace kelmar::demo
