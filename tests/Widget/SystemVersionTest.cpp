#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Widget/SystemVersion.h"

namespace kelmar::widget {
namespace {

SystemVersion version(const std::string& text) {
    return SystemVersion::parse(text).value();
}

TEST(SystemVersion, ComparesNumberByNumber) {
    EXPECT_LT(version("9.9"), version("26"));
    EXPECT_GT(version("26.10"), version("26.9"));
    EXPECT_LT(version("25.99.99"), version("26.0.0"));
    EXPECT_GT(version("26.0.1"), version("26.0.0"));
    EXPECT_GT(version("100"), version("26.0.0"));
    EXPECT_LT(version("0.26"), version("26"));
    EXPECT_GT(version("26.0.0.1"), version("26"));
}

TEST(SystemVersion, TakesMissingNumbersForZero) {
    EXPECT_EQ(version("26"), version("26.0"));
    EXPECT_EQ(version("26.0"), version("26.0.0"));
    EXPECT_EQ(version("0.0"), version("0"));
    EXPECT_NE(version("26"), version("26.0.1"));
}

TEST(SystemVersion, ReadsNumbersWithZerosBeforeThemAndOfAnyLength) {
    EXPECT_EQ(version("026.00"), version("26"));
    EXPECT_GT(version("26.99999999999999999999999"), version("26.9999999999999999999999"));
    EXPECT_LT(version("26.18446744073709551616"), version("26.18446744073709551617"));
}

TEST(SystemVersion, IsNothingForAnyOtherText) {
    for (const char* text : {"", ".", "26.", ".26", "26..0", "26.0-beta", "v26", " 26", "26 ",
                             "-26", "+26", "26,0", "twenty-six", "0x1a", "2６"})
        EXPECT_EQ(SystemVersion::parse(text), std::nullopt) << text;
}

std::string dotted(const std::vector<unsigned>& numbers) {
    std::string text;
    for (const unsigned number : numbers)
        text += (text.empty() ? "" : ".") + std::to_string(number);
    return text;
}

TEST(SystemVersion, IsOrderedAsItsNumbersAre) {
    EXPECT_TRUE(rc::check([] {
        // Few different numbers, so that versions share their beginnings; among them such as sort
        // the other way round as texts.
        const auto number = rc::gen::element(0U, 1U, 9U, 10U, 26U, 100U);
        auto first = *rc::gen::nonEmpty(rc::gen::container<std::vector<unsigned>>(number));
        auto second = *rc::gen::nonEmpty(rc::gen::container<std::vector<unsigned>>(number));
        const auto compared = version(dotted(first)) <=> version(dotted(second));
        const std::size_t length = std::max(first.size(), second.size());
        first.resize(length);
        second.resize(length);
        RC_ASSERT(compared == (first <=> second));
    }));
}

}  // namespace
}  // namespace kelmar::widget
