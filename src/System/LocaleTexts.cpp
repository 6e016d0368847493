#include "System/LocaleTexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unicode/dtptngen.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <utility>

#include "System/Fatal.h"
#include "System/IcuLocale.h"

namespace kelmar::system {
namespace {

/// Some 300,000 years: what lies beyond comes from a broken file, and would cost some of ICU's
/// calendars minutes.
constexpr Seconds farthest = 1e13;

template <class Object>
std::unique_ptr<Object> made(Object* object, UErrorCode status) {
    std::unique_ptr<Object> owned(object);
    if (U_FAILURE(status))
        fatal(std::string("ICU has no date formats of this locale: ") + u_errorName(status));
    return owned;
}

}  // namespace

/// The formatters, each made when it is first needed: loading a locale's patterns is the slowest
/// thing that a short-lived process does with dates, and most processes need few of them.
struct LocaleTexts::Formats {
    icu::Locale locale;
    std::unique_ptr<icu::TimeZone> timeZone;
    std::unique_ptr<icu::DateTimePatternGenerator> patterns;
    std::unique_ptr<icu::DateFormat> shortTime;
    std::unique_ptr<icu::DateFormat> weekday;
    std::unique_ptr<icu::DateFormat> narrowWeekday;
    std::unique_ptr<icu::DateFormat> monthAndDay;
    std::unique_ptr<icu::DateFormat> weekdayMonthAndDay;
    std::unique_ptr<icu::DateFormat> shortWeekdayMonthAndDay;

    /// A formatter of the pattern that the locale prefers for these fields.
    std::unique_ptr<icu::DateFormat> makeFormat(const char* skeleton) {
        UErrorCode status = U_ZERO_ERROR;
        if (!patterns) {
            auto* const generator = icu::DateTimePatternGenerator::createInstance(locale, status);
            patterns = made(generator, status);
        }
        const icu::UnicodeString pattern =
            patterns->getBestPattern(icu::UnicodeString(skeleton, -1, US_INV), status);
        auto* const simpleFormat = new icu::SimpleDateFormat(pattern, locale, status);
        std::unique_ptr<icu::DateFormat> format = made<icu::DateFormat>(simpleFormat, status);
        format->setTimeZone(*timeZone);
        return format;
    }

    std::string text(std::unique_ptr<icu::DateFormat>& format, const char* skeleton, Date date) {
        if (!format)
            format = makeFormat(skeleton);
        icu::UnicodeString text;
        std::string utf8;
        format->format(std::clamp(date.secondsSince1970(), -farthest, farthest) * 1000, text);
        return text.toUTF8String(utf8);
    }
};

LocaleTexts::LocaleTexts(const std::string& localeId, const std::string& timeZoneId)
    : formats_(std::make_unique<Formats>()) {
    formats_->locale = makeLocale(localeId);
    formats_->timeZone = makeTimeZone(timeZoneId);
}

LocaleTexts::~LocaleTexts() = default;
LocaleTexts::LocaleTexts(LocaleTexts&&) noexcept = default;
LocaleTexts& LocaleTexts::operator=(LocaleTexts&&) noexcept = default;

std::string LocaleTexts::shortTime(Date date) const {
    return formats_->text(formats_->shortTime, "jm", date);
}

std::string LocaleTexts::weekday(Date date) const {
    return formats_->text(formats_->weekday, "EEEE", date);
}

std::string LocaleTexts::narrowWeekday(Date date) const {
    return formats_->text(formats_->narrowWeekday, "ccccc", date);
}

std::string LocaleTexts::monthAndDay(Date date) const {
    return formats_->text(formats_->monthAndDay, "MMMd", date);
}

std::string LocaleTexts::weekdayMonthAndDay(Date date) const {
    return formats_->text(formats_->weekdayMonthAndDay, "EEEEMMMd", date);
}

std::string LocaleTexts::shortWeekdayMonthAndDay(Date date) const {
    return formats_->text(formats_->shortWeekdayMonthAndDay, "EEEMMMd", date);
}

std::string LocaleTexts::timeAgo(Seconds age) const {
    struct Unit {
        Seconds length;
        URelativeDateTimeUnit name;
    };
    constexpr std::array units{Unit{86'400, UDAT_REL_UNIT_DAY}, Unit{3'600, UDAT_REL_UNIT_HOUR},
                               Unit{60, UDAT_REL_UNIT_MINUTE}, Unit{1, UDAT_REL_UNIT_SECOND}};
    const Seconds past = std::clamp(age, 0.0, farthest);
    const auto* const found = std::ranges::find_if(
        units, [&](const Unit& candidate) { return past >= candidate.length; });
    const Unit& unit = found != units.end() ? *found : units.back();
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    const icu::RelativeDateTimeFormatter formatter(formats_->locale, status);
    // A number below zero is past; that zero has a sign as well.
    formatter.formatNumeric(-std::floor(past / unit.length), unit.name, text, status);
    if (U_FAILURE(status))
        fatal(std::string("ICU has no relative dates of this locale: ") + u_errorName(status));
    std::string utf8;
    return text.toUTF8String(utf8);
}

bool isRightToLeft(const std::string& localeId) {
    return makeLocale(localeId).isRightToLeft() != 0;
}

}  // namespace kelmar::system
