#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Paint/SymbolSet.h"
#include "tests/Paint/Pictures.h"

namespace kelmar::paint {
namespace {

using testing::inkAmount;
using testing::inkRect;

QImage drawn(const std::string& name, int side, kit::FontWeight weight = kit::FontWeight::regular) {
    return SymbolSet().image({.name = name, .weight = weight, .side = side, .color = Qt::black});
}

TEST(SymbolSet, HasEverySymbolThatWidgetsName) {
    EXPECT_THAT(SymbolSet::names(),
                ::testing::ElementsAre("alarm", "book", "calendar", "checkmark", "checkmark.circle",
                                       "checkmark.circle.fill", "circle", "flame.fill",
                                       "graduationcap.fill", "pause.fill", "play.fill", "snowflake",
                                       "timer"));
}

TEST(SymbolSet, EverySymbolFillsAndCentresItsSquareAtEverySize) {
    for (const std::string& name : SymbolSet::names()) {
        for (const int side : {12, 16, 26, 96}) {
            SCOPED_TRACE(name + " at " + std::to_string(side));
            const QImage picture = drawn(name, side);
            const QRectF ink = inkRect(picture);
            EXPECT_EQ(picture.size(), QSize(side, side));
            EXPECT_GE(std::max(ink.width(), ink.height()), 0.6 * side);
            EXPECT_NEAR(ink.center().x(), side / 2.0, 0.07 * side + 0.5);
            EXPECT_NEAR(ink.center().y(), side / 2.0, 0.07 * side + 0.5);
        }
    }
}

TEST(SymbolSet, EverySymbolHasADrawingAtEveryWeight) {
    using enum kit::FontWeight;
    for (const std::string& name : SymbolSet::names()) {
        for (const kit::FontWeight weight : {regular, medium, semibold, bold, heavy, black}) {
            SCOPED_TRACE(name + " at " + std::to_string(static_cast<int>(weight)));
            EXPECT_GE(inkAmount(drawn(name, 48, weight)), 0.08 * 48 * 48);
        }
    }
}

TEST(SymbolSet, EvenTheHeaviestWeightStaysInsideTheSquare) {
    for (const std::string& name : SymbolSet::names()) {
        SCOPED_TRACE(name);
        const QRect ink = inkRect(drawn(name, 240, kit::FontWeight::black));
        EXPECT_TRUE(QRect(1, 1, 238, 238).contains(ink));
    }
}

TEST(SymbolSet, HeavierWeightsDrawMoreInk) {
    for (const char* name : {"circle", "checkmark", "snowflake", "timer", "play.fill"}) {
        SCOPED_TRACE(name);
        EXPECT_GT(inkAmount(drawn(name, 48, kit::FontWeight::bold)),
                  1.02 * inkAmount(drawn(name, 48, kit::FontWeight::regular)));
    }
}

TEST(SymbolSet, InkHasTheColourAskedForAndItsOpacity) {
    const QColor color(200, 40, 60, 128);
    const QImage picture =
        SymbolSet().image({.name = "checkmark.circle.fill", .side = 24, .color = color});
    const QColor atTheRim = picture.pixelColor(12, 3);
    EXPECT_NEAR(atTheRim.alpha(), 128, 1);
    EXPECT_NEAR(atTheRim.red(), 200, 3);
    EXPECT_NEAR(atTheRim.blue(), 60, 3);
}

TEST(SymbolSet, WhiteInAFileIsAHole) {
    const QImage picture = drawn("checkmark.circle.fill", 96);
    const QPoint onTheCheck(43, 62);
    const QPoint besideTheCheck(24, 30);
    EXPECT_EQ(picture.pixelColor(onTheCheck).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(besideTheCheck).alpha(), 255);
}

TEST(SymbolSet, HalfPhasesMoveTheSymbolByHalfAPixel) {
    const QImage picture = SymbolSet().image(
        {.name = "circle", .side = 20, .color = Qt::black, .horizontalPhase = PixelPhase::half});
    EXPECT_EQ(picture.size(), QSize(21, 20));
    EXPECT_NEAR(inkAmount(picture), inkAmount(drawn("circle", 20)), 0.5);
}

TEST(SymbolSet, UnknownNamesGiveAQuietDot) {
    const QImage known = drawn("circle", 24);
    for (const char* name :
         {"", "no.such.symbol", "placeholder", "../symbols/circle", "circle.svg"}) {
        SCOPED_TRACE(name);
        const QImage dot = drawn(name, 24);
        EXPECT_NE(dot, known);
        const QRect ink = inkRect(dot);
        EXPECT_GT(ink.width(), 4);
        EXPECT_LT(ink.width(), 10);
    }
}

TEST(SymbolSet, TheSameRequestSharesOnePicture) {
    const SymbolSet symbols;
    const SymbolRequest request{.name = "book", .side = 30, .color = Qt::blue};
    const QImage first = symbols.image(request);
    EXPECT_EQ(first.cacheKey(), symbols.image(request).cacheKey());
    SymbolRequest other = request;
    other.color = Qt::red;
    EXPECT_NE(first, symbols.image(other));
}

TEST(SymbolSet, ForgetsOldPicturesButDrawsThemAlikeAgain) {
    const SymbolSet symbols;
    const SymbolRequest request{.name = "book", .side = 30, .color = Qt::blue};
    const QImage first = symbols.image(request);
    for (int shade = 0; shade < 40; ++shade) {
        const QImage large =
            symbols.image({.name = "timer", .side = 200, .color = QColor(shade, 0, 0)});
        EXPECT_FALSE(large.isNull());
    }
    const QImage again = symbols.image(request);
    EXPECT_NE(first.cacheKey(), again.cacheKey());
    EXPECT_EQ(first, again);
}

TEST(SymbolSet, SidesBeyondReasonAreLimited) {
    EXPECT_EQ(drawn("circle", 0).width(), 1);
    EXPECT_EQ(drawn("circle", 1'000'000).width(), 2048);
}

}  // namespace
}  // namespace kelmar::paint
