#include <chrono>
#include <gtest/gtest.h>

#include "System/Clock.h"
#include "System/Date.h"

namespace kelmar::system {
namespace {

TEST(Date, KeepsTheTwoEpochsApart) {
    EXPECT_EQ(Date::since2001(0), Date::since1970(978'307'200));
    EXPECT_EQ(Date::since1970(978'307'205.5).secondsSince2001(), 5.5);
    EXPECT_EQ(Date::since2001(-978'307'200).secondsSince1970(), 0);
}

TEST(Date, IsOrderedByTime) {
    EXPECT_LT(Date::since1970(978'307'199), Date::since2001(0));
    EXPECT_EQ(Date::since1970(10) + 2.5, Date::since1970(12.5));
    EXPECT_EQ(Date::since1970(10) - Date::since1970(7.5), 2.5);
}

TEST(SystemClock, ShowsTheTimeOfTheMachine) {
    const auto seconds = [] {
        const auto elapsed = std::chrono::system_clock::now().time_since_epoch();
        return std::chrono::duration<double>(elapsed).count();
    };
    const double before = seconds();
    const Date now = SystemClock().now();
    const double after = seconds();
    EXPECT_LE(before, now.secondsSince1970());
    EXPECT_LE(now.secondsSince1970(), after);
}

TEST(ManualClock, StandsStillUntilItIsSet) {
    ManualClock clock(Date::since1970(5));
    EXPECT_EQ(clock.now(), Date::since1970(5));
    clock.set(Date::since1970(3));
    EXPECT_EQ(clock.now(), Date::since1970(3));
}

}  // namespace
}  // namespace kelmar::system
