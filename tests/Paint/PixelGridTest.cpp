#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "Paint/PixelGrid.h"

namespace kelmar::paint {
namespace {

bool isWhole(double value) {
    return value == std::round(value);
}

TEST(PixelGrid, ARuleOfOnePointIsOnePixelAtSmallScales) {
    for (const double scale : {1.0, 1.25}) {
        EXPECT_EQ(PixelGrid(scale).snapped({10.5, 20.3, 60, 1}).height(), 1);
    }
    EXPECT_EQ(PixelGrid(1.5).snapped({10.5, 20.3, 60, 1}).height(), 2);
    EXPECT_EQ(PixelGrid(2).snapped({10.5, 20.3, 60, 1}).height(), 2);
}

TEST(PixelGrid, SomethingThinNeverVanishes) {
    EXPECT_EQ(PixelGrid(1).snappedLength(0.2), 1);
    EXPECT_EQ(PixelGrid(1).snappedLength(0), 0);
}

TEST(PixelGrid, ExactOnlyScales) {
    EXPECT_EQ(PixelGrid(1.25).exact({1, 2, 3, 4}), QRectF(1.25, 2.5, 3.75, 5));
}

RC_GTEST_PROP(PixelGrid, SnappedRectanglesLieOnWholePixelsNearTheirPlace, ()) {
    const PixelGrid grid(*rc::gen::element(1.0, 1.25, 1.5, 2.0));
    const auto length = [] { return *rc::gen::inRange(0, 4000) / 10.0; };
    const layout::Rect rect{length(), length(), length(), length()};
    const QRectF snapped = grid.snapped(rect);
    RC_ASSERT(isWhole(snapped.x()) && isWhole(snapped.y()));
    RC_ASSERT(isWhole(snapped.width()) && isWhole(snapped.height()));
    RC_ASSERT(std::abs(snapped.x() - grid.length(rect.x)) <= 0.5);
    RC_ASSERT(std::abs(snapped.width() - grid.length(rect.width)) <= 1);
}

RC_GTEST_PROP(PixelGrid, EqualSizesStayEqualWhereverTheyLie, ()) {
    const PixelGrid grid(*rc::gen::element(1.0, 1.25, 1.5, 2.0));
    const auto place = [] { return *rc::gen::inRange(0, 4000) / 10.0; };
    const double side = *rc::gen::inRange(1, 400) / 10.0;
    RC_ASSERT(grid.snapped({place(), place(), side, side}).size() ==
              grid.snapped({place(), place(), side, side}).size());
}

}  // namespace
}  // namespace kelmar::paint
