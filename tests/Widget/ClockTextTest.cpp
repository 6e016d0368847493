#include <charconv>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>

#include "Widget/ClockText.h"

namespace kelmar::widget {
namespace {

struct ClockRow {
    std::int64_t seconds;
    const char* text;
};

TEST(ClockText, ShowsMinutesBelowAnHourAndHoursFromThereOn) {
    for (const ClockRow& row : {ClockRow{0, "0:00"},
                                {7, "0:07"},
                                {59, "0:59"},
                                {60, "1:00"},
                                {61, "1:01"},
                                {750, "12:30"},
                                {1500, "25:00"},
                                {3599, "59:59"},
                                {3600, "1:00:00"},
                                {3601, "1:00:01"},
                                {3909, "1:05:09"},
                                {35999, "9:59:59"},
                                {36000, "10:00:00"},
                                {86400, "24:00:00"},
                                {360000, "100:00:00"}})
        EXPECT_EQ(clockText(row.seconds), row.text);
}

TEST(ClockText, LessThanNothingIsNothing) {
    for (const std::int64_t seconds : {std::int64_t{-1}, std::int64_t{-5}, std::int64_t{-3600},
                                       std::numeric_limits<std::int64_t>::min()})
        EXPECT_EQ(clockText(seconds), "0:00");
}

TEST(ClockText, HasNoLargestDuration) {
    EXPECT_EQ(clockText(std::numeric_limits<std::int64_t>::max()), "2562047788015215:30:07");
}

/// The numbers between the colons.
std::vector<std::int64_t> numbersIn(const std::string& text) {
    std::vector<std::int64_t> numbers;
    const char* next = text.data();
    const char* const end = text.data() + text.size();
    while (next < end) {
        std::int64_t number = -1;
        next = std::from_chars(next, end, number).ptr + 1;
        numbers.push_back(number);
    }
    return numbers;
}

TEST(ClockText, ReadsBackAsTheSameDuration) {
    EXPECT_TRUE(rc::check([] {
        const auto seconds = *rc::gen::inRange<std::int64_t>(0, 1'000'001);
        const auto numbers = numbersIn(clockText(seconds));
        std::int64_t total = 0;
        for (const std::int64_t number : numbers)
            total = total * 60 + number;
        RC_ASSERT(total == seconds);
        RC_ASSERT(numbers.size() == (seconds < 3600 ? 2U : 3U));
        for (std::size_t index = 1; index < numbers.size(); ++index)
            RC_ASSERT(numbers[index] < 60);
    }));
}

TEST(ClockText, WritesTwoDigitsBehindEveryColon) {
    EXPECT_TRUE(rc::check([] {
        const std::string text = clockText(*rc::gen::inRange<std::int64_t>(0, 1'000'001));
        for (std::size_t colon = text.find(':'); colon != std::string::npos;
             colon = text.find(':', colon + 1)) {
            const std::size_t next = std::min(text.find(':', colon + 1), text.size());
            RC_ASSERT(next - colon == 3U);
        }
    }));
}

}  // namespace
}  // namespace kelmar::widget
