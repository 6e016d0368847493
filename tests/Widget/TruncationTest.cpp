#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>

#include "System/Fatal.h"
#include "Widget/Truncation.h"

namespace kelmar::widget {
namespace {

using Whole = std::numeric_limits<std::int64_t>;
using Real = std::numeric_limits<double>;

struct TruncationRow {
    double number;
    std::int64_t whole;
};

TEST(Truncated, DropsTheFractionTowardsZero) {
    for (const TruncationRow& row : {TruncationRow{0, 0},
                                     {0.999, 0},
                                     {-0.999, 0},
                                     {1.5, 1},
                                     {-1.5, -1},
                                     {25.5, 25},
                                     {749.9999, 749},
                                     {-5.7, -5},
                                     {Real::denorm_min(), 0}})
        EXPECT_EQ(truncated(row.number), row.whole) << row.number;
}

TEST(Truncated, ReachesTheOutermostWholeNumbersThatADoubleHas) {
    EXPECT_EQ(truncated(-0x1p63), Whole::min());
    EXPECT_EQ(truncated(std::nextafter(0x1p63, 0)), Whole::max() - 1023);
}

TEST(Truncated, IsNeverFartherFromZeroAndLessThanOneAway) {
    EXPECT_TRUE(rc::check([] {
        const auto parts = *rc::gen::inRange<std::int64_t>(-1'000'000'000, 1'000'000'000);
        const double number = static_cast<double>(parts) / 512;
        const auto whole = static_cast<double>(truncated(number));
        RC_ASSERT(std::abs(whole) <= std::abs(number));
        RC_ASSERT(std::abs(number - whole) < 1);
    }));
}

TEST(TruncatedDeathTest, EndsTheProcessForANumberThatDoesNotFit) {
    for (const double number : {0x1p63, std::nextafter(-0x1p63, -Real::infinity()), 1e300, -1e300,
                                Real::infinity(), -Real::infinity(), Real::quiet_NaN()})
        EXPECT_EXIT(static_cast<void>(truncated(number)),
                    ::testing::ExitedWithCode(system::fatalExitStatus),
                    "^[^\n]*fits no whole number of 64 bits\\.\n$")
            << number;
}

}  // namespace
}  // namespace kelmar::widget
