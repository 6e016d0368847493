#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>

#include "Widget/HexString.h"

namespace kelmar::widget {
namespace {

const kit::Color indigo = kit::Color::rgb(79.0 / 255, 70.0 / 255, 229.0 / 255);

TEST(HexString, SixDigitsAreAColourHoweverTheyAreDressed) {
    for (const char* text : {"#4F46E5", "4f46e5", " #4F46E5", "\t4F46E5 ", "  #4f46E5\t "}) {
        EXPECT_EQ(hexString(text), indigo) << text;
    }
}

TEST(HexString, ThreeDigitsStandForSix) {
    EXPECT_EQ(hexString("#abc"), hexString("#aabbcc"));
    EXPECT_EQ(hexString("abc"), kit::Color::rgb(170.0 / 255, 187.0 / 255, 204.0 / 255));
}

TEST(HexString, APlusIsASignOfTheNumber) {
    EXPECT_EQ(hexString("+12345"), kit::Color::rgb(1.0 / 255, 35.0 / 255, 69.0 / 255));
}

TEST(HexString, AnythingElseIsNoColour) {
    for (const char* text :
         {"", "#", " ", "#4F46E5FF", "12345G", "0x1234", "-12345", "##aabbcc", "# aabbcc",
          "aabbcc\n", "+ab", "#12", "#12345", "äbc", "#é1234", "１２３４５６", "aab cc"}) {
        EXPECT_EQ(hexString(text), std::nullopt) << text;
    }
    EXPECT_EQ(hexString(std::nullopt), std::nullopt);
}

TEST(HexString, AnyTextGivesComponentsFromZeroToOneOrNothing) {
    EXPECT_TRUE(rc::check([](const std::string& text) {
        const auto color = hexString(text);
        RC_ASSERT(!color || (color->red() >= 0 && color->red() <= 1 && color->green() >= 0 &&
                             color->green() <= 1 && color->blue() >= 0 && color->blue() <= 1 &&
                             color->opacity() == 1));
    }));
}

}  // namespace
}  // namespace kelmar::widget
