#include "Host/SettingsWatch.h"

#include <QFile>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fmt/format.h>
#include <optional>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kelmar::host {
namespace {

bool isLocaleVariable(std::string_view name) {
    return name == "LANG" || name == "LANGUAGE" || name.starts_with("LC_");
}

/// "LANG=de_DE.UTF-8" or "LANG=\"de_DE.UTF-8\"".
std::optional<std::pair<std::string, std::string>> assignmentIn(const std::string& line) {
    const auto equals = line.find('=');
    if (equals == std::string::npos || !isLocaleVariable(line.substr(0, equals))) {
        return std::nullopt;
    }
    std::string value = line.substr(equals + 1);
    const bool isQuoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                          value.back() == value.front();
    return std::pair(line.substr(0, equals),
                     isQuoted ? value.substr(1, value.size() - 2) : std::move(value));
}

/// What a time-zone file is: where it really lies, and which edition of it. Empty while there is
/// none.
std::string identityOf(const std::string& path) {
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    struct stat status {};
    if (error || stat(real.c_str(), &status) != 0) {
        return {};
    }
    return fmt::format("{} {} {}.{}", real.string(), status.st_ino, status.st_mtim.tv_sec,
                       status.st_mtim.tv_nsec);
}

template <class Map>
std::string valueIn(const Map& variables, const std::string& name) {
    const auto found = variables.find(name);
    return found != variables.end() ? found->second : "";
}

}  // namespace

LocaleVariables localeVariables() {
    LocaleVariables variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        if (auto assignment = assignmentIn(*variable)) {
            variables.insert(*std::move(assignment));
        }
    }
    return variables;
}

SettingsWatch::SettingsWatch(FileWatch& fileWatch, SettingsFiles files, LocaleVariables session,
                             std::function<void(ReloadCause)> changed)
    : fileWatch_(fileWatch),
      files_(std::move(files)),
      changed_(std::move(changed)),
      timeZone_(identityOf(timeZoneFile())),
      locale_(readLocale()),
      environment_(std::move(session)) {
    auto paths = files_.locale;
    if (!timeZoneFile().empty()) {
        paths.push_back(timeZoneFile());
    }
    fileWatch_.watch(std::move(paths), [this] { look(); });
}

SettingsWatch::~SettingsWatch() {
    fileWatch_.watch({}, [] {});
}

/// Empty where TZ names a zone: nothing that happens to the machine's changes ours. TZ may name a
/// file as well (tzset(3)).
std::string SettingsWatch::timeZoneFile() const {
    const char* const variable = std::getenv("TZ");
    if (variable == nullptr) {
        return files_.timeZone;
    }
    std::string_view zone = variable;
    zone.remove_prefix(zone.starts_with(':') ? 1 : 0);
    return zone.starts_with('/') ? std::string(zone) : "";
}

LocaleVariables SettingsWatch::readLocale() const {
    LocaleVariables variables;
    for (const std::string& path : files_.locale) {
        QFile file(QString::fromStdString(path));
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (auto assignment = assignmentIn(line.toStdString())) {
                variables.insert_or_assign(assignment->first, std::move(assignment->second));
            }
        }
    }
    return variables;
}

void SettingsWatch::look() {
    auto timeZone = identityOf(timeZoneFile());
    // Between its going and the coming of the next one there is no zone to go to.
    if (!timeZone.empty() && timeZone != timeZone_) {
        timeZone_ = std::move(timeZone);
        ::tzset();
        changed_(ReloadCause::timeZoneChanged);
    }
    auto locale = readLocale();
    if (locale != locale_) {
        adopt(locale);
        locale_ = std::move(locale);
        changed_(ReloadCause::localeChanged);
    }
}

void SettingsWatch::adopt(const LocaleVariables& variables) {
    std::set<std::string> names;
    for (const auto* const all : {&std::as_const(locale_), &variables}) {
        for (const auto& [name, value] : *all) {
            names.insert(name);
        }
    }
    for (const std::string& name : names) {
        if (valueIn(environment_, name) == valueIn(locale_, name)) {
            environment_[name] = valueIn(variables, name);
        }
    }
    // A list of languages that was made of the former locale would outlive it.
    environment_.try_emplace("LANGUAGE");
    for (const auto& [name, value] : environment_) {
        if (value.empty()) {
            ::unsetenv(name.c_str());
        } else {
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }
}

}  // namespace kelmar::host
