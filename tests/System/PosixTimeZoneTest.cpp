#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "System/Calendar.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::system {
namespace {

using testing::ScopedVariable;

struct RuleCase {
    const char* name;
    const char* rule;

    friend void PrintTo(const RuleCase& rule, std::ostream* stream) { *stream << rule.name; }
};

/// The environment's zone is that of a rule, for the C library too.
class RuleTest {
public:
    explicit RuleTest(const char* rule) : variable_("TZ", rule) { tzset(); }

    /// The moments of some years at which the calendar reads another time than the C library.
    [[nodiscard]] std::vector<std::time_t> differences() const {
        constexpr std::time_t firstYear = 1'735'689'600;  // 2025
        constexpr std::time_t fourYears = 1'461 * 86'400;
        constexpr std::time_t step = 900;
        const auto calendar = makeCalendar("en_US@calendar=gregorian", "");
        std::vector<std::time_t> found;
        for (auto moment = firstYear; moment < firstYear + fourYears; moment += step) {
            std::tm local{};
            localtime_r(&moment, &local);
            const DateComponents wanted{.year = local.tm_year + 1900,
                                        .month = local.tm_mon + 1,
                                        .day = local.tm_mday,
                                        .hour = local.tm_hour,
                                        .minute = local.tm_min};
            if (calendar->components(Date::since1970(static_cast<double>(moment))) != wanted) {
                found.push_back(moment);
            }
        }
        return found;
    }

private:
    ScopedVariable variable_;
};

class PosixRule : public ::testing::TestWithParam<RuleCase> {};

TEST_P(PosixRule, GivesTheWallTimeOfTheCLibrary) {
    const RuleTest test(GetParam().rule);
    EXPECT_EQ(test.differences(), std::vector<std::time_t>());
    EXPECT_EQ(timeZoneTrouble(), "");
}

INSTANTIATE_TEST_SUITE_P(
    All, PosixRule,
    ::testing::Values(RuleCase{"WestOfGreenwich", "EST5"}, RuleCase{"EastOfGreenwich", "JST-9"},
                      RuleCase{"WithMinutes", "NIGHT+17:28"}, RuleCase{"HalfAnHour", "IST-5:30"},
                      RuleCase{"NumbersAsName", "<+0330>-3:30"},
                      RuleCase{"LooksLikeAnotherZone", "GMT-3"},
                      RuleCase{"Europe", "CET-1CEST,M3.5.0,M10.5.0/3"},
                      RuleCase{"America", "PST8PDT,M3.2.0,M11.1.0"},
                      RuleCase{"SouthernHalf", "AEST-10AEDT,M10.1.0,M4.1.0/3"},
                      RuleCase{"SavingOfHalfAnHour", "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0"},
                      RuleCase{"DaysOfTheYear", "AAA3BBB,J60/0,J300/1:30"},
                      RuleCase{"EndOfTheDay", "AAA3BBB,M3.4.4/24,M9.4.6/24"},
                      RuleCase{"NameOfAZone", "Europe/Berlin"},
                      RuleCase{"NameAfterAColon", ":America/New_York"},
                      RuleCase{"NameLikeARule", "EST5EDT"},
                      RuleCase{"NameWithoutLeapSeconds", "posix/Europe/Berlin"},
                      RuleCase{"File", "/usr/share/zoneinfo/Europe/Berlin"}),
    [](const auto& each) { return std::string(each.param.name); });

struct TroubleCase {
    const char* rule;
    const char* trouble;

    friend void PrintTo(const TroubleCase& each, std::ostream* stream) { *stream << each.rule; }
};

class TroublesomeRule : public ::testing::TestWithParam<TroubleCase> {};

TEST_P(TroublesomeRule, IsToldWithWhatIsUsedInstead) {
    const ScopedVariable zone("TZ", GetParam().rule);
    tzset();
    EXPECT_EQ(timeZoneTrouble(), GetParam().trouble);
}

INSTANTIATE_TEST_SUITE_P(
    All, TroublesomeRule,
    ::testing::Values(
        TroubleCase{"AAA3BBB,59,300",
                    "TZ is \"AAA3BBB,59,300\", whose daylight saving time is not understood: "
                    "UTC-03:00 is used all year"},
        TroubleCase{"CET-1CEST",
                    "TZ is \"CET-1CEST\", whose daylight saving time is not understood: UTC+01:00 "
                    "is used all year"},
        TroubleCase{"<-02>2<-01>,M3.5.0/-1,M10.5.0/0",
                    "TZ is \"<-02>2<-01>,M3.5.0/-1,M10.5.0/0\", whose daylight saving time is not "
                    "understood: UTC-02:00 is used all year"},
        TroubleCase{"IST-2IDT,M3.4.4/26,M10.5.0",
                    "TZ is \"IST-2IDT,M3.4.4/26,M10.5.0\", whose daylight saving time is not "
                    "understood: UTC+02:00 is used all year"},
        TroubleCase{"IST-5:30IDT,M13.1.0,M1.1.0",
                    "TZ is \"IST-5:30IDT,M13.1.0,M1.1.0\", whose daylight saving time is not "
                    "understood: UTC+05:30 is used all year"},
        TroubleCase{"Nowhere/Land",
                    "TZ is \"Nowhere/Land\", which is no known time zone: UTC+00:00 is used all "
                    "year"},
        TroubleCase{"AB3",
                    "TZ is \"AB3\", which is no known time zone: UTC+00:00 is used all year"},
        TroubleCase{"AAA",
                    "TZ is \"AAA\", which is no known time zone: UTC+00:00 is used all year"},
        TroubleCase{"", ""}));

}  // namespace
}  // namespace kelmar::system
