#include "System/IcuLocale.h"

#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>

#include "System/EnvironmentLocale.h"
#include "System/PosixTimeZone.h"

namespace kelmar::system {
namespace {

std::string timeZoneSetting() {
    const auto* const variable = std::getenv("TZ");
    return variable == nullptr ? "" : variable;
}

/// Afresh: ICU's default would stay what it was when the process started.
std::unique_ptr<icu::TimeZone> detectedZone() {
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::detectHostTimeZone());
}

/// The name in what TZ says, which may also be the zone's file: ICU would know that one by its
/// present offset only.
std::string zoneName(const std::string& setting) {
    constexpr std::string_view zoneFolder = "/zoneinfo/";
    std::string name = setting.starts_with(':') ? setting.substr(1) : setting;
    if (name.starts_with('/')) {
        std::error_code error;
        const std::string path = std::filesystem::canonical(name, error).string();
        const auto place = path.find(zoneFolder);
        name = place == std::string::npos ? name : path.substr(place + zoneFolder.size());
    }
    // Without and with leap seconds, which neither the snapshot nor ICU counts.
    for (const std::string_view variant : {"posix/", "right/"}) {
        if (name.starts_with(variant)) {
            return name.substr(variant.size());
        }
    }
    return name;
}

bool isKnown(const std::string& name) {
    icu::UnicodeString canonical;
    UBool isKnown = 0;
    UErrorCode status = U_ZERO_ERROR;
    icu::TimeZone::getCanonicalID(icu::UnicodeString::fromUTF8(name), canonical, isKnown, status);
    return U_SUCCESS(status) && isKnown != 0;
}

std::unique_ptr<icu::TimeZone> zoneNamed(const std::string& name) {
    return std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
}

std::string troubleWith(const std::string& setting, std::string_view what,
                        const icu::TimeZone& used) {
    constexpr int minute = 60 * 1'000;
    const int minutes = used.getRawOffset() / minute;
    return fmt::format("TZ is \"{}\", {}: UTC{}{:02}:{:02} is used all year", setting, what,
                       minutes < 0 ? '-' : '+', std::abs(minutes) / 60, std::abs(minutes) % 60);
}

}  // namespace

icu::Locale makeLocale(const std::string& localeId) {
    const std::string chosen =
        localeId.empty() ? environmentLocaleId("LC_TIME").value_or("en_US") : localeId;
    return icu::Locale::createCanonical(chosen.c_str());
}

std::unique_ptr<icu::TimeZone> makeTimeZone(const std::string& timeZoneId) {
    return timeZoneId.empty() ? hostTimeZone().zone : zoneNamed(timeZoneId);
}

HostTimeZone hostTimeZone() {
    const std::string setting = timeZoneSetting();
    if (setting.empty()) {
        return {detectedZone(), {}};
    }
    if (const std::string name = zoneName(setting); isKnown(name)) {
        return {zoneNamed(name), {}};
    }
    auto [zone, lacksDaylightSaving] = readPosixTimeZone(setting);
    if (zone == nullptr) {
        auto detected = detectedZone();
        auto trouble = troubleWith(setting, "which is no known time zone", *detected);
        return {std::move(detected), std::move(trouble)};
    }
    auto trouble = lacksDaylightSaving
                       ? troubleWith(setting, "whose daylight saving time is not understood", *zone)
                       : std::string();
    return {std::move(zone), std::move(trouble)};
}

}  // namespace kelmar::system
