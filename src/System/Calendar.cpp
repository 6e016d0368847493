#include "System/Calendar.h"

#include <cmath>
#include <cstdlib>
#include <unicode/calendar.h>

#include "System/Fatal.h"
#include "System/IcuLocale.h"

namespace kelmar::system {
namespace {

/// A calendar of ICU's. One ICU object serves every question, set anew each time, because making
/// one costs a hundred times more than using it; hence an object of this class belongs to one
/// thread.
class IcuCalendar final : public Calendar {
public:
    explicit IcuCalendar(std::unique_ptr<icu::Calendar> calendar) : icu_(std::move(calendar)) {
        icu_->setLenient(true);
        icu_->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
        icu_->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    }

    [[nodiscard]] Date startOfDay(Date date) const override { return settingTime(date, 0, 0); }

    [[nodiscard]] std::optional<Date> addingDays(Date date, int days) const override {
        const Seconds whole = std::floor(date.secondsSince1970());
        UErrorCode status = U_ZERO_ERROR;
        if (!moveTo(Date::since1970(whole)))
            return std::nullopt;
        icu_->add(UCAL_DATE, days, status);
        const UDate moved = icu_->getTime(status);
        if (U_FAILURE(status) || !isInRange(moved))
            return std::nullopt;
        return Date::since1970(moved / 1000 + (date.secondsSince1970() - whole));
    }

    [[nodiscard]] DateComponents components(Date date) const override {
        if (!moveTo(date))
            return {};
        return {.year = field(UCAL_YEAR),
                .month = field(UCAL_MONTH) + 1,
                .day = field(UCAL_DATE),
                .hour = field(UCAL_HOUR_OF_DAY),
                .minute = field(UCAL_MINUTE)};
    }

    [[nodiscard]] Date settingTime(Date date, int hour, int minute) const override {
        if (!moveTo(date))
            return date;
        icu_->set(UCAL_HOUR_OF_DAY, hour);
        icu_->set(UCAL_MINUTE, minute);
        icu_->set(UCAL_SECOND, 0);
        icu_->set(UCAL_MILLISECOND, 0);
        UErrorCode status = U_ZERO_ERROR;
        const UDate moved = icu_->getTime(status);
        return U_FAILURE(status) ? date : Date::since1970(moved / 1000);
    }

private:
    /// From about 1200 BC to the year 319,000: what lies beyond comes from a broken file, and some
    /// of ICU's calendars are wrong there, or walk for minutes from one year to the next.
    static bool isInRange(UDate milliseconds) {
        return milliseconds > -1e14 && milliseconds < 1e16;
    }

    [[nodiscard]] bool moveTo(Date date) const {
        const UDate milliseconds = date.secondsSince1970() * 1000;
        UErrorCode status = U_ZERO_ERROR;
        if (!isInRange(milliseconds))
            return false;
        icu_->setTime(milliseconds, status);
        return U_SUCCESS(status);
    }

    [[nodiscard]] int field(UCalendarDateFields name) const {
        UErrorCode status = U_ZERO_ERROR;
        const int value = icu_->get(name, status);
        return U_FAILURE(status) ? 0 : value;
    }

    std::unique_ptr<icu::Calendar> icu_;
};

}  // namespace

std::optional<Date> Calendar::startOfNextDay(Date date) const {
    const Date today = startOfDay(date);
    // Where the clocks go back just after midnight, what is left of the evening comes after the
    // next day has begun for the first time. Nobody may be told to wait for a moment that is past.
    for (const int days : {1, 2}) {
        const std::optional<Date> nextDay = addingDays(today, days);
        if (!nextDay)
            return std::nullopt;
        const Date start = startOfDay(*nextDay);
        if (start > date)
            return start;
    }
    return std::nullopt;
}

bool Calendar::isSameDay(Date first, Date second) const {
    return startOfDay(first) == startOfDay(second);
}

std::unique_ptr<Calendar> makeCalendar(const std::string& localeId, const std::string& timeZoneId) {
    const icu::Locale locale = makeLocale(localeId);
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(makeTimeZone(timeZoneId).release(), locale, status));
    if (U_FAILURE(status))
        fatal(std::string("ICU has no calendar of this locale: ") + u_errorName(status));
    return std::make_unique<IcuCalendar>(std::move(calendar));
}

std::string timeZoneTrouble() {
    // Else there is nothing to be wrong with, and ICU would look for the machine's zone once more.
    return std::getenv("TZ") != nullptr ? hostTimeZone().trouble : std::string();
}

}  // namespace kelmar::system
