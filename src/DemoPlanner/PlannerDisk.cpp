#include "DemoPlanner/PlannerDisk.h"

#include <QSaveFile>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "Shared/PlannerFiles.h"
#include "System/Folder.h"

namespace kelmar::demo {

namespace {

namespace fs = std::filesystem;
using system::Done;
using system::Failure;
using system::Result;

constexpr const char* tickedName = "Ticked";

constexpr std::string_view markText =
    "kelmar-planner-demo made this folder. It leaves folders without this file alone.\n";

Result<Done> replace(const std::string& path, std::string_view bytes) {
    QSaveFile file(QString::fromStdString(path));
    const auto size = static_cast<qint64>(bytes.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size ||
        !file.commit()) {
        return Failure{path + " cannot be written: " + file.errorString().toStdString()};
    }
    return Done{};
}

/// A folder with its mark and its tick folder under a name of its own beside `path`.
Result<std::string> prepare(const std::string& path) {
    std::string name = path + ".XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        return Failure{path + " cannot be made: " + std::generic_category().message(errno)};
    }
    std::error_code error;
    fs::create_directory(fs::path(name) / tickedName, error);
    std::ofstream mark(fs::path(name) / PlannerDisk::markName);
    mark << markText;
    mark.close();
    if (error || !mark) {
        fs::remove_all(name, error);
        return Failure{path + " cannot be filled"};
    }
    return name;
}

/// 0, or why it could not be moved: EEXIST when the name is taken. File systems that cannot tell
/// whether a name is free replace at most an empty folder.
int moveToFreeName(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno == EINVAL && ::rename(from.c_str(), to.c_str()) == 0) {
        return 0;
    }
    return errno == ENOTEMPTY ? EEXIST : errno;
}

/// Makes the folder whole or not at all, so that nobody ever sees one of ours without its mark.
Result<Done> make(const std::string& path) {
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);
    if (error) {
        return Failure{path + " cannot be made: " + error.message()};
    }
    const Result<std::string> prepared = prepare(path);
    if (!prepared) {
        return prepared.failure();
    }
    const int reason = moveToFreeName(*prepared, path);
    if (reason != 0) {
        fs::remove_all(*prepared, error);
    }
    if (reason != 0 && reason != EEXIST) {
        return Failure{path + " cannot be made: " + std::generic_category().message(reason)};
    }
    return Done{};
}

bool isOurs(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(fs::symlink_status(path / PlannerDisk::markName, error));
}

}  // namespace

Result<PlannerDisk> PlannerDisk::open(const std::string& path) {
    std::error_code error;
    if (fs::symlink_status(path, error).type() == fs::file_type::not_found) {
        if (const Result<Done> made = make(path); !made) {
            return made.failure();
        }
    }
    if (!isOurs(path)) {
        return Failure{path + " was not made by kelmar-planner-demo; it is left alone"};
    }
    fs::create_directory(fs::path(path) / tickedName, error);
    if (!fs::is_directory(fs::symlink_status(fs::path(path) / tickedName, error))) {
        return Failure{path + "/" + tickedName + " is no folder"};
    }
    return PlannerDisk(path);
}

Result<std::optional<std::string>> PlannerDisk::loadState() const {
    const std::string path = path_ + "/" + stateName;
    std::error_code error;
    if (!fs::exists(path, error)) {
        return std::optional<std::string>();
    }
    Result<std::string> text = system::readFile(path);
    if (!text) {
        return text.failure();
    }
    return std::optional<std::string>(*std::move(text));
}

Result<Done> PlannerDisk::saveState(std::string_view json) {
    return replace(path_ + "/" + stateName, json);
}

Result<Done> PlannerDisk::publish(std::string_view snapshot) {
    return replace(path_ + "/" + shared::snapshotName, snapshot);
}

std::vector<std::string> PlannerDisk::tickFiles() const {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator each(path_ + "/" + tickedName, error), end; !error && each != end;
         each.increment(error)) {
        if (fs::is_regular_file(each->symlink_status(error))) {
            names.push_back(each->path().filename().string());
        }
    }
    return names;
}

std::optional<std::string> PlannerDisk::readTickFile(const std::string& name) const {
    Result<std::string> text = system::readFile(tickPath(name));
    return text ? std::optional<std::string>(*std::move(text)) : std::nullopt;
}

void PlannerDisk::renameTickFile(const std::string& from, const std::string& to) {
    std::error_code ignored;
    fs::rename(tickPath(from), tickPath(to), ignored);
}

void PlannerDisk::removeTickFile(const std::string& name) {
    std::error_code ignored;
    fs::remove(tickPath(name), ignored);
}

std::string PlannerDisk::tickPath(const std::string& name) const {
    return path_ + "/" + tickedName + "/" + name;
}

}  // namespace kelmar::demo
