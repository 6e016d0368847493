#include <QImage>
#include <gtest/gtest.h>

#include "Paint/FocusRing.h"

namespace kelmar::paint {
namespace {

const QColor ring(0, 0, 200);
const QColor card(250, 250, 250);
const QColor content(40, 160, 60);

/// A widget of 100 x 80 points full of content, with a ring round a place in it.
QImage marked(const layout::Rect& rect, double scale) {
    QImage picture(QSize(static_cast<int>(100 * scale), static_cast<int>(80 * scale)),
                   QImage::Format_RGB32);
    picture.fill(content);
    QPainter painter(&picture);
    paintFocusRing(painter, {.rect = rect, .widget = {100, 80}}, {.ring = ring, .card = card},
                   scale);
    return picture;
}

TEST(FocusRing, LiesAroundItsPlaceBetweenSeamsOfTheCardsColour) {
    for (const int scale : {1, 2}) {
        SCOPED_TRACE(scale);
        const QImage picture = marked({30, 20, 40, 40}, scale);
        const auto at = [&](int x) { return picture.pixelColor(x * scale, 40 * scale); };
        EXPECT_EQ(at(24), content);
        EXPECT_EQ(at(25), card);
        EXPECT_EQ(at(26), ring);
        EXPECT_EQ(at(27), ring);
        EXPECT_EQ(at(28), card);
        EXPECT_EQ(at(29), content);
        EXPECT_EQ(at(50), content);
    }
}

TEST(FocusRing, StaysInsideTheCard) {
    const QImage picture = marked({0, 0, 100, 80}, 1);
    EXPECT_EQ(picture.pixelColor(0, 40), content);
    EXPECT_EQ(picture.pixelColor(3, 40), ring);
    EXPECT_EQ(picture.pixelColor(99, 40), content);
    // Where the card's own corner is cut away nothing of the ring may be needed.
    EXPECT_EQ(picture.pixelColor(5, 5), content);
}

TEST(FocusRing, SomethingTinyIsStillMarked) {
    EXPECT_EQ(marked({50, 40, 0, 0}, 1).pixelColor(47, 40), ring);
}

}  // namespace
}  // namespace kelmar::paint
