#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "Host/Backoff.h"
#include "Host/Throttle.h"

namespace kelmar::host {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

std::vector<int> secondsOf(Backoff& backoff, int count) {
    std::vector<int> seconds;
    seconds.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        seconds.push_back(static_cast<int>(backoff.next() / 1s));
    }
    return seconds;
}

TEST(Backoff, DoublesFromOneSecondToFiveMinutes) {
    Backoff backoff{HostLimits{}};
    EXPECT_THAT(secondsOf(backoff, 11), ElementsAre(1, 2, 4, 8, 16, 32, 64, 128, 256, 300, 300));
}

TEST(Backoff, BeginsAnewAfterSuccess) {
    Backoff backoff{HostLimits{}};
    EXPECT_TRUE(backoff.isReset());
    EXPECT_THAT(secondsOf(backoff, 3), ElementsAre(1, 2, 4));
    EXPECT_FALSE(backoff.isReset());
    backoff.reset();
    EXPECT_TRUE(backoff.isReset());
    EXPECT_THAT(secondsOf(backoff, 2), ElementsAre(1, 2));
}

TEST(Throttle, PassesTheFirstFewOfEachSpan) {
    using enum Throttle::Verdict;
    Throttle throttle(2, 100ms);
    EXPECT_EQ(throttle.admit(0ms), pass);
    EXPECT_EQ(throttle.admit(1ms), pass);
    EXPECT_EQ(throttle.admit(2ms), drop);
    EXPECT_EQ(throttle.admit(99ms), drop);
    EXPECT_EQ(throttle.admit(100ms), pass);
    EXPECT_EQ(throttle.admit(250ms), pass);
    EXPECT_EQ(throttle.admit(260ms), pass);
}

}  // namespace
}  // namespace kelmar::host
