#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace kelmar::host {

/// A folder that is gone with the test.
class TemporaryFolder {
public:
    [[nodiscard]] std::filesystem::path path() const {
        return std::filesystem::canonical(folder_.path().toStdString());
    }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const {
        return path() / name;
    }

private:
    QTemporaryDir folder_;
};

inline void writeText(const std::filesystem::path& path, std::string_view text) {
    std::ofstream(path, std::ios::trunc) << text;
}

inline void makeExecutable(const std::filesystem::path& path) {
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

}  // namespace kelmar::host
