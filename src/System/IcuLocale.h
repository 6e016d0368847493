#pragma once

#include <memory>
#include <string>
#include <unicode/locid.h>
#include <unicode/timezone.h>

namespace kelmar::system {

/// The locale of an identifier in ICU's, BCP 47's or the C library's form. The empty one stands for
/// the environment's locale of dates, or English as the United States write it.
[[nodiscard]] icu::Locale makeLocale(const std::string& localeId);

/// The zone that the environment names or the machine is set to, now.
struct HostTimeZone {
    std::unique_ptr<icu::TimeZone> zone;
    std::string trouble;  ///< What of it could not be had, as one sentence; empty when all is well.
};

[[nodiscard]] HostTimeZone hostTimeZone();

/// The zone of an IANA name, or the machine's present one when the name is empty. An unknown name
/// is UTC.
[[nodiscard]] std::unique_ptr<icu::TimeZone> makeTimeZone(const std::string& timeZoneId);

}  // namespace kelmar::system
