#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/ReloadRequests.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ReloadRequestsTest : public testing::Test {
protected:
    ManualTimers timers_;
    std::vector<std::string> done_;
    ReloadRequests requests_{timers_,
                             {.askedReloads = 3, .askedReloadsTime = 1s},
                             [this](const std::string& kind) { done_.push_back(kind); },
                             [this] { done_.emplace_back("all"); }};
};

TEST_F(ReloadRequestsTest, TheFirstOnesAreDoneAtOnce) {
    requests_.ask("a");
    requests_.askForAll();
    requests_.ask("a");
    EXPECT_THAT(done_, ElementsAre("a", "all", "a"));
    EXPECT_EQ(timers_.armed(), 0);
}

TEST_F(ReloadRequestsTest, WhatComesTooSoonIsDoneTogetherAndNotLost) {
    for (int count = 0; count < 3; ++count) {
        requests_.ask("a");
    }
    done_.clear();
    for (int count = 0; count < 1'000; ++count) {
        requests_.ask("b");
        requests_.ask("a");
    }
    EXPECT_THAT(done_, IsEmpty());
    timers_.advance(1s);
    EXPECT_THAT(done_, ElementsAre("a", "b"));
    timers_.advance(1h);
    EXPECT_THAT(done_, SizeIs(2));
}

TEST_F(ReloadRequestsTest, OneForAllStandsForThoseOfSingleKinds) {
    for (int count = 0; count < 3; ++count) {
        requests_.askForAll();
    }
    done_.clear();
    requests_.ask("a");
    requests_.askForAll();
    requests_.ask("b");
    timers_.advance(1s);
    EXPECT_THAT(done_, ElementsAre("all"));
}

TEST_F(ReloadRequestsTest, SomebodyWhoNeverStopsIsHeardAFewTimesASecond) {
    for (int tenth = 0; tenth < 600; ++tenth) {
        requests_.askForAll();
        timers_.advance(100ms);
    }
    EXPECT_GE(done_.size(), 60U);
    EXPECT_LE(done_.size(), 4U * 60U);
}

TEST_F(ReloadRequestsTest, SomebodyWhoRestsIsDoneAtOnceAgain) {
    for (int count = 0; count < 5; ++count) {
        requests_.ask("a");
    }
    timers_.advance(3s);
    done_.clear();
    requests_.ask("c");
    EXPECT_THAT(done_, ElementsAre("c"));
}

}  // namespace
}  // namespace kelmar::host
