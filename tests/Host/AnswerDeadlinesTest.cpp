#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "Host/AnswerDeadlines.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AnswerDeadlinesTest : public testing::Test {
protected:
    ManualTimers timers_;
    std::vector<RequestNumber> overdue_;
    AnswerDeadlines deadlines_{timers_, 5s,
                               [this](RequestNumber number) { overdue_.push_back(number); }};
};

TEST_F(AnswerDeadlinesTest, NamesWhatWasNotAnsweredInTime) {
    deadlines_.sent(1);
    timers_.advance(4'999ms);
    EXPECT_THAT(overdue_, IsEmpty());
    timers_.advance(1ms);
    EXPECT_THAT(overdue_, ElementsAre(1));
}

TEST_F(AnswerDeadlinesTest, CountsEachRequestFromItsOwnSending) {
    deadlines_.sent(1);
    timers_.advance(2s);
    deadlines_.sent(2);
    timers_.advance(3s);
    EXPECT_THAT(overdue_, ElementsAre(1));
    timers_.advance(2s);
    EXPECT_THAT(overdue_, ElementsAre(1, 2));
}

TEST_F(AnswerDeadlinesTest, ForgetsWhatWasAnsweredThoughAnotherWasNot) {
    deadlines_.sent(1);
    deadlines_.sent(2);
    timers_.advance(4s);
    deadlines_.answered(2);
    timers_.advance(1s);
    EXPECT_THAT(overdue_, ElementsAre(1));
    timers_.advance(60s);
    EXPECT_THAT(overdue_, ElementsAre(1));
}

TEST_F(AnswerDeadlinesTest, DoesNotCountWhileSuspended) {
    deadlines_.sent(1);
    timers_.advance(3s);
    deadlines_.suspend();
    timers_.advance(60s);
    EXPECT_THAT(overdue_, IsEmpty());
    deadlines_.resume();
    timers_.advance(1'999ms);
    EXPECT_THAT(overdue_, IsEmpty()) << "Two of the five seconds were left";
    timers_.advance(1ms);
    EXPECT_THAT(overdue_, ElementsAre(1));
}

TEST_F(AnswerDeadlinesTest, GivesARequestSentWhileSuspendedItsWholeTime) {
    deadlines_.suspend();
    deadlines_.sent(1);
    timers_.advance(60s);
    deadlines_.resume();
    timers_.advance(4'999ms);
    EXPECT_THAT(overdue_, IsEmpty());
    timers_.advance(1ms);
    EXPECT_THAT(overdue_, ElementsAre(1));
}

TEST_F(AnswerDeadlinesTest, SuspendingTwiceCountsOnce) {
    deadlines_.sent(1);
    deadlines_.suspend();
    timers_.advance(1s);
    deadlines_.suspend();
    deadlines_.resume();
    timers_.advance(5s);
    EXPECT_THAT(overdue_, ElementsAre(1));
}

TEST_F(AnswerDeadlinesTest, ArmsNoTimerWithNothingToWaitFor) {
    EXPECT_EQ(timers_.armed(), 0);
    deadlines_.sent(1);
    EXPECT_EQ(timers_.armed(), 1);
    deadlines_.answered(1);
    EXPECT_EQ(timers_.armed(), 0);
}

}  // namespace
}  // namespace kelmar::host
