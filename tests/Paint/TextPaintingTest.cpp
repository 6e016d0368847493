#include <array>
#include <gtest/gtest.h>

#include "Paint/BoxPainter.h"
#include "Paint/Palette.h"
#include "tests/Paint/Pictures.h"

namespace kelmar::paint {
namespace {

using layout::Direction;
using testing::box;
using testing::inkAmount;
using testing::inkRect;
using testing::painted;
using testing::textBox;

constexpr std::array scales{1.0, 1.25, 1.5, 2.0};
constexpr kit::Size wide{220, 40};

class TextPaintingTest : public ::testing::Test {
protected:
    [[nodiscard]] PaintContext context(double scale = 1) const {
        return {.resources = resources_, .style = {.scale = scale}};
    }

    [[nodiscard]] PaintContext redacted() const {
        PaintContext result = context();
        result.style.redaction = Redaction::redacted;
        return result;
    }

    [[nodiscard]] QImage drawn(const std::string& text,
                               const kit::Font& font = kit::Font::system(20),
                               double scale = 1) const {
        return painted({textBox({4, 4}, text, font, resources_)}, context(scale), wide);
    }

    const PaintResources resources_ = testing::testResources();
};

TEST_F(TextPaintingTest, TextTakesTheWidthThatWasMeasuredAtEveryScale) {
    for (const double scale : scales) {
        for (const double size : {10.0, 11.5, 13.0}) {
            SCOPED_TRACE(::testing::Message() << size << " points at " << scale);
            const kit::Font font = kit::Font::system(size, kit::FontWeight::medium);
            const std::string text = "HEssay on the causes of itH";
            const QRectF ink = inkRect(drawn(text, font, scale));
            const double width = resources_.measurer().width(text, font) * scale;
            // The H has a little room at both of its sides.
            EXPECT_LE(ink.width(), width + 1);
            EXPECT_GE(ink.width(), width - 0.25 * size * scale - 1);
        }
    }
}

TEST_F(TextPaintingTest, LettersStandOnTheBaseline) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        const QRect ink = inkRect(drawn("HHH", kit::Font::system(20), scale));
        const double baseline = 4 + 0.8 * 24;
        EXPECT_NEAR(ink.bottom() + 1, baseline * scale, 1);
        EXPECT_NEAR(ink.height(), 0.727 * 20 * scale, 1.6);
    }
}

TEST_F(TextPaintingTest, ColourFollowsThePalette) {
    layout::PlacedBox line = textBox({4, 4}, "■■■", kit::Font::system(20), resources_);
    std::get<layout::TextDrawing>(line.drawing).color = kit::red;
    const QImage picture = painted({line}, context(), wide);
    const QColor expected = Palette(Appearance{}).color(kit::red);
    EXPECT_EQ(picture.pixelColor(inkRect(picture).center()).rgb(), expected.rgb());
}

TEST_F(TextPaintingTest, AStruckLineRunsThroughBlanksInTheTextsColour) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        layout::PlacedBox line = textBox({4, 4}, "a    a", kit::Font::system(20), resources_);
        const QImage plain = painted({line}, context(scale), wide);
        auto& text = std::get<layout::TextDrawing>(line.drawing);
        text.strikethrough = true;
        text.color = kit::Color::rgb(1, 0, 0);
        const QImage struck = painted({line}, context(scale), wide);
        const int middle = inkRect(plain).center().x();
        int inked = 0;
        for (int y = 0; y < struck.height(); ++y) {
            EXPECT_EQ(plain.pixelColor(middle, y).alpha(), 0);
            if (const QColor pixel = struck.pixelColor(middle, y); pixel.alpha() > 0) {
                EXPECT_EQ(pixel, QColor(255, 0, 0));
                ++inked;
            }
        }
        EXPECT_EQ(inked, std::lround(0.075 * 20 * scale));
    }
}

TEST_F(TextPaintingTest, AFadedStruckLineFadesAsOne) {
    layout::PlacedBox line = textBox({4, 4}, "Hall", kit::Font::system(20), resources_);
    std::get<layout::TextDrawing>(line.drawing).strikethrough = true;
    const QImage solid = painted({line}, context(), wide);
    line.opacity = 0.45;
    const QImage faded = painted({line}, context(), wide);
    for (int y = 0; y < solid.height(); ++y) {
        for (int x = 0; x < solid.width(); ++x) {
            EXPECT_NEAR(faded.pixelColor(x, y).alpha(), 0.45 * solid.pixelColor(x, y).alpha(), 2);
        }
    }
}

TEST_F(TextPaintingTest, TextFromRightToLeftStartsAtTheRight) {
    // Broad letters at one end, a mere tick at the other.
    const auto heavySide = [&](const std::string& text) {
        const QImage picture = drawn(text, kit::Font::system(30));
        const QRect ink = inkRect(picture);
        const int middle = ink.center().x();
        const double left = inkAmount(picture.copy(ink.left(), 0, middle - ink.left(), 40));
        const double right = inkAmount(picture.copy(middle, 0, ink.right() - middle + 1, 40));
        return right > left ? Direction::rightToLeft : Direction::leftToRight;
    };
    EXPECT_EQ(heavySide("שששש  י"), Direction::rightToLeft);
    EXPECT_EQ(heavySide("י  שששש"), Direction::leftToRight);
}

TEST_F(TextPaintingTest, ArabicLettersAreJoined) {
    const std::string joined = "بببب";
    const std::string apart = "ب\u200cب\u200cب\u200cب";
    EXPECT_LT(resources_.measurer().width(joined, kit::Font::system(20)),
              0.8 * resources_.measurer().width(apart, kit::Font::system(20)));
    EXPECT_FALSE(inkRect(drawn(joined)).isEmpty());
}

TEST_F(TextPaintingTest, ScriptsThatTheFamilyLacksComeFromOtherFonts) {
    // What no font has is drawn as the same box for every character.
    const QImage missing = drawn("\U0010FFF0");
    for (const char* text : {"数", "学", "ك", "א", "ไ", "😀"}) {
        SCOPED_TRACE(text);
        EXPECT_NE(drawn(text), missing);
        EXPECT_FALSE(inkRect(drawn(text)).isEmpty());
    }
    EXPECT_NE(drawn("数"), drawn("学"));
}

TEST_F(TextPaintingTest, EmojiAreInColourAtEveryScale) {
    for (const double scale : scales) {
        SCOPED_TRACE(scale);
        const QImage picture = drawn("😀", kit::Font::system(13), scale);
        const QRect ink = inkRect(picture);
        EXPECT_GE(ink.width(), 12 * scale);
        int yellow = 0;
        for (int y = ink.top(); y <= ink.bottom(); ++y) {
            for (int x = ink.left(); x <= ink.right(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                yellow += pixel.alpha() > 200 && pixel.red() > pixel.blue() + 80 ? 1 : 0;
            }
        }
        EXPECT_GT(yellow, ink.width() * ink.height() / 3);
    }
}

TEST_F(TextPaintingTest, MonospacedDigitsKeepTheirPlacesWhenOthersChange) {
    const kit::Font font = kit::Font::system(20).monospacedDigits();
    const QImage narrow = drawn("11:1|", font);
    const QImage broad = drawn("00:0|", font);
    EXPECT_EQ(inkRect(narrow).right(), inkRect(broad).right());
}

layout::PlacedBox countdown(double remainingAtZero) {
    return box({10, 4, 120, 24},
               layout::CountdownDrawing{.from = system::Date::since1970(0),
                                        .to = system::Date::since1970(remainingAtZero),
                                        .font = kit::Font::system(20).monospacedDigits(),
                                        .baseline = 19.2});
}

TEST_F(TextPaintingTest, ACountdownReadsWhatRemainsAtTheMoment) {
    PaintContext moment = context();
    moment.now = system::Date::since1970(2);
    const kit::Font font = kit::Font::system(20).monospacedDigits();
    const QImage expected = painted({textBox({10, 4}, "1:05:09", font, resources_)}, moment, wide);
    EXPECT_EQ(painted({countdown(3911)}, moment, wide), expected);
}

TEST_F(TextPaintingTest, ACountdownStandsAtItsLengthBeforeItsStartAndAtZeroAfterItsEnd) {
    const kit::Font font = kit::Font::system(20).monospacedDigits();
    PaintContext moment = context();
    moment.now = system::Date::since1970(-50);
    EXPECT_EQ(painted({countdown(59)}, moment, wide),
              painted({textBox({10, 4}, "0:59", font, resources_)}, moment, wide));
    moment.now = system::Date::since1970(1000);
    EXPECT_EQ(painted({countdown(59)}, moment, wide),
              painted({textBox({10, 4}, "0:00", font, resources_)}, moment, wide));
}

TEST_F(TextPaintingTest, ACountdownEndsAtTheRightFromRightToLeft) {
    PaintContext rightToLeft = context();
    rightToLeft.direction = Direction::rightToLeft;
    EXPECT_NEAR(inkRect(painted({countdown(59)}, rightToLeft, wide)).right(), 130, 3);
    EXPECT_NEAR(inkRect(painted({countdown(59)}, context(), wide)).left(), 10, 3);
}

TEST_F(TextPaintingTest, RedactionShowsOnlyHowLongALineIs) {
    layout::PlacedBox secret = textBox({4, 4}, "Essay", kit::Font::system(13), resources_);
    layout::PlacedBox other = secret;
    std::get<layout::TextDrawing>(other.drawing).lines[0].text = "Grade";
    const QImage picture = painted({secret}, redacted(), wide);
    EXPECT_EQ(picture, painted({other}, redacted(), wide));
    EXPECT_NE(picture, painted({secret}, context(), wide));
    const QRect bar = inkRect(picture);
    EXPECT_NEAR(bar.width(), secret.rect.width, 1);
    EXPECT_NEAR(picture.pixelColor(bar.center()).alphaF(), 0.22, 0.01);
}

TEST_F(TextPaintingTest, RedactionHidesSymbolsAndCountdownsToo) {
    const auto symbol = [](const char* name) {
        return box({150, 4, 20, 20}, layout::SymbolDrawing{.name = name});
    };
    EXPECT_EQ(painted({symbol("book")}, redacted(), wide),
              painted({symbol("flame.fill")}, redacted(), wide));
    EXPECT_EQ(painted({countdown(58)}, redacted(), wide),
              painted({countdown(49)}, redacted(), wide));
    EXPECT_FALSE(inkRect(painted({countdown(58)}, redacted(), wide)).isEmpty());
}

TEST_F(TextPaintingTest, SizesBeyondReasonDoNoHarm) {
    layout::PlacedBox line = textBox({4, 4}, "A", kit::Font::system(20), resources_);
    for (const double size : {0.0, 0.01, 1e12}) {
        std::get<layout::TextDrawing>(line.drawing).font.size = size;
        EXPECT_EQ(painted({line}, context(), wide).width(), 220);
    }
}

}  // namespace
}  // namespace kelmar::paint
