#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Paint/SymbolDrawing.h"
#include "tests/Paint/Pictures.h"

namespace kelmar::paint {
namespace {

using testing::inkRect;

constexpr double wholeSide = symbolSide;

SymbolStep line(QPointF from, QPointF to, double width) {
    SymbolStep step;
    step.path.moveTo(from);
    step.path.lineTo(to);
    step.pen = QPen(Qt::black, width, Qt::SolidLine, Qt::FlatCap);
    return step;
}

SymbolStep fill(const QRectF& rect) {
    SymbolStep step;
    step.path.addRect(rect);
    step.pen = Qt::NoPen;
    step.brush = Qt::black;
    return step;
}

QImage drawn(const SymbolDrawing& drawing, const QRectF& square, double lineFactor = 1) {
    QImage picture(48, 48, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawSymbol(painter, drawing, square, lineFactor);
    return picture;
}

QImage drawnWhole(const SymbolDrawing& drawing, double lineFactor = 1) {
    return drawn(drawing, {0, 0, wholeSide, wholeSide}, lineFactor);
}

TEST(SymbolDrawing, FillsTheSquareThatItIsGiven) {
    const SymbolDrawing drawing{fill({0, 6, wholeSide, 12})};
    EXPECT_EQ(inkRect(drawnWhole(drawing)), QRect(0, 6, 24, 12));
    EXPECT_EQ(inkRect(drawn(drawing, {8, 16, 32, 32})), QRect(8, 24, 32, 16));
}

TEST(SymbolDrawing, TheFactorThickensLinesWhereTheyAre) {
    const SymbolDrawing drawing{line({4, 12}, {20, 12}, 2)};
    EXPECT_EQ(inkRect(drawnWhole(drawing)), QRect(4, 11, 16, 2));
    EXPECT_EQ(inkRect(drawnWhole(drawing, 3)), QRect(4, 9, 16, 6));
}

TEST(SymbolDrawing, TheFactorLeavesFillsAsTheyAre) {
    const SymbolDrawing drawing{fill({4, 4, 8, 8})};
    EXPECT_EQ(drawnWhole(drawing, 3), drawnWhole(drawing));
}

TEST(SymbolDrawing, EveryStepHasItsOwnTransform) {
    SymbolDrawing drawing{fill({0, 0, 4, 4}), fill({0, 0, 4, 4})};
    drawing[0].transform = QTransform::fromTranslate(10, 0);
    EXPECT_EQ(inkRect(drawnWhole(drawing)), QRect(0, 0, 14, 4));
}

TEST(SymbolDrawing, LaterStepsLieUponEarlierOnes) {
    SymbolDrawing drawing{fill({0, 0, 8, 8}), fill({2, 2, 4, 4})};
    drawing[1].brush = Qt::white;
    EXPECT_EQ(drawnWhole(drawing).pixelColor(4, 4), QColor(Qt::white));
    EXPECT_EQ(drawnWhole(drawing).pixelColor(1, 4), QColor(Qt::black));
}

TEST(SymbolDrawing, ComesBackFromItsBytesAsItWas) {
    SymbolDrawing drawing{fill({1, 2, 3, 4}), line({4, 12}, {20, 15}, 1.25)};
    drawing[0].path.setFillRule(Qt::WindingFill);
    drawing[0].transform = QTransform().rotate(60);
    drawing[1].pen.setJoinStyle(Qt::RoundJoin);
    drawing[1].pen.setColor(Qt::white);
    const SymbolDrawing back = decodedSymbol(encodedSymbol(drawing));
    ASSERT_EQ(back.size(), 2);
    for (qsizetype i = 0; i < back.size(); ++i) {
        EXPECT_EQ(back[i].transform, drawing[i].transform);
        EXPECT_EQ(back[i].path, drawing[i].path);
        EXPECT_EQ(back[i].pen, drawing[i].pen);
        EXPECT_EQ(back[i].brush, drawing[i].brush);
    }
}

TEST(SymbolDrawing, NoBytesAreNoDrawing) {
    EXPECT_TRUE(decodedSymbol({}).isEmpty());
}

TEST(SymbolDrawing, LeavesThePainterAsItWas) {
    QImage picture(8, 8, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture);
    const QPen pen = painter.pen();
    drawSymbol(painter, {line({4, 12}, {20, 12}, 2)}, {2, 2, 4, 4}, 1);
    EXPECT_EQ(painter.pen(), pen);
    EXPECT_TRUE(painter.transform().isIdentity());
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

}  // namespace
}  // namespace kelmar::paint
