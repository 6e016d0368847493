#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "Paint/Contrast.h"

namespace kelmar::paint {
namespace {

QColor anyColor() {
    return {*rc::gen::inRange(0, 256), *rc::gen::inRange(0, 256), *rc::gen::inRange(0, 256)};
}

TEST(Contrast, BlackOnWhiteIsTwentyOne) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::black), 21);
}

TEST(Contrast, OfAColourWithItselfIsOne) {
    EXPECT_DOUBLE_EQ(contrast(QColor(12, 200, 90), QColor(12, 200, 90)), 1);
}

TEST(Contrast, MidGreyOnWhiteMatchesThePublishedValue) {
    // #767676 is the well-known lightest grey that passes 4.5 on white.
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(Luminance, WeighsGreenMostAndBlueLeast) {
    EXPECT_NEAR(luminance(QColor(255, 0, 0)), 0.2126, 1e-9);
    EXPECT_NEAR(luminance(QColor(0, 255, 0)), 0.7152, 1e-9);
    EXPECT_NEAR(luminance(QColor(0, 0, 255)), 0.0722, 1e-9);
}

TEST(Mixed, TakesTheShareOfTheTopColour) {
    EXPECT_EQ(mixed(QColor(0, 100, 200), QColor(100, 200, 0), 0.25), QColor(25, 125, 150));
}

TEST(Composited, HalfWhiteOverBlackIsMidGrey) {
    EXPECT_EQ(composited(QColor(255, 255, 255, 128), Qt::black), QColor(128, 128, 128));
}

TEST(WithContrastAtLeast, LeavesAColourThatAlreadyStandsOut) {
    EXPECT_EQ(withContrastAtLeast(QColor(20, 30, 140), Qt::white, 4.5), QColor(20, 30, 140));
}

RC_GTEST_PROP(WithContrastAtLeast, ReachesTheRatioOnEveryBackground, ()) {
    const QColor background = anyColor();
    // Black or white reaches this on any background.
    const QColor result = withContrastAtLeast(anyColor(), background, 4.5);
    RC_ASSERT(contrast(result, background) >= 4.5);
}

RC_GTEST_PROP(WithContrastOf, StaysJustAboveTheRatio, ()) {
    const QColor background = *rc::gen::element(QColor(Qt::black), QColor(Qt::white));
    const double reached = contrast(withContrastOf(anyColor(), background, 5), background);
    RC_ASSERT(reached >= 5.0);
    RC_ASSERT(reached < 5.3);
}

}  // namespace
}  // namespace kelmar::paint
