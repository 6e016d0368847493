#pragma once

#include <string>

#include "DemoPlanner/PlannerStorage.h"

namespace kelmar::demo {

/// The planner's folder on disk. A stand-in must not meddle with the planner that it stands in
/// for, so this opens only a folder that carries the mark which it leaves in every folder that it
/// makes. Nothing outside that folder is ever changed or deleted.
class PlannerDisk final : public PlannerStorage {
public:
    /// Says who made the folder.
    static constexpr const char* markName = "made-by-kelmar-planner-demo";
    static constexpr const char* stateName = "demo-state.json";

    /// The folder at `path`, made with its tick folder when there is nothing of that name; refused
    /// when somebody else made it. Two that start at once end up with the same folder.
    [[nodiscard]] static system::Result<PlannerDisk> open(const std::string& path);

    [[nodiscard]] system::Result<std::optional<std::string>> loadState() const override;
    system::Result<system::Done> saveState(std::string_view json) override;
    system::Result<system::Done> publish(std::string_view snapshot) override;
    [[nodiscard]] std::vector<std::string> tickFiles() const override;
    [[nodiscard]] std::optional<std::string> readTickFile(const std::string& name) const override;
    void renameTickFile(const std::string& from, const std::string& to) override;
    void removeTickFile(const std::string& name) override;

private:
    explicit PlannerDisk(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] std::string tickPath(const std::string& name) const;

    std::string path_;
};

}  // namespace kelmar::demo
