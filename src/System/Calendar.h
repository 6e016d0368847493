#pragma once

#include <memory>
#include <optional>
#include <string>

#include "System/Date.h"

namespace kelmar::system {

/// A date as the user's calendar and time zone write it. A component that the calendar cannot
/// give is 0.
struct DateComponents {
    int year = 0;
    int month = 0;  ///< From 1.
    int day = 0;    ///< Of the month, from 1.
    int hour = 0;   ///< 0 to 23.
    int minute = 0;

    friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

/// The user's current calendar in the user's time zone. Days are calendar days, never steps of
/// 86,400 seconds: a day may be 23 or 25 hours long, begin at 1:00, or be missing altogether. A
/// date that is thousands of years away stands outside the calendar: it is its own start of day
/// and has no components. A calendar belongs to one thread.
class Calendar {
public:
    virtual ~Calendar() = default;

    /// The first instant of the local day that holds `date`, also where midnight is skipped or
    /// comes twice.
    [[nodiscard]] virtual Date startOfDay(Date date) const = 0;
    /// The same wall-clock time `days` calendar days later (earlier when negative); nothing when
    /// the calendar cannot produce that day.
    [[nodiscard]] virtual std::optional<Date> addingDays(Date date, int days) const = 0;
    [[nodiscard]] virtual DateComponents components(Date date) const = 0;
    /// `hour`:`minute`:00 on the local day that holds `date`; the first instant after it where
    /// the clocks skip that time.
    [[nodiscard]] virtual Date settingTime(Date date, int hour, int minute) const = 0;

    /// The first instant of the day after the one that holds `date`, always later than `date`;
    /// nothing when the calendar cannot produce it.
    [[nodiscard]] std::optional<Date> startOfNextDay(Date date) const;
    [[nodiscard]] bool isSameDay(Date first, Date second) const;
};

/// The calendar of a locale (which may name one: "ar_SA@calendar=islamic-umalqura") in an IANA
/// time zone. Empty texts mean the environment's own. An unknown zone is UTC, as ICU has it.
[[nodiscard]] std::unique_ptr<Calendar> makeCalendar(const std::string& localeId,
                                                     const std::string& timeZoneId);

/// What is wrong with the time zone that the environment names, and what is used instead, as one
/// sentence; empty when all is well.
[[nodiscard]] std::string timeZoneTrouble();

}  // namespace kelmar::system
