#include "System/EnvironmentLocale.h"

#include <cstdlib>

namespace kelmar::system {
namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

bool hasNoLanguage(const std::string& localeId) {
    const std::string name = localeId.substr(0, localeId.find('.'));
    return name == "C" || name == "POSIX";
}

}  // namespace

std::optional<std::string> environmentLocaleId(const char* category) {
    for (const char* const name : {"LC_ALL", category, "LANG"}) {
        if (const std::string value = variable(name); !value.empty())
            return hasNoLanguage(value) ? std::nullopt : std::optional(value);
    }
    return std::nullopt;
}

}  // namespace kelmar::system
