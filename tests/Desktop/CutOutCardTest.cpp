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

}  // namespace
}  // namespace kelmar::desktop
