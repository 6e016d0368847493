#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>

#include "Layout/CountdownText.h"

namespace kelmar::layout {
namespace {

struct Row {
    system::Seconds remaining;
    const char* expected;
};

class CountdownTextTable : public ::testing::TestWithParam<Row> {};

TEST_P(CountdownTextTable, ShowsTheBegunSecond) {
    EXPECT_EQ(countdownText(GetParam().remaining), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Lengths, CountdownTextTable,
                         ::testing::Values(Row{0, "0:00"}, Row{7, "0:07"}, Row{59, "0:59"},
                                           Row{60, "1:00"}, Row{1122, "18:42"}, Row{3599, "59:59"},
                                           Row{3600, "1:00:00"}, Row{3909, "1:05:09"},
                                           Row{36000, "10:00:00"}, Row{359999, "99:59:59"},
                                           Row{0.25, "0:01"}, Row{59.25, "1:00"},
                                           Row{3599.5, "1:00:00"}));

INSTANTIATE_TEST_SUITE_P(NotALength, CountdownTextTable,
                         ::testing::Values(Row{-0.0, "0:00"}, Row{-5, "0:00"},
                                           Row{-std::numeric_limits<double>::infinity(), "0:00"},
                                           Row{std::numeric_limits<double>::quiet_NaN(), "0:00"},
                                           Row{std::numeric_limits<double>::infinity(),
                                               "27777777:46:40"},
                                           Row{1e300, "27777777:46:40"}));

TEST(CountdownText, WholeLengthIsShownAtTheStartAndNothingAtTheEnd) {
    const auto start = system::Date::since1970(1'790'000'000.3);
    const system::Date end = start + 25 * 60;
    EXPECT_EQ(countdownText(end - start), "25:00");
    EXPECT_EQ(countdownText(end - end), "0:00");
}

RC_GTEST_PROP(CountdownText, ChangesExactlyOnWholeSecondsBeforeTheEndInSpiteOfRounding, ()) {
    const double fraction = *rc::gen::inRange(0, 1000) / 1000.0;
    const auto end = system::Date::since1970(1'790'000'000 + fraction);
    const int seconds = *rc::gen::inRange(1, 3599);
    const system::Date change = end + -seconds;
    const std::string before = countdownText(seconds + 1);
    const std::string after = countdownText(seconds);
    RC_ASSERT(countdownText(end - (change + -0.001)) == before);
    RC_ASSERT(countdownText(end - change) == after);
    RC_ASSERT(countdownText(end - (change + 0.001)) == after);
}

}  // namespace
}  // namespace kelmar::layout
