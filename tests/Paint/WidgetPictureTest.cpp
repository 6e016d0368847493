#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "Kit/Metrics.h"
#include "Paint/Palette.h"
#include "Paint/WidgetPicture.h"
#include "tests/Paint/Pictures.h"
#include "tests/Support/GoldenPicture.h"

namespace kelmar::paint {
namespace {

using kelmar::testing::looksAsExpected;
using kit::Family;
using kit::FontWeight;
using kit::RenderingMode;
using layout::Direction;

const kit::Color accent = kit::Color::rgb(0.31, 0.275, 0.898);
const kit::Color orange = kit::Color::rgb(0.976, 0.451, 0.086);
const system::Date now = system::Date::since1970(1060);

kit::View line(const std::string& text, const kit::Font& font,
               const kit::Color& color = kit::primary) {
    return kit::Text{.text = text, .font = font, .color = color, .lineLimit = 1};
}

kit::View sized(double width, double height, kit::View child) {
    return kit::Frame{{.width = width, .height = height}, {}, std::move(child)};
}

kit::View filled(kit::ShapeKind shape, const kit::Color& color) {
    return kit::Shape{.shape = shape, .cornerRadius = 1.5, .fill = color};
}

kit::View topLeading(kit::View child) {
    return kit::Frame{{.maxWidth = kit::infinity, .maxHeight = kit::infinity},
                      {kit::HorizontalAlignment::leading, kit::VerticalAlignment::top},
                      std::move(child)};
}

kit::View task(const std::string& title, const kit::Color& color) {
    return kit::HStack{
        .spacing = 6,
        .children = {
            kit::Symbol{.name = "circle", .font = kit::Font::system(13), .color = kit::secondary},
            sized(3, 16, filled(kit::ShapeKind::roundedRectangle, color)),
            line(title, kit::Font::system(12, FontWeight::medium))}};
}

kit::View doneMark() {
    return sized(
        19, 19,
        kit::ZStack{.children = {filled(kit::ShapeKind::circle, kit::primary),
                                 kit::Symbol{.name = "checkmark",
                                             .font = kit::Font::system(9.5, FontWeight::black),
                                             .color = kit::clear}}});
}

kit::View badge() {
    return kit::Background{
        filled(kit::ShapeKind::capsule, accent.withOpacity(0.14)),
        kit::Padding{{.top = 2, .leading = 8, .bottom = 2, .trailing = 8},
                     line("Undo", kit::Font::system(11, FontWeight::semibold), accent)}};
}

const kit::Font clockFont =
    kit::Font::system(20, FontWeight::semibold).rounded().monospacedDigits();

/// A bit of everything that widgets are made of.
kit::DrawnEntry sampler() {
    const kit::View header = kit::HStack{
        .spacing = 6,
        .children = {line("3", kit::Font::system(24, FontWeight::bold).rounded(), accent),
                     line("due today", kit::Font::system(12, FontWeight::semibold), kit::secondary),
                     kit::Spacer{},
                     kit::Symbol{.name = "graduationcap.fill",
                                 .font = kit::Font::system(12),
                                 .color = accent.withOpacity(0.8)}}};
    const kit::View clock =
        kit::HStack{.spacing = 8,
                    .children = {doneMark(),
                                 kit::Countdown{.from = system::Date::since1970(1000),
                                                .to = system::Date::since1970(2122),
                                                .font = clockFont,
                                                .color = accent},
                                 kit::Spacer{}, badge()}};
    kit::Text struck{.text = "Essay outline", .font = kit::Font::system(12)};
    struck.strikethrough = true;
    const kit::View bar = kit::Frame{
        {.height = 4},
        {},
        kit::Progress{
            .value = kit::BarInterval{system::Date::since1970(622), system::Date::since1970(2122)},
            .tint = accent}};
    return {.content = topLeading(
                kit::VStack{.alignment = kit::HorizontalAlignment::leading,
                            .spacing = 6,
                            .children = {header, task("Lab report: acids and bases", orange),
                                         kit::Opacity{0.45, struck}, clock, bar}}),
            .background = kit::tertiaryFill};
}

/// Over all components of all pixels of two pictures of one size.
int largestDifference(const QImage& a, const QImage& b) {
    EXPECT_EQ(a.size(), b.size());
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest =
                std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                          std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
        }
    }
    return largest;
}

class WidgetPictureTest : public ::testing::Test {
protected:
    [[nodiscard]] WidgetPicture picture(const kit::DrawnEntry& entry, Family family,
                                        Direction direction = Direction::leftToRight) const {
        return {entry, family, direction, resources_};
    }

    const PaintResources resources_ = testing::testResources();
};

kit::DrawnEntry empty(const kit::Color& background = kit::tertiaryFill) {
    return {.content = kit::Spacer{}, .background = background};
}

TEST_F(WidgetPictureTest, HasTheFamilysSizeAtEveryScale) {
    const WidgetPicture small = picture(empty(), Family::small);
    EXPECT_EQ(small.pixelSize(1), QSize(170, 170));
    EXPECT_EQ(small.pixelSize(1.1), QSize(187, 187));
    EXPECT_EQ(small.pixelSize(1.25), QSize(213, 213));
    EXPECT_EQ(picture(empty(), Family::large).pixelSize(2), QSize(728, 764));
    const QImage image = small.image({.scale = 1.25}, now);
    EXPECT_EQ(image.size(), QSize(213, 213));
    EXPECT_EQ(image.devicePixelRatio(), 1.25);
}

TEST_F(WidgetPictureTest, IsTransparentOutsideTheRoundCornersAndCardInside) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        const PaintStyle style{.scale = scale};
        const QImage image = picture(empty(), Family::small).image(style, now);
        const int last = image.width() - 1;
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)}) {
            EXPECT_EQ(image.pixelColor(corner).alpha(), 0);
        }
        const QColor card = Palette(style.appearance).background(kit::tertiaryFill);
        EXPECT_EQ(image.pixelColor(last / 2, last / 2), card);
        EXPECT_EQ(image.pixelColor(last / 2, 0).alpha(), 255);
        EXPECT_NE(image.pixelColor(last / 2, 0), card);
    }
}

TEST_F(WidgetPictureTest, AnOpaqueCardFillsThePictureUpToItsCorners) {
    const PaintStyle blended{.appearance = {.renderingMode = RenderingMode::vibrant}};
    PaintStyle opaque = blended;
    opaque.card = Card::opaque;
    QColor card = Palette(blended.appearance).background(kit::tertiaryFill);
    ASSERT_LT(card.alpha(), 255);
    card.setAlpha(255);
    const QImage image = picture(empty(), Family::small).image(opaque, now);
    EXPECT_FALSE(image.hasAlphaChannel());
    for (const QPoint place :
         {QPoint(0, 0), QPoint(169, 0), QPoint(0, 169), QPoint(169, 169), QPoint(85, 85)}) {
        EXPECT_EQ(image.pixelColor(place), card) << place.x() << ", " << place.y();
    }
    EXPECT_NE(image.pixelColor(85, 0), card);  // The edge follows the round corners all the same.
}

TEST_F(WidgetPictureTest, TakesAFixedBackgroundInFullColourOnly) {
    const WidgetPicture streak = picture(empty(orange), Family::small);
    EXPECT_EQ(streak.image({}, now).pixelColor(85, 85), QColor(249, 115, 22));
    const Appearance accented{.renderingMode = RenderingMode::accented};
    EXPECT_EQ(streak.image({.appearance = accented}, now).pixelColor(85, 85),
              Palette(accented).background(kit::tertiaryFill));
}

TEST_F(WidgetPictureTest, BoxesAreInWidgetCoordinates) {
    const kit::View link = kit::Link{"planner://a", sized(40, 20, kit::Spacer{})};
    const WidgetPicture widget = picture({.content = topLeading(link)}, Family::medium);
    const auto index = layout::actionAt(widget.boxes(), {kit::contentMargin, kit::contentMargin});
    ASSERT_TRUE(index);
    EXPECT_EQ(widget.boxes()[*index].rect, (layout::Rect{16, 16, 40, 20}));
    EXPECT_FALSE(layout::actionAt(widget.boxes(), {15, 15}));
}

TEST_F(WidgetPictureTest, ContentIsDrawnWhereItsBoxesAre) {
    const kit::View square = sized(20, 20, filled(kit::ShapeKind::rectangle, accent));
    const WidgetPicture widget = picture({.content = topLeading(square)}, Family::small);
    const QImage image = widget.image({.scale = 1.5}, now);
    const QColor indigo = Palette(Appearance{}).color(accent);
    EXPECT_EQ(image.pixelColor(24, 24).rgb(), indigo.rgb());
    EXPECT_EQ(image.pixelColor(53, 53).rgb(), indigo.rgb());
    EXPECT_NE(image.pixelColor(23, 24).rgb(), indigo.rgb());
    EXPECT_NE(image.pixelColor(54, 53).rgb(), indigo.rgb());
}

TEST_F(WidgetPictureTest, IsLiveOnlyAroundWhatRunsByItself) {
    const auto liveAreas = [&](kit::View view) {
        return picture({.content = topLeading(std::move(view))}, Family::small).liveAreas();
    };
    EXPECT_TRUE(liveAreas(line("Ready", kit::Font::system(12))).empty());
    EXPECT_TRUE(liveAreas(kit::Progress{.value = kit::BarValue{0.5}}).empty());
    const auto bar =
        liveAreas(sized(100, 4, kit::Progress{.value = kit::BarInterval{now, now + 60}}));
    ASSERT_EQ(bar.size(), 1U);
    EXPECT_EQ(bar.front(), (layout::Rect{8, 8, 116, 20}));
    EXPECT_EQ(liveAreas(kit::Countdown{.from = now, .to = now + 60, .font = kit::Font::system(20)})
                  .size(),
              1U);
}

TEST_F(WidgetPictureTest, ChangesNowhereElseThanInItsLiveAreas) {
    for (const double scale : {1.0, 1.25, 2.0}) {
        SCOPED_TRACE(scale);
        const WidgetPicture widget = picture(sampler(), Family::medium);
        const PaintStyle style{.scale = scale};
        QImage before = widget.image(style, now);
        QImage after = widget.image(style, now + 1);
        ASSERT_NE(before, after);
        for (QImage* const image : {&before, &after}) {
            QPainter painter(image);
            for (const layout::Rect& area : widget.liveAreas()) {
                painter.fillRect(QRectF(area.x, area.y, area.width, area.height), Qt::black);
            }
        }
        EXPECT_EQ(before, after);
    }
}

TEST_F(WidgetPictureTest, EveryPartIsTheSameAsInTheWholePicture) {
    kit::DrawnEntry withoutCutOut = sampler();
    withoutCutOut.content = topLeading(
        kit::VStack{.children = {line("Biology", kit::Font::system(12)),
                                 kit::Countdown{.from = now, .to = now + 90, .font = clockFont},
                                 task("Lab report: acids and bases", orange)}});
    constexpr int rounding = 1;
    for (const kit::DrawnEntry& entry : {sampler(), withoutCutOut}) {
        const WidgetPicture widget = picture(entry, Family::medium);
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            const PaintStyle style{.scale = scale};
            const QImage whole = widget.image(style, now);
            for (int x = 0; x < whole.width(); x += 37) {
                for (int y = 0; y < whole.height(); y += 23) {
                    const QRect part = QRect(x, y, 61, 31) & whole.rect();
                    EXPECT_LE(largestDifference(widget.image(style, now, part), whole.copy(part)),
                              rounding)
                        << scale << ": " << x << ", " << y;
                }
            }
        }
    }
}

TEST_F(WidgetPictureTest, ChangesWithTimeWhereItIsLive) {
    const WidgetPicture widget = picture(sampler(), Family::medium);
    EXPECT_EQ(widget.image({}, now), widget.image({}, now));
    EXPECT_NE(widget.image({}, now), widget.image({}, now + 1));
}

TEST_F(WidgetPictureTest, PaintDrawsTheSameAsImage) {
    const WidgetPicture widget = picture(sampler(), Family::medium);
    QImage canvas(widget.pixelSize(1), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    widget.paint(painter, {}, now);
    painter.end();
    EXPECT_EQ(canvas, widget.image({}, now));
}

TEST_F(WidgetPictureTest, PaintOverDrawsTheSameAsImageWhateverWasThere) {
    const WidgetPicture widget = picture(sampler(), Family::medium);
    for (const Card card : {Card::blended, Card::opaque}) {
        const PaintStyle style{.scale = 1.25, .card = card};
        const QImage expected = widget.image(style, now);
        QImage surface(expected.size(), expected.format());
        surface.fill(Qt::red);
        widget.paintOver(surface, style, now);
        surface.setDevicePixelRatio(expected.devicePixelRatio());
        EXPECT_EQ(surface, expected);
    }
}

TEST_F(WidgetPictureTest, PaintStaysWithinAPlaceThatThePainterMovedTo) {
    const WidgetPicture widget = picture(sampler(), Family::small);
    QImage canvas(QSize(230, 230), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.translate(40, 50);
    widget.paint(painter, {}, now);
    painter.end();
    EXPECT_EQ(canvas.copy(40, 50, 170, 170), widget.image({}, now));
}

TEST_F(WidgetPictureTest, LooksAsExpectedInEveryAppearance) {
    const WidgetPicture widget = picture(sampler(), Family::medium);
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        for (const RenderingMode mode : kit::renderingModes) {
            const std::string name = std::string("paint/sampler-") +
                                     (scheme == Scheme::light ? "light-" : "dark-") +
                                     std::string(kit::nameOf(mode));
            SCOPED_TRACE(name);
            const PaintStyle style{.appearance = {scheme, mode, QColor(0x2f, 0x7d, 0x4f)}};
            EXPECT_TRUE(looksAsExpected(widget.image(style, now), name));
        }
    }
}

TEST_F(WidgetPictureTest, LooksAsExpectedAtFractionalScales) {
    const WidgetPicture widget = picture(sampler(), Family::medium);
    EXPECT_TRUE(looksAsExpected(widget.image({.scale = 1.25}, now), "paint/sampler-1.25"));
    EXPECT_TRUE(looksAsExpected(widget.image({.scale = 1.5}, now), "paint/sampler-1.5"));
    EXPECT_TRUE(looksAsExpected(widget.image({.scale = 2}, now), "paint/sampler-2"));
}

TEST_F(WidgetPictureTest, LooksAsExpectedRedacted) {
    const PaintStyle style{.redaction = Redaction::redacted};
    EXPECT_TRUE(looksAsExpected(picture(sampler(), Family::medium).image(style, now),
                                "paint/sampler-redacted"));
}

TEST_F(WidgetPictureTest, LooksAsExpectedFromRightToLeft) {
    const WidgetPicture widget = picture(sampler(), Family::medium, Direction::rightToLeft);
    EXPECT_TRUE(looksAsExpected(widget.image({}, now), "paint/sampler-right-to-left"));
}

}  // namespace
}  // namespace kelmar::paint
