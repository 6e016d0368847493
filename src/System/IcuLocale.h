#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unicode/locid.h>
#include <unicode/timezone.h>

namespace kelmar::system {

/// The locale that the environment names for a category ("LC_TIME", "LC_MESSAGES"), by the
/// precedence of POSIX: LC_ALL, the category, LANG; nothing where that is one without a language,
/// such as "C". ICU's own default is not asked because it follows what the process has told
/// setlocale().
[[nodiscard]] std::optional<std::string> environmentLocaleId(const char* category);

/// The locale of an identifier in ICU's, BCP 47's or the C library's form. The empty one stands for
/// the environment's locale of dates, or English as the United States write it.
[[nodiscard]] icu::Locale makeLocale(const std::string& localeId);

/// The zone of an IANA name, or the machine's present one when the name is empty. An unknown name
/// is UTC.
[[nodiscard]] std::unique_ptr<icu::TimeZone> makeTimeZone(const std::string& timeZoneId);

}  // namespace kelmar::system
