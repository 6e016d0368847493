#include <gtest/gtest.h>

#include "Desktop/CutOutCard.h"

namespace kelmar::desktop {
namespace {

TEST(CutOutCard, RegionLeavesTheFourCornersOutAlike) {
    const QRegion region = cardRegion({170, 170});
    EXPECT_EQ(region.boundingRect(), QRect(0, 0, 170, 170));
    for (int x = 0; x < 22; ++x) {
        for (int y = 0; y < 22; ++y) {
            const bool isInside = region.contains(QPoint(x, y));
            EXPECT_EQ(region.contains(QPoint(169 - x, y)), isInside) << x << ", " << y;
            EXPECT_EQ(region.contains(QPoint(x, 169 - y)), isInside) << x << ", " << y;
            EXPECT_EQ(region.contains(QPoint(169 - x, 169 - y)), isInside) << x << ", " << y;
        }
    }
    EXPECT_FALSE(region.contains(QPoint(0, 0)));
    EXPECT_FALSE(region.contains(QPoint(5, 5)));
    EXPECT_TRUE(region.contains(QPoint(8, 8)));
}

TEST(CutOutCard, RegionIsWholeBetweenTheCornersAndRoundAtThem) {
    const QRegion region = cardRegion({100, 48});
    EXPECT_EQ(region.boundingRect(), QRect(0, 0, 100, 48));
    EXPECT_TRUE(region.contains(QRect(0, 22, 100, 4)));
    EXPECT_TRUE(region.contains(QRect(22, 0, 56, 48)));
    int pixels = 0;
    for (const QRect& part : region) {
        pixels += part.width() * part.height();
    }
    // What a circle leaves of the square around it, at four corners.
    const double leftOut = 22 * 22 * (4 - 3.14159265);
    EXPECT_NEAR(pixels, 100 * 48 - leftOut, 8);
}

TEST(CutOutCard, WindowTooSmallForTheCornersIsARoundOne) {
    const QRegion region = cardRegion({11, 7});
    EXPECT_EQ(region.boundingRect(), QRect(0, 0, 11, 7));
    EXPECT_FALSE(region.contains(QPoint(0, 0)));
    EXPECT_TRUE(region.contains(QPoint(5, 3)));
}

}  // namespace
}  // namespace kelmar::desktop
