#include "System/IcuLocale.h"

#include "System/EnvironmentLocale.h"

namespace kelmar::system {

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
