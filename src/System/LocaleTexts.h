#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "System/Date.h"

namespace kelmar::system {

/// Dates, times and numbers as the user's locale writes them (CLDR patterns through ICU), in the
/// user's time zone and calendar. Examples are those of en_US.
class LocaleTexts {
public:
    /// `localeId` as in "de_DE" or "ar@calendar=gregorian", `timeZoneId` an IANA name; empty
    /// texts mean the environment's own.
    LocaleTexts(const std::string& localeId, const std::string& timeZoneId);
    ~LocaleTexts();
    LocaleTexts(LocaleTexts&&) noexcept;
    LocaleTexts& operator=(LocaleTexts&&) noexcept;

    [[nodiscard]] std::string shortTime(Date date) const;                ///< "3:30 PM"
    [[nodiscard]] std::string weekday(Date date) const;                  ///< "Thursday"
    [[nodiscard]] std::string narrowWeekday(Date date) const;            ///< "T"
    [[nodiscard]] std::string monthAndDay(Date date) const;              ///< "Oct 9"
    [[nodiscard]] std::string weekdayMonthAndDay(Date date) const;       ///< "Thursday, Oct 9"
    [[nodiscard]] std::string shortWeekdayMonthAndDay(Date date) const;  ///< "Thu, Oct 9"
    /// How long ago something was, in the largest unit that fits: "12 minutes ago". What is still
    /// to come counts as just now.
    [[nodiscard]] std::string timeAgo(Seconds age) const;

private:
    struct Formats;
    std::unique_ptr<Formats> formats_;
};

/// Whether a locale's language is written from right to left; the empty text means the
/// environment's own. Costs next to nothing, which the formats of a whole locale do not.
[[nodiscard]] bool isRightToLeft(const std::string& localeId);

}  // namespace kelmar::system
