#include <array>
#include <charconv>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>
#include <string>

#include "Shared/JsonNumber.h"

namespace kelmar::shared {
namespace {

TEST(JsonInteger, IsTheSameHoweverItIsWritten) {
    for (const char* const text : {"30", "30.0", "3e1", "3E+1", "300e-1", "0.3e2", "0.030e3",
                                   "30.000000000000000000000", "3000000000000000000000e-20"})
        EXPECT_EQ(parseJsonInteger(text), 30) << text;
    for (const char* const text : {"0", "-0", "0.0", "0e99999999999999999999", "-0.00e-5"})
        EXPECT_EQ(parseJsonInteger(text), 0) << text;
    EXPECT_EQ(parseJsonInteger("-12.50e1"), -125);
}

TEST(JsonInteger, IsExactToTheLastOf64Bits) {
    EXPECT_EQ(parseJsonInteger("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(parseJsonInteger("9223372036854775807.0"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(parseJsonInteger("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(parseJsonInteger("9007199254740993.0"), 9'007'199'254'740'993);
    EXPECT_EQ(parseJsonInteger("922337203685477580700e-2"),
              std::numeric_limits<std::int64_t>::max());
}

class NoJsonInteger : public ::testing::TestWithParam<const char*> {};

TEST_P(NoJsonInteger, GivesNothing) {
    EXPECT_EQ(parseJsonInteger(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Fractions, NoJsonInteger,
                         ::testing::Values("3.5", "35e-1", "1e-1", "0.0000001", "1e-99999999999",
                                           "30.00000000000000000000001"));
INSTANTIATE_TEST_SUITE_P(TooLarge, NoJsonInteger,
                         ::testing::Values("9223372036854775808", "-9223372036854775809", "1e19",
                                           "10000000000000000000", "1e99999999999999999999"));
INSTANTIATE_TEST_SUITE_P(NoNumbers, NoJsonInteger,
                         ::testing::Values("", "-", "+3", "03", "-03", ".5", "3.", "3.e1", "3e",
                                           "3e+", "0x3", "3 ", " 3", "3a", "--3", "Infinity", "NaN",
                                           "true", "\"3\""));

TEST(JsonInteger, AnyIntegerSurvivesBeingWrittenWithZerosAndAnExponent) {
    EXPECT_TRUE(rc::check([](std::int64_t value) {
        const int zeros = *rc::gen::inRange(0, 30);
        const std::string padding(static_cast<std::size_t>(zeros), '0');
        const std::string digits = std::to_string(value);
        RC_ASSERT(parseJsonInteger(digits) == value);
        RC_ASSERT(parseJsonInteger(digits + "." + padding + "0") == value);
        // Zeros behind a lone 0 would make it no number of JSON's.
        const std::string padded = value == 0 ? digits : digits + padding;
        RC_ASSERT(parseJsonInteger(padded + "e-" + std::to_string(zeros)) == value);
    }));
}

TEST(JsonDouble, IsTheNearestNumber) {
    EXPECT_EQ(parseJsonDouble("0"), 0.0);
    EXPECT_EQ(parseJsonDouble("-12.5e1"), -125.0);
    EXPECT_EQ(parseJsonDouble("1741305600.25"), 1'741'305'600.25);
    EXPECT_EQ(parseJsonDouble("0.1"), 0.1);
    EXPECT_EQ(parseJsonDouble("123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_EQ(parseJsonDouble("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(parseJsonDouble("5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(JsonDouble, IsZeroWhenTooSmallToBeToldFromIt) {
    for (const std::string& text :
         {std::string("1e-400"), std::string("-1e-99999999999999999999"),
          "0." + std::string(400, '0') + "1e5", "1" + std::string(30, '0') + "e-400"})
        EXPECT_EQ(parseJsonDouble(text), 0.0) << text;
}

TEST(JsonDouble, IsInfiniteWhenTooLarge) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(parseJsonDouble("1e400"), infinity);
    EXPECT_EQ(parseJsonDouble("-1e99999999999999999999"), -infinity);
    EXPECT_EQ(parseJsonDouble("1" + std::string(400, '0') + "e-5"), infinity);
    EXPECT_EQ(parseJsonDouble("0.00001e400"), infinity);
}

TEST(JsonDouble, IsNothingWhenTheTextIsNoNumberOfJsons) {
    for (const char* const text : {"", "-", "+3", "03", ".5", "3.", "3e", "0x3", "3 ", " 3", "inf",
                                   "nan", "Infinity", "true", "\"3\""})
        EXPECT_EQ(parseJsonDouble(text), std::nullopt) << text;
}

TEST(JsonDouble, AnyNumberSurvivesBeingWritten) {
    EXPECT_TRUE(rc::check([](double value) {
        std::array<char, 32> text = {};
        const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
        RC_ASSERT(parseJsonDouble({text.data(), written.ptr}) == value);
    }));
}

TEST(JsonNumber, IsTakenOffTheFrontAsFarAsTheGrammarGoes) {
    std::string_view rest = "-12.50e+07,";
    const auto number = takeJsonNumber(rest);
    ASSERT_TRUE(number);
    EXPECT_TRUE(number->isNegative);
    EXPECT_EQ(number->whole, "12");
    EXPECT_EQ(number->fraction, "50");
    EXPECT_FALSE(number->isExponentNegative);
    EXPECT_EQ(number->exponent, "07");
    EXPECT_EQ(rest, ",");
}

}  // namespace
}  // namespace kelmar::shared
