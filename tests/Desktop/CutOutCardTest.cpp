#include <gtest/gtest.h>

#include "Desktop/CutOutCard.h"
#include "Paint/WidgetPicture.h"

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

TEST(CutOutCard, HalfCoveredPixelsGetTheFullColour) {
    QImage picture(2, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setPixelColor(0, 0, QColor(0, 0, 255, 128));
    picture.setPixelColor(1, 0, QColor(255, 0, 0));
    const QImage opaque = opaqueCard(picture);
    EXPECT_EQ(opaque.pixelColor(0, 0), QColor(0, 0, 255));
    EXPECT_EQ(opaque.pixelColor(1, 0), QColor(255, 0, 0));
}

TEST(CutOutCard, ScaleOfThePictureIsKept) {
    QImage picture(4, 4, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    picture.setDevicePixelRatio(2);
    EXPECT_EQ(opaqueCard(picture).devicePixelRatio(), 2);
}

}  // namespace
}  // namespace kelmar::desktop
