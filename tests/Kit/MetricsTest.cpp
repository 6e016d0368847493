#include <gtest/gtest.h>

#include "Kit/Metrics.h"

namespace kelmar::kit {
namespace {

TEST(Metrics, ALineIsAFifthHigherThanItsFontRoundedUp) {
    EXPECT_EQ(lineHeight(10), 12);
    EXPECT_EQ(lineHeight(11), 14);
    EXPECT_EQ(lineHeight(13), 16);
    EXPECT_EQ(lineHeight(30), 36);
}

TEST(Metrics, ALineWhoseProductIsWholeIsNotRoundedPastIt) {
    EXPECT_EQ(lineHeight(12.5), 15);
    EXPECT_EQ(lineHeight(5), 6);
}

TEST(Metrics, ContentIsTheWidgetLessItsMargins) {
    EXPECT_EQ(contentSize(Family::small), (Size{138, 138}));
    EXPECT_EQ(contentSize(Family::medium), (Size{332, 138}));
    EXPECT_EQ(contentSize(Family::large), (Size{332, 350}));
}

TEST(EnvironmentNames, EveryFamilyAndModeIsFoundByItsName) {
    for (const Family family : families) {
        EXPECT_EQ(familyNamed(nameOf(family)), family);
        EXPECT_EQ(familyWithDescriptorName(descriptorNameOf(family)), family);
    }
    for (const RenderingMode mode : renderingModes)
        EXPECT_EQ(renderingModeNamed(nameOf(mode)), mode);
    EXPECT_EQ(familyNamed("huge"), std::nullopt);
    EXPECT_EQ(renderingModeNamed(""), std::nullopt);
}

}  // namespace
}  // namespace kelmar::kit
