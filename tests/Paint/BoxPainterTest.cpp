#include <array>
#include <gtest/gtest.h>

#include "Paint/BoxPainter.h"
#include "Paint/Palette.h"
#include "Paint/PixelGrid.h"
#include "tests/Paint/Pictures.h"

namespace kelmar::paint {
namespace {

using layout::Direction;
using testing::box;
using testing::filledShape;
using testing::inkAmount;
using testing::inkRect;
using testing::painted;

constexpr std::array scales{1.0, 1.25, 1.5, 2.0};
const kit::Color blue = kit::Color::rgb(0, 0, 1);

class BoxPainterTest : public ::testing::Test {
protected:
    [[nodiscard]] PaintContext context(double scale = 1) const {
        return {.resources = resources_, .style = {.scale = scale}};
    }

    const PaintResources resources_ = testing::testResources();
};

using Shapes = BoxPainterTest;

layout::ShapeDrawing filled(kit::ShapeKind kind, const kit::Color& color = blue) {
    return {filledShape(kind, color)};
}

TEST_F(Shapes, ARuleOfOnePointHasOnlyFullyOpaquePixels) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        const QImage picture =
            painted({box({4.3, 10.4, 30, 1}, filled(kit::ShapeKind::rectangle))}, context(scale));
        const QRect ink = inkRect(picture);
        ASSERT_FALSE(ink.isEmpty());
        EXPECT_EQ(ink.height(), std::max(1L, std::lround(scale)));
        EXPECT_DOUBLE_EQ(inkAmount(picture), ink.width() * ink.height());
    }
}

TEST_F(Shapes, AThinRoundedBarIsEquallyWideAllTheWayDown) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        kit::Shape bar = filledShape(kit::ShapeKind::roundedRectangle, blue);
        bar.cornerRadius = 1.5;
        const QImage picture =
            painted({box({20.4, 5, 3, 30}, layout::ShapeDrawing{bar})}, context(scale));
        const QRect ink = inkRect(picture);
        EXPECT_EQ(ink.width(), std::lround(3 * scale));
        const int middle = ink.center().y();
        for (int x = ink.left(); x <= ink.right(); ++x) {
            EXPECT_EQ(picture.pixelColor(x, middle).alpha(), 255);
        }
    }
}

TEST_F(Shapes, ACircleTakesTheSquareInTheMiddle) {
    const QImage picture =
        painted({box({0, 0, 40, 20}, filled(kit::ShapeKind::circle))}, context());
    EXPECT_EQ(inkRect(picture), QRect(10, 0, 20, 20));
    EXPECT_NEAR(inkAmount(picture), 3.1416 * 100, 3);
}

TEST_F(Shapes, ACapsuleIsRoundAtItsEndsOnly) {
    const QImage picture =
        painted({box({0, 0, 40, 20}, filled(kit::ShapeKind::capsule))}, context());
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(20, 0).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(20, 19).alpha(), 255);
}

TEST_F(Shapes, AStrokeLiesInsideTheEdge) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        kit::Shape ring{.shape = kit::ShapeKind::circle, .stroke = blue, .lineWidth = 2};
        const QImage picture =
            painted({box({10, 10, 16, 16}, layout::ShapeDrawing{ring})}, context(scale));
        const auto start = static_cast<int>(std::lround(10 * scale));
        const auto side = static_cast<int>(std::lround(16 * scale));
        EXPECT_EQ(inkRect(picture), QRect(start, start, side, side));
        EXPECT_EQ(picture.pixelColor(start + side / 2, start + side / 2).alpha(), 0);
        // Not quite opaque: even there the circle's edge is a little bent.
        EXPECT_GE(picture.pixelColor(start + side / 2, start).alpha(), 240);
    }
}

TEST_F(Shapes, AClearFillDrawsNothing) {
    const QImage picture =
        painted({box({0, 0, 40, 40}, filled(kit::ShapeKind::circle, kit::clear))}, context());
    EXPECT_TRUE(inkRect(picture).isEmpty());
}

TEST_F(Shapes, OpacityOfBoxAndColourMultiply) {
    const QImage picture = painted(
        {box({0, 0, 10, 10}, filled(kit::ShapeKind::rectangle, blue.withOpacity(0.5)), 0.45)},
        context());
    EXPECT_NEAR(picture.pixelColor(5, 5).alpha(), 0.225 * 255, 1.5);
}

TEST_F(Shapes, HugeAndEmptyRectanglesDoNoHarm) {
    const QImage picture = painted(
        {box({0, 0, 0, 0}, filled(kit::ShapeKind::circle)),
         box({-1e9, -1e9, 2e9, 2e9}, filled(kit::ShapeKind::rectangle)),
         box({5, 5, 1e300, 1e300}, layout::SymbolDrawing{.name = "circle", .color = kit::primary})},
        context());
    EXPECT_EQ(picture.pixelColor(20, 20).blue(), 255);
}

using Symbols = BoxPainterTest;

TEST_F(Symbols, AClearSymbolShowsExactlyWhatWasThereBefore) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        const QColor before(200, 90, 30);
        const layout::PlacedBoxes boxes{
            box({4, 4, 30, 30}, filled(kit::ShapeKind::circle)),
            box({7, 7, 24, 24},
                layout::SymbolDrawing{
                    .name = "checkmark", .weight = kit::FontWeight::black, .color = kit::clear})};
        const QImage picture = painted(boxes, context(scale), {40, 40}, before);
        const auto onTheCheck = QPointF(7 + 9.7, 7 + 17.4) * scale;
        const auto besideTheCheck = QPointF(7 + 9, 7 + 4) * scale;
        EXPECT_EQ(picture.pixelColor(onTheCheck.toPoint()), before);
        EXPECT_EQ(picture.pixelColor(besideTheCheck.toPoint()), QColor(Qt::blue));
    }
}

TEST_F(Symbols, ACutOutReachesOnlyWhatLiesBelowIt) {
    const QImage picture =
        painted({box({0, 0, 40, 40}, filled(kit::ShapeKind::rectangle)),
                 box({0, 0, 40, 40},
                     layout::SymbolDrawing{.name = "checkmark.circle.fill", .color = kit::clear}),
                 box({0, 0, 6, 40}, filled(kit::ShapeKind::rectangle))},
                context());
    EXPECT_EQ(picture.pixelColor(4, 20).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(9, 20).alpha(), 0);
}

TEST_F(Symbols, ASymbolInTheMiddleOfAShapeStaysThereWhereverThatIs) {
    for (const double scale : scales) {
        for (const double x : {5.0, 5.3, 5.5, 5.8}) {
            SCOPED_TRACE(::testing::Message() << scale << " at " << x);
            const layout::Rect disc{x, x, 19, 19};
            const layout::Rect symbol{x + 3.5, x + 3.5, 12, 12};
            const QImage picture = painted({box(disc, filled(kit::ShapeKind::circle, kit::clear)),
                                            box(symbol, layout::SymbolDrawing{.name = "circle"})},
                                           context(scale));
            const QRectF ink = inkRect(picture);
            EXPECT_NEAR(ink.center().x(), PixelGrid(scale).snapped(disc).center().x(), 0.01);
            EXPECT_NEAR(ink.center().y(), PixelGrid(scale).snapped(disc).center().y(), 0.01);
        }
    }
}

TEST_F(Symbols, AnUnknownNameStillDrawsSomething) {
    const QImage picture =
        painted({box({4, 4, 20, 20}, layout::SymbolDrawing{.name = "no.such.symbol"})}, context());
    EXPECT_FALSE(inkRect(picture).isEmpty());
}

using Bars = BoxPainterTest;

constexpr double trackAlpha = 0.2 * 255;

layout::PlacedBoxes halfBar() {
    return {
        box({0, 10, 40, 6}, layout::ProgressDrawing{{.value = kit::BarValue{0.5}, .tint = blue}})};
}

TEST_F(Bars, FillFromTheLeadingEdge) {
    const QImage picture = painted(halfBar(), context());
    EXPECT_EQ(picture.pixelColor(5, 13).alpha(), 255);
    EXPECT_NEAR(picture.pixelColor(35, 13).alpha(), trackAlpha, 1);
}

TEST_F(Bars, FillFromTheRightWhereTextDoes) {
    PaintContext rightToLeft = context();
    rightToLeft.direction = Direction::rightToLeft;
    const QImage picture = painted(halfBar(), rightToLeft);
    EXPECT_NEAR(picture.pixelColor(5, 13).alpha(), trackAlpha, 1);
    EXPECT_EQ(picture.pixelColor(35, 13).alpha(), 255);
}

TEST_F(Bars, EmptyByThemselvesOverTheirInterval) {
    const auto date = [](double seconds) { return system::Date::since1970(seconds); };
    const layout::PlacedBoxes boxes{box(
        {0, 10, 40, 6}, layout::ProgressDrawing{
                            {.value = kit::BarInterval{date(1000), date(1100)}, .tint = blue}})};
    const auto filledAt = [&](double seconds) {
        PaintContext moment = context();
        moment.now = date(seconds);
        const QImage picture = painted(boxes, moment);
        int filledPixels = 0;
        for (int x = 0; x < picture.width(); ++x) {
            filledPixels += picture.pixelColor(x, 13).alpha() > 128 ? 1 : 0;
        }
        return filledPixels;
    };
    EXPECT_EQ(filledAt(900), 40);
    EXPECT_EQ(filledAt(1000), 40);
    EXPECT_NEAR(filledAt(1025), 30, 1);
    EXPECT_NEAR(filledAt(1075), 10, 1);
    EXPECT_EQ(filledAt(1100), 0);
    EXPECT_EQ(filledAt(5000), 0);
}

TEST_F(Bars, ValuesBeyondTheEndsCountAsTheEnds) {
    const auto barOf = [](double value) {
        return layout::PlacedBoxes{
            box({0, 10, 40, 6},
                layout::ProgressDrawing{{.value = kit::BarValue{value}, .tint = blue}})};
    };
    EXPECT_EQ(painted(barOf(7), context()), painted(barOf(1), context()));
    EXPECT_EQ(painted(barOf(-7), context()), painted(barOf(0), context()));
}

}  // namespace
}  // namespace kelmar::paint
