#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/UrlGate.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class UrlGateTest : public testing::Test {
protected:
    UrlQueue::Item item(const std::string& url) {
        return {url, {}, [this, url](const std::string& error) {
                    completed_.push_back(error.empty() ? url : url + " " + error);
                }};
    }

    RecordingUrlOpener opener_;
    UrlGate gate_{opener_, "clock"};
    std::vector<std::string> completed_;
};

TEST_F(UrlGateTest, PassesOnUrlsOfItsSchemeWithTheirOptions) {
    std::vector<std::string> errors;
    gate_.open("CLOCK://now", {.activates = true, .addsToRecentItems = false},
               [&](const std::string& error) { errors.push_back(error); });
    ASSERT_THAT(opener_.urls(), ElementsAre("CLOCK://now"));
    EXPECT_TRUE(opener_.calls[0].options.activates);
    EXPECT_THAT(errors, IsEmpty());
    opener_.calls[0].completed("no handler");
    EXPECT_THAT(errors, ElementsAre("no handler"));
}

TEST_F(UrlGateTest, RefusesEverythingElse) {
    for (const auto* const url :
         {"https://example.org", "clocks://now", "clock", "", "clock://a b", "file:///etc/passwd",
          "javascript:clock:", " clock://now", "clock://now\n"}) {
        std::string error;
        gate_.open(url, {}, [&](const std::string& anyError) { error = anyError; });
        EXPECT_THAT(error, HasSubstr("clock:")) << url;
    }
    EXPECT_THAT(opener_.urls(), IsEmpty());
}

TEST_F(UrlGateTest, SaysNothingOfWhatCompletesAfterItIsGone) {
    bool isTold = false;
    {
        UrlGate gate(opener_, "clock");
        gate.open("clock://now", {}, [&](const std::string&) { isTold = true; });
    }
    opener_.calls[0].completed("");
    EXPECT_FALSE(isTold);
}

TEST_F(UrlGateTest, QueueOpensOneUrlAfterTheOther) {
    UrlQueue queue(gate_, 10);
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_TRUE(queue.add(item("clock://1")));
    EXPECT_TRUE(queue.add(item("clock://2")));
    EXPECT_THAT(opener_.urls(), ElementsAre("clock://1"));
    EXPECT_EQ(queue.waiting(), 1U);

    opener_.calls[0].completed("");
    EXPECT_THAT(opener_.urls(), ElementsAre("clock://1", "clock://2"));
    EXPECT_FALSE(queue.isEmpty());
    opener_.calls[1].completed("failed");
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_THAT(completed_, ElementsAre("clock://1", "clock://2 failed"));
}

TEST_F(UrlGateTest, QueueTakesNoMoreThanItMay) {
    UrlQueue queue(gate_, 2);
    EXPECT_TRUE(queue.add(item("clock://1")));
    EXPECT_TRUE(queue.add(item("clock://2")));
    EXPECT_FALSE(queue.add(item("clock://3")));
    opener_.calls[0].completed("");
    EXPECT_TRUE(queue.add(item("clock://4")));
}

TEST_F(UrlGateTest, QueueThatGoesDropsWhatHasNotBegun) {
    {
        UrlQueue queue(gate_, 10);
        EXPECT_TRUE(queue.add(item("clock://1")));
        EXPECT_TRUE(queue.add(item("clock://2")));
    }
    opener_.calls[0].completed("");
    EXPECT_THAT(opener_.urls(), ElementsAre("clock://1"));
    EXPECT_THAT(completed_, IsEmpty());
}

}  // namespace
}  // namespace kelmar::host
