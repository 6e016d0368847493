#include "System/IcuLocale.h"

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

icu::Locale makeLocale(const std::string& localeId) {
    const std::string chosen =
        localeId.empty() ? environmentLocaleId("LC_TIME").value_or("en_US") : localeId;
    return icu::Locale::createCanonical(chosen.c_str());
}

std::unique_ptr<icu::TimeZone> makeTimeZone(const std::string& timeZoneId) {
    // Detected afresh: ICU's default would stay what it was when the process started.
    return std::unique_ptr<icu::TimeZone>(
        timeZoneId.empty()
            ? icu::TimeZone::detectHostTimeZone()
            : icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZoneId)));
}

}  // namespace kelmar::system
