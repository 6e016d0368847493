#include <gtest/gtest.h>
#include <limits>
#include <ostream>

#include "System/LocaleTexts.h"
#include "tests/Support/Dates.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::system {
namespace {

using testing::ScopedVariable;
using testing::utc;

struct LocaleCase {
    const char* locale;
    const char* shortTime;
    const char* weekday;
    const char* narrowWeekday;
    const char* monthAndDay;
    const char* weekdayMonthAndDay;
    const char* shortWeekdayMonthAndDay;

    friend void PrintTo(const LocaleCase& printed, std::ostream* stream) {
        *stream << printed.locale;
    }
};

/// Thursday, 9 October 2025, 15:30, in the words of ICU.
const LocaleCase localeCases[] = {
    {"en_US", "3:30\u202FPM", "Thursday", "T", "Oct 9", "Thursday, Oct 9", "Thu, Oct 9"},
    {"en_GB", "15:30", "Thursday", "T", "9 Oct", "Thursday, 9 Oct", "Thu, 9 Oct"},
    {"de_DE", "15:30", "Donnerstag", "D", "9. Okt.", "Donnerstag, 9. Okt.", "Do., 9. Okt."},
    {"ja_JP", "15:30", "木曜日", "木", "10月9日", "10月9日木曜日", "10月9日(木)"},
    {"th_TH", "15:30", "วันพฤหัสบดี", "พฤ", "9 ต.ค.", "วันพฤหัสบดีที่ 9 ต.ค.", "พฤ. 9 ต.ค."},
    {"ar_EG@calendar=gregorian", "٣:٣٠ م", "الخميس", "خ", "٩ أكتوبر", "الخميس، ٩ أكتوبر",
     "الخميس، ٩ أكتوبر"},
};

class TextsOfLocale : public ::testing::TestWithParam<LocaleCase> {};

TEST_P(TextsOfLocale, AreItsOwn) {
    const LocaleCase& expected = GetParam();
    const LocaleTexts texts(expected.locale, "America/New_York");
    const Date date = utc(2025, 10, 9, 19, 30);
    EXPECT_EQ(texts.shortTime(date), expected.shortTime);
    EXPECT_EQ(texts.weekday(date), expected.weekday);
    EXPECT_EQ(texts.narrowWeekday(date), expected.narrowWeekday);
    EXPECT_EQ(texts.monthAndDay(date), expected.monthAndDay);
    EXPECT_EQ(texts.weekdayMonthAndDay(date), expected.weekdayMonthAndDay);
    EXPECT_EQ(texts.shortWeekdayMonthAndDay(date), expected.shortWeekdayMonthAndDay);
}

INSTANTIATE_TEST_SUITE_P(LocaleTexts, TextsOfLocale, ::testing::ValuesIn(localeCases),
                         [](const auto& test) { return std::string(test.param.locale, 5); });

TEST(LocaleTexts, FollowTheTimeZone) {
    const Date date = utc(2025, 10, 9, 19, 30);
    EXPECT_EQ(LocaleTexts("de_DE", "Asia/Tokyo").shortTime(date), "04:30");
    EXPECT_EQ(LocaleTexts("de_DE", "Asia/Tokyo").weekday(date), "Freitag");
}

TEST(LocaleTexts, FollowTheCalendarOfTheLocale) {
    const LocaleTexts texts("en_US@calendar=islamic-umalqura", "UTC");
    EXPECT_EQ(texts.monthAndDay(utc(2025, 3, 1, 12)), "Ram. 1");
}

TEST(LocaleTexts, FollowTheHourCycleThatTheLocaleNames) {
    const Date date = utc(2025, 10, 9, 19, 30);
    EXPECT_EQ(LocaleTexts("en_US@hours=h23", "UTC").shortTime(date), "19:30");
    EXPECT_EQ(LocaleTexts("en-US-u-hc-h23", "UTC").shortTime(date), "19:30");
}

TEST(LocaleTexts, SayHowLongAgoInTheLargestUnitThatFits) {
    const LocaleTexts english("en", "");
    EXPECT_EQ(english.timeAgo(-5), "0 seconds ago");
    EXPECT_EQ(english.timeAgo(0.9), "0 seconds ago");
    EXPECT_EQ(english.timeAgo(1), "1 second ago");
    EXPECT_EQ(english.timeAgo(59.9), "59 seconds ago");
    EXPECT_EQ(english.timeAgo(60), "1 minute ago");
    EXPECT_EQ(english.timeAgo(12 * 60 + 59), "12 minutes ago");
    EXPECT_EQ(english.timeAgo(3'600), "1 hour ago");
    EXPECT_EQ(english.timeAgo(86'399), "23 hours ago");
    EXPECT_EQ(english.timeAgo(86'400), "1 day ago");
    EXPECT_EQ(english.timeAgo(400.0 * 86'400), "400 days ago");
}

TEST(LocaleTexts, SayHowLongAgoWithTheNumbersOfTheLanguage) {
    EXPECT_EQ(LocaleTexts("de", "").timeAgo(60), "vor 1 Minute");
    EXPECT_EQ(LocaleTexts("de", "").timeAgo(720), "vor 12 Minuten");
    const LocaleTexts arabic("ar", "");
    EXPECT_EQ(arabic.timeAgo(120), "قبل دقيقتين");
    EXPECT_EQ(arabic.timeAgo(180), "قبل ٣ دقائق");
    EXPECT_EQ(arabic.timeAgo(720), "قبل ١٢ دقيقة");
}

TEST(LocaleTexts, KnowTheDirectionOfTheScript) {
    EXPECT_TRUE(isRightToLeft("ar_EG"));
    EXPECT_TRUE(isRightToLeft("he_IL"));
    EXPECT_FALSE(isRightToLeft("en_US"));
    EXPECT_FALSE(isRightToLeft("az_AZ"));
    EXPECT_TRUE(isRightToLeft("az_Arab_IR"));
}

TEST(LocaleTexts, OfNoLocaleAreThoseOfTheEnvironment) {
    const ScopedVariable all("LC_ALL", std::nullopt);
    const ScopedVariable time("LC_TIME", std::nullopt);
    const ScopedVariable language("LANG", "de_DE.UTF-8");
    EXPECT_EQ(LocaleTexts("", "UTC").weekday(utc(2025, 10, 9)), "Donnerstag");
    const ScopedVariable formats("LC_TIME", "fr_FR.UTF-8");
    EXPECT_EQ(LocaleTexts("", "UTC").weekday(utc(2025, 10, 9)), "jeudi");
    const ScopedVariable everything("LC_ALL", "it_IT");
    EXPECT_EQ(LocaleTexts("", "UTC").weekday(utc(2025, 10, 9)), "giovedì");
}

TEST(LocaleTexts, OfAnEnvironmentWithoutLanguageAreEnglish) {
    for (const char* const locale : {"C", "C.UTF-8", "POSIX"}) {
        const ScopedVariable all("LC_ALL", locale);
        EXPECT_EQ(LocaleTexts("", "UTC").shortTime(utc(2025, 10, 9, 15, 30)), "3:30\u202FPM");
    }
}

TEST(LocaleTexts, HaveWordsForDatesBeyondAllCalendars) {
    const LocaleTexts texts("ar_SA@calendar=islamic-umalqura", "UTC");
    for (const double seconds : {-1e300, 1e300, std::numeric_limits<double>::max()})
        EXPECT_FALSE(texts.weekdayMonthAndDay(Date::since1970(seconds)).empty());
}

}  // namespace
}  // namespace kelmar::system
