#include <gtest/gtest.h>

#include "Desktop/WindowPainting.h"
#include "tests/Desktop/Pressable.h"

namespace kelmar::desktop {
namespace {

const QSize window(364, 170);
const QColor untouched(255, 0, 255);

class WindowPaintingTest : public testing::Test {
protected:
    WindowPaintingTest() { painting_.setCorners(Corners::transparent); }

    [[nodiscard]] WidgetContent content(const QColor& background,
                                        paint::Redaction redaction = paint::Redaction::shown,
                                        kit::Family family = kit::Family::medium) const {
        const kit::DrawnEntry entry{
            .content = kit::Spacer{},
            .background =
                kit::Color::rgb(background.redF(), background.greenF(), background.blueF())};
        return {entry, family, redaction, layout::Direction::leftToRight, resources_};
    }

    QImage painted(const QRegion& parts, double scale = 1) {
        QImage image(window * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(untouched);
        QPainter painter(&image);
        painting_.paint(painter, parts, scale);
        return image;
    }
    QColor middle(double scale = 1) {
        return painted(QRect(QPoint(), window), scale).pixelColor(100, 100);
    }

    void change(WidgetContent next) {
        painting_.fadeTo(next);
        content_ = std::move(next);
    }

    paint::PaintResources resources_{paint::FontSet("Inter")};
    system::ManualClock clock_{system::Date::since1970(1'760'000'000)};
    WidgetContent content_;
    WindowPainting painting_{content_, clock_};
};

TEST_F(WindowPaintingTest, NothingIsPaintedOfNoContent) {
    EXPECT_EQ(middle(), untouched);
    EXPECT_EQ(painting_.paintedMoment(), std::nullopt);
}

TEST_F(WindowPaintingTest, MomentIsThatOfTheLatestPainting) {
    content_ = content(Qt::blue);
    middle();
    EXPECT_EQ(painting_.paintedMoment(), clock_.now());
    clock_.set(clock_.now() + 5);
    EXPECT_NE(painting_.paintedMoment(), clock_.now());
    middle();
    EXPECT_EQ(painting_.paintedMoment(), clock_.now());
}

TEST_F(WindowPaintingTest, OnlyThePartsAreDrawn) {
    content_ = content(Qt::blue);
    const QImage image = painted(QRegion(40, 40, 20, 20) + QRegion(100, 100, 10, 10));
    EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(105, 105), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(80, 80), untouched);
    EXPECT_EQ(image.pixelColor(61, 50), untouched);
}

TEST_F(WindowPaintingTest, PartsTogetherMakeTheWholeAtEveryScale) {
    content_ = WidgetContent(entry(), kit::Family::medium, paint::Redaction::shown,
                             layout::Direction::leftToRight, resources_);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage whole = painted(QRect(QPoint(), window), scale);
        const QImage parts = painted(
            QRegion(0, 0, 33, 170) + QRegion(37, 0, 327, 91) + QRegion(37, 95, 327, 75), scale);
        const QRect inOne = QRectF(QPointF(40, 8) * scale, QSizeF(200, 80) * scale).toRect();
        EXPECT_EQ(parts.copy(inOne), whole.copy(inOne)) << scale;
    }
}

TEST_F(WindowPaintingTest, CutOutCardIsOpaqueToItsCorners) {
    content_ = content(Qt::blue);
    const QColor blended = painted(QRect(QPoint(), window)).pixelColor(0, 0);
    painting_.setCorners(Corners::cutOut);
    const QColor cutOut = painted(QRect(QPoint(), window)).pixelColor(0, 0);
    EXPECT_NE(blended, cutOut);
    EXPECT_EQ(cutOut.alpha(), 255);
}

TEST_F(WindowPaintingTest, ContentFadesOnlyOverWhatHasBeenSeenAndCanBeCompared) {
    const auto afterChange = [this](WidgetContent former, WidgetContent next) {
        painting_.endFade();
        content_ = std::move(former);
        middle();
        change(std::move(next));
        return middle();
    };
    const QColor mixed = afterChange(content(Qt::blue), content(Qt::red));
    EXPECT_GT(mixed.blue(), 0);
    EXPECT_GT(mixed.red(), 0);
    constexpr auto redacted = paint::Redaction::redacted;
    EXPECT_EQ(afterChange(content(Qt::blue, redacted), content(Qt::red)), QColor(Qt::red));
    EXPECT_EQ(afterChange(content(Qt::blue), content(Qt::red, redacted)).blue(), 0);
    EXPECT_EQ(afterChange(content(Qt::blue, paint::Redaction::shown, kit::Family::small),
                          content(Qt::red)),
              QColor(Qt::red));
    painting_.setMotion(Motion::reduced);
    EXPECT_EQ(afterChange(content(Qt::blue), content(Qt::red)), QColor(Qt::red));
}

TEST_F(WindowPaintingTest, ContentThatWasNeverPaintedDoesNotFadeAway) {
    content_ = content(Qt::blue);
    change(content(Qt::red));
    EXPECT_EQ(middle(), QColor(Qt::red));
}

/// Its pixels are no longer those of the window.
TEST_F(WindowPaintingTest, FormerContentIsLeftOutWhereTheScaleHasChanged) {
    content_ = content(Qt::blue);
    middle();
    change(content(Qt::red));
    ASSERT_GT(middle().blue(), 0);
    EXPECT_EQ(middle(2), QColor(Qt::red));
}

}  // namespace
}  // namespace kelmar::desktop
