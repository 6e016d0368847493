#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace kelmar::testing {

/// A fresh folder on disk that goes away with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "kelmar-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return path_ / name; }
    void put(const std::string& name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }

private:
    std::filesystem::path path_;
};

}  // namespace kelmar::testing
