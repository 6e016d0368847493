#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Desktop/Placement.h"

namespace kelmar::desktop {
namespace {

const QRect screen(0, 0, 1280, 800);

TEST(Placement, SnapsToTheNearestPointOfTheGrid) {
    EXPECT_EQ(snapped({3, 5}, {0, 0}), QPoint(0, 8));
    EXPECT_EQ(snapped({4, 12}, {0, 0}), QPoint(8, 16));
    EXPECT_EQ(snapped({16, 24}, {0, 0}), QPoint(16, 24));
}

TEST(Placement, SnapsLeftOfAndAboveTheOriginAsOnItsOtherSide) {
    EXPECT_EQ(snapped({-3, -5}, {0, 0}), QPoint(0, -8));
    EXPECT_EQ(snapped({-9, -17}, {0, 0}), QPoint(-8, -16));
}

TEST(Placement, GridStartsAtTheGivenOrigin) {
    EXPECT_EQ(snapped({1367, 10}, {1366, 3}), QPoint(1366, 11));
}

RC_GTEST_PROP(Placement, SnappingMovesByNoMoreThanHalfAStepAndOnce, (int x, int y)) {
    const QPoint position(x % 100'000, y % 100'000);
    const QPoint once = snapped(position, {5, 7});
    RC_ASSERT(std::abs(once.x() - position.x()) <= gridStep / 2);
    RC_ASSERT(std::abs(once.y() - position.y()) <= gridStep / 2);
    RC_ASSERT(snapped(once, {5, 7}) == once);
}

TEST(Placement, VisibleWidgetStaysWhereItIs) {
    EXPECT_EQ(clamped(QRect(100, 120, 364, 170), screen), QPoint(100, 120));
    EXPECT_EQ(clamped(QRect(916, 630, 364, 170), screen), QPoint(916, 630));
}

TEST(Placement, WidgetBeyondAnEdgeComesBackToIt) {
    EXPECT_EQ(clamped(QRect(-50, -1, 170, 170), screen), QPoint(0, 0));
    EXPECT_EQ(clamped(QRect(1200, 900, 170, 170), screen), QPoint(1110, 630));
}

TEST(Placement, WidgetLargerThanTheScreenShowsItsTopLeftCorner) {
    EXPECT_EQ(clamped(QRect(40, 40, 364, 382), QRect(10, 20, 300, 200)), QPoint(10, 20));
}

RC_GTEST_PROP(Placement, ClampedWidgetLiesInsideAVisibleAreaThatHasRoomForIt, (int x, int y)) {
    const QRect widget(x % 10'000, y % 10'000, 364, 382);
    RC_ASSERT(screen.contains(QRect(clamped(widget, screen), widget.size())));
}

TEST(Placement, FirstFreePlaceIsTheTopRightCorner) {
    EXPECT_EQ(freePlace({364, 170}, screen, {}), QPoint(900, 16));
}

TEST(Placement, NextFreePlaceIsBelowWithAGap) {
    const QPoint place = freePlace({364, 170}, screen, {QRect(900, 16, 364, 170)});
    EXPECT_EQ(place, QPoint(900, 208));
}

TEST(Placement, FullColumnGoesOnInTheNextOneToTheLeft) {
    const QPoint place =
        freePlace({170, 170}, screen, {QRect(900, 16, 364, 382), QRect(900, 414, 364, 370)});
    EXPECT_EQ(place.y(), 16);
    EXPECT_LE(place.x() + 170, 900 - comfortableGap);
}

TEST(Placement, FullScreenGivesTheTopRightCornerAllTheSame) {
    EXPECT_EQ(freePlace({364, 170}, screen, {screen}), QPoint(900, 16));
}

RC_GTEST_PROP(Placement, FreePlacesNeverOverlapAndKeepTheirGap, ()) {
    std::vector<QRect> taken;
    const int count = *rc::gen::inRange(1, 9);
    for (int i = 0; i < count; ++i) {
        const QSize size = *rc::gen::element(QSize(170, 170), QSize(364, 170), QSize(364, 382));
        const QRect place(freePlace(size, QRect(0, 0, 2560, 1440), taken), size);
        for (const QRect& other : taken) {
            RC_ASSERT(!place.adjusted(-15, -15, 15, 15).intersects(other));
        }
        taken.push_back(place);
    }
}

}  // namespace
}  // namespace kelmar::desktop
