#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <rapidcheck.h>

#include "System/Calendar.h"
#include "tests/Support/Dates.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::system {

void PrintTo(const Date& date, std::ostream* stream) {
    *stream << std::to_string(date.secondsSince1970());
}

void PrintTo(const DateComponents& date, std::ostream* stream) {
    *stream << date.year << '-' << date.month << '-' << date.day << ' ' << date.hour << ':'
            << date.minute;
}

namespace {

using testing::ScopedVariable;
using testing::utc;

std::unique_ptr<Calendar> gregorian(const char* timeZone) {
    return makeCalendar("en_US@calendar=gregorian", timeZone);
}

struct DayCase {
    const char* name;
    const char* timeZone;
    Date moment;
    Date start;
    Date nextStart;

    friend void PrintTo(const DayCase& day, std::ostream* stream) { *stream << day.name; }
};

const DayCase dayCases[] = {
    {"OrdinaryDay", "America/New_York", utc(2025, 3, 6, 20), utc(2025, 3, 6, 5),
     utc(2025, 3, 7, 5)},
    {"DayOf23Hours", "America/New_York", utc(2025, 3, 9, 20), utc(2025, 3, 9, 5),
     utc(2025, 3, 10, 4)},
    {"DayOf25Hours", "America/New_York", utc(2025, 11, 2, 20), utc(2025, 11, 2, 4),
     utc(2025, 11, 3, 5)},
    {"HalfHourChange", "Australia/Lord_Howe", utc(2025, 4, 5, 20), utc(2025, 4, 5, 13),
     utc(2025, 4, 6, 13, 30)},
    {"FirstInstant", "Europe/Berlin", utc(2025, 6, 1, 22), utc(2025, 6, 1, 22),
     utc(2025, 6, 2, 22)},
    {"LastInstant", "Europe/Berlin", utc(2025, 6, 1, 21, 59, 59.999), utc(2025, 5, 31, 22),
     utc(2025, 6, 1, 22)},
    // The clocks go from 0:00 to 1:00: the day has no midnight.
    {"HavanaWithoutMidnight", "America/Havana", utc(2025, 3, 9, 18), utc(2025, 3, 9, 5),
     utc(2025, 3, 10, 4)},
    {"EveBeforeHavanaWithoutMidnight", "America/Havana", utc(2025, 3, 8, 18), utc(2025, 3, 8, 5),
     utc(2025, 3, 9, 5)},
    {"BeirutWithoutMidnight", "Asia/Beirut", utc(2024, 3, 31, 9), utc(2024, 3, 30, 22),
     utc(2024, 3, 31, 21)},
    {"SaoPauloWithoutMidnight", "America/Sao_Paulo", utc(2018, 11, 4, 12), utc(2018, 11, 4, 3),
     utc(2018, 11, 5, 2)},
    // From 1:00 back to 0:00: midnight comes twice, and the day begins at the first.
    {"HavanaBeforeSecondMidnight", "America/Havana", utc(2025, 11, 2, 4, 30), utc(2025, 11, 2, 4),
     utc(2025, 11, 3, 5)},
    {"HavanaAfterSecondMidnight", "America/Havana", utc(2025, 11, 2, 5, 30), utc(2025, 11, 2, 4),
     utc(2025, 11, 3, 5)},
    {"EveOfHavanaWithTwoMidnights", "America/Havana", utc(2025, 11, 1, 20), utc(2025, 11, 1, 4),
     utc(2025, 11, 2, 4)},
    // From 0:00 back to 23:00 of the day before, which so has 25 hours.
    {"SaoPauloWithLateEvening", "America/Sao_Paulo", utc(2019, 2, 17, 2, 30), utc(2019, 2, 16, 2),
     utc(2019, 2, 17, 3)},
    // Samoa crossed the date line and had no 30 December.
    {"ApiaBeforeMissingDay", "Pacific/Apia", utc(2011, 12, 30, 1), utc(2011, 12, 29, 10),
     utc(2011, 12, 30, 10)},
    {"ApiaAfterMissingDay", "Pacific/Apia", utc(2011, 12, 30, 12), utc(2011, 12, 30, 10),
     utc(2011, 12, 31, 10)},
    // From 0:01 back to 23:01: the next day has begun, and is over again.
    {"StJohnsBeforeSecondEvening", "America/St_Johns", utc(1987, 10, 25, 2),
     utc(1987, 10, 24, 2, 30), utc(1987, 10, 25, 2, 30)},
};

class DayBounds : public ::testing::TestWithParam<DayCase> {};

TEST_P(DayBounds, AreTheFirstInstantsOfThisDayAndTheNext) {
    const auto calendar = gregorian(GetParam().timeZone);
    EXPECT_EQ(calendar->startOfDay(GetParam().moment), GetParam().start);
    EXPECT_EQ(calendar->startOfNextDay(GetParam().moment), GetParam().nextStart);
}

INSTANTIATE_TEST_SUITE_P(Calendar, DayBounds, ::testing::ValuesIn(dayCases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(NextDay, IsNeverPastWhereTheEveningComesTwice) {
    const auto calendar = gregorian("America/St_Johns");
    // 23:30 for the second time: 0:00 to 0:01 of the next day lies half an hour back.
    const Date secondEvening = utc(1987, 10, 25, 3);
    ASSERT_EQ(calendar->components(secondEvening), (DateComponents{1987, 10, 24, 23, 30}));
    EXPECT_GT(calendar->startOfNextDay(secondEvening).value(), secondEvening);
}

TEST(AddingDays, KeepsTheTimeOfDayAcrossAClockChange) {
    const auto calendar = gregorian("America/New_York");
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 8, 13), 1), utc(2025, 3, 9, 12));
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 9, 12), -1), utc(2025, 3, 8, 13));
    EXPECT_EQ(calendar->addingDays(utc(2025, 11, 1, 12), 1), utc(2025, 11, 2, 13));
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 1, 13), 31), utc(2025, 4, 1, 12));
}

TEST(AddingDays, KeepsFractionsOfASecond) {
    const auto calendar = gregorian("Europe/Berlin");
    const Date moment = Date::since1970(1'741'305'600.123456);
    EXPECT_EQ(calendar->addingDays(moment, 1), moment + 86'400);
    EXPECT_EQ(calendar->addingDays(moment, 0), moment);
}

TEST(AddingDays, GoesToTheEndOfTheGapWhereTheTimeOfDayIsSkipped) {
    const auto calendar = gregorian("America/New_York");
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 8, 7, 30), 1), utc(2025, 3, 9, 7));
}

TEST(AddingDays, CountsOnlyDaysThatExist) {
    const auto calendar = gregorian("Pacific/Apia");
    const Date noonOf29th = utc(2011, 12, 29, 22);
    const Date noonOf31st = utc(2011, 12, 30, 22);
    EXPECT_EQ(calendar->addingDays(noonOf29th, 1), noonOf31st);
    EXPECT_EQ(calendar->addingDays(noonOf31st, -1), noonOf29th);
}

TEST(Components, AreThoseOfTheTimeZone) {
    const Date moment = utc(2025, 3, 7, 0, 5);
    EXPECT_EQ(gregorian("Asia/Tokyo")->components(moment), (DateComponents{2025, 3, 7, 9, 5}));
    EXPECT_EQ(gregorian("America/New_York")->components(moment),
              (DateComponents{2025, 3, 6, 19, 5}));
}

TEST(Components, OfAnUnknownTimeZoneAreThoseOfUniversalTime) {
    EXPECT_EQ(gregorian("Mars/Olympus_Mons")->components(utc(2025, 3, 7, 0, 5)),
              (DateComponents{2025, 3, 7, 0, 5}));
}

struct CalendarCase {
    const char* name;
    const char* locale;
    int year;
    int month;
    int day;

    friend void PrintTo(const CalendarCase& test, std::ostream* stream) { *stream << test.name; }
};

class ComponentsOfCalendar : public ::testing::TestWithParam<CalendarCase> {};

TEST_P(ComponentsOfCalendar, FollowItsOwnCount) {
    const auto calendar = makeCalendar(GetParam().locale, "UTC");
    EXPECT_EQ(calendar->components(utc(2025, 3, 1, 12)),
              (DateComponents{GetParam().year, GetParam().month, GetParam().day, 12, 0}));
}

INSTANTIATE_TEST_SUITE_P(
    Calendar, ComponentsOfCalendar,
    ::testing::Values(CalendarCase{"Gregorian", "de_DE", 2025, 3, 1},
                      CalendarCase{"BuddhistByLocale", "th_TH", 2568, 3, 1},
                      CalendarCase{"JapaneseEra", "ja_JP@calendar=japanese", 7, 3, 1},
                      CalendarCase{"UmmAlQura", "ar_SA@calendar=islamic-umalqura", 1446, 9, 1},
                      CalendarCase{"UmmAlQuraByTag", "ar-SA-u-ca-islamic-umalqura", 1446, 9, 1},
                      CalendarCase{"PersianByLocale", "fa_IR", 1403, 12, 11},
                      CalendarCase{"Hebrew", "he_IL@calendar=hebrew", 5785, 7, 1},
                      CalendarCase{"GregorianOfAThai", "th_TH@calendar=gregorian", 2025, 3, 1}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(HebrewCalendar, BeginsItsDaysAtMidnightToo) {
    const auto calendar = makeCalendar("he_IL@calendar=hebrew", "Asia/Jerusalem");
    EXPECT_EQ(calendar->startOfDay(utc(2025, 3, 1, 20)), utc(2025, 2, 28, 22));
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 1, 10), 30), utc(2025, 3, 31, 9));
}

TEST(SettingTime, StaysOnTheLocalDay) {
    const auto calendar = gregorian("America/New_York");
    EXPECT_EQ(calendar->settingTime(utc(2025, 10, 9, 3, 30), 16, 45), utc(2025, 10, 8, 20, 45));
    EXPECT_EQ(calendar->settingTime(utc(2025, 10, 9, 12, 34, 56.7), 8, 0), utc(2025, 10, 9, 12));
}

TEST(SettingTime, TakesTheFirstInstantAfterASkippedTime) {
    EXPECT_EQ(gregorian("America/New_York")->settingTime(utc(2025, 3, 9, 20), 2, 30),
              utc(2025, 3, 9, 7));
}

TEST(SettingTime, TakesTheFirstOfTwoEqualTimes) {
    EXPECT_EQ(gregorian("America/New_York")->settingTime(utc(2025, 11, 2, 20), 1, 30),
              utc(2025, 11, 2, 5, 30));
}

TEST(SameDay, IsThatOfTheLocalClock) {
    const auto calendar = gregorian("America/New_York");
    EXPECT_TRUE(calendar->isSameDay(utc(2025, 3, 9, 5), utc(2025, 3, 10, 3, 59)));
    EXPECT_FALSE(calendar->isSameDay(utc(2025, 3, 9, 4, 59), utc(2025, 3, 9, 5)));
    EXPECT_FALSE(calendar->isSameDay(utc(2024, 3, 9, 12), utc(2025, 3, 9, 12)));
}

class OutsideDate : public ::testing::TestWithParam<double> {};

TEST_P(OutsideDate, IsLeftAlone) {
    const Date date = Date::since1970(GetParam());
    for (const char* const locale : {"en_US", "ar_SA@calendar=islamic-umalqura",
                                     "he_IL@calendar=hebrew", "zh@calendar=chinese"}) {
        const auto calendar = makeCalendar(locale, "America/New_York");
        EXPECT_EQ(calendar->startOfDay(date), date);
        EXPECT_EQ(calendar->settingTime(date, 8, 0), date);
        EXPECT_EQ(calendar->components(date), DateComponents());
        EXPECT_EQ(calendar->addingDays(date, 1), std::nullopt);
        EXPECT_EQ(calendar->startOfNextDay(date), std::nullopt);
    }
}

INSTANTIATE_TEST_SUITE_P(Calendar, OutsideDate,
                         ::testing::Values(1e14, -1e14, 1e300, -1e300,
                                           std::numeric_limits<double>::max(),
                                           std::numeric_limits<double>::lowest()));

TEST(AddingDays, BeyondTheCalendarGivesNothing) {
    const auto calendar = gregorian("Europe/Berlin");
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 7), std::numeric_limits<int>::max()), std::nullopt);
    EXPECT_EQ(calendar->addingDays(utc(2025, 3, 7), std::numeric_limits<int>::min()), std::nullopt);
}

TEST(CalendarOfTheEnvironment, FollowsItsVariables) {
    const ScopedVariable timeZone("TZ", "Asia/Tokyo");
    const ScopedVariable all("LC_ALL", std::nullopt);
    const ScopedVariable language("LANG", "en_US.UTF-8");
    const ScopedVariable time("LC_TIME", "th_TH.UTF-8");
    EXPECT_EQ(makeCalendar("", "")->components(utc(2025, 3, 7, 0, 5)),
              (DateComponents{2568, 3, 7, 9, 5}));
}

/// Any calendar in any of the zones that treat their midnights worst.
std::unique_ptr<Calendar> anyCalendar() {
    const std::string locale = *rc::gen::element<std::string>(
        "en_US", "th_TH", "fa_IR", "he_IL@calendar=hebrew", "ar_SA@calendar=islamic-umalqura");
    const std::string timeZone = *rc::gen::element<std::string>(
        "America/Havana", "America/Sao_Paulo", "America/St_Johns", "America/Santiago",
        "Asia/Beirut", "Asia/Tehran", "Asia/Kathmandu", "Africa/Cairo", "Atlantic/Azores",
        "Australia/Lord_Howe", "Europe/London", "Pacific/Apia", "Pacific/Kwajalein");
    return makeCalendar(locale, timeZone);
}

TEST(StartOfDay, IsTheFirstInstantOfAnyDay) {
    EXPECT_TRUE(rc::check([] {
        const auto calendar = anyCalendar();
        const Date date = Date::since1970(*rc::gen::inRange<int>(-1'000'000'000, 2'000'000'000));
        const auto day = [&](Date moment) {
            const DateComponents components = calendar->components(moment);
            return std::tuple(components.year, components.month, components.day);
        };
        const Date start = calendar->startOfDay(date);
        RC_ASSERT(start <= date);
        RC_ASSERT(day(start) == day(date));
        RC_ASSERT(calendar->startOfDay(start) == start);
        // No moment before belongs to the day, also not across a clock change.
        for (const double back : {0.001, 60., 1800., 3600., 7200., 86'400.})
            RC_ASSERT(day(start + -back) != day(date));
    }));
}

TEST(StartOfNextDay, ComesAfterAnyDateAndStartsADay) {
    EXPECT_TRUE(rc::check([] {
        const auto calendar = anyCalendar();
        const Date date = Date::since1970(*rc::gen::inRange<int>(-1'000'000'000, 2'000'000'000));
        const Date next = calendar->startOfNextDay(date).value();
        RC_ASSERT(next > date);
        RC_ASSERT(next - date <= 50 * 3600);
        RC_ASSERT(calendar->startOfDay(next) == next);
        RC_ASSERT(!calendar->isSameDay(next, date));
    }));
}

}  // namespace
}  // namespace kelmar::system
