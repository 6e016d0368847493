#include <QPainterPath>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <string>

#include "Paint/QtTextMeasurer.h"

namespace kelmar::paint {
namespace {

const kit::Font plain = kit::Font::system(13);

QtTextMeasurer measurer() {
    return QtTextMeasurer(FontSet(QStringLiteral("Inter"), QStringLiteral("Quicksand")));
}

TEST(QtTextMeasurer, NothingHasNoWidth) {
    EXPECT_EQ(measurer().width("", plain), 0);
    EXPECT_EQ(measurer().width("", plain.monospacedDigits()), 0);
}

TEST(QtTextMeasurer, WidthsGrowWithTheSize) {
    const QtTextMeasurer widths = measurer();
    const std::string text = "Essay on the causes of the war";
    const double perPoint = widths.width(text, kit::Font::system(12)) / 12;
    for (const double size : {5.0, 9.6, 11.5, 12.5, 13.0, 16.9}) {
        EXPECT_NEAR(widths.width(text, kit::Font::system(size)), perPoint * size, 1e-9) << size;
    }
    for (const double size : {17.0, 24.0, 48.0, 96.0, 300.0}) {
        EXPECT_NEAR(widths.width(text, kit::Font::system(size)) / size / perPoint, 1, 0.003)
            << size;
    }
}

TEST(QtTextMeasurer, WordsAndBlanksAddUpToTheLine) {
    const QtTextMeasurer widths = measurer();
    const double parts =
        widths.width("Problem", plain) + widths.width(" ", plain) + widths.width("set", plain);
    EXPECT_NEAR(widths.width("Problem set", plain), parts, 0.3);
}

TEST(QtTextMeasurer, HeavierTextIsWider) {
    const QtTextMeasurer widths = measurer();
    EXPECT_GT(widths.width("Streak", kit::Font::system(13, kit::FontWeight::black)),
              widths.width("Streak", plain));
}

TEST(QtTextMeasurer, DesignsAreToldApart) {
    const QtTextMeasurer widths = measurer();
    EXPECT_NE(widths.width("Streak", plain.rounded()), widths.width("Streak", plain));
}

RC_GTEST_PROP(QtTextMeasurer, MonospacedDigitsAllTakeTheSameRoom, ()) {
    static const QtTextMeasurer widths = measurer();
    const kit::Font font = kit::Font::system(10).monospacedDigits();
    const auto digits = [] { return std::to_string(*rc::gen::inRange(1000, 10000)); };
    RC_ASSERT(std::abs(widths.width(digits(), font) - widths.width(digits(), font)) < 1e-9);
}

TEST(QtTextMeasurer, ProportionalDigitsKeepTheirOwnWidths) {
    const QtTextMeasurer widths = measurer();
    EXPECT_LT(widths.width("1111", plain), widths.width("0000", plain));
}

TEST(QtTextMeasurer, MonospacedDigitsStandCentredInCellsOfAZero) {
    const QtTextMeasurer widths = measurer();
    const kit::Font font = plain.monospacedDigits();
    const std::vector<TextPiece> pieces = widths.pieces(QStringLiteral("1:0"), font);
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_GT(pieces[0].x, 0);
    EXPECT_EQ(pieces[0].width, pieces[2].width);
    EXPECT_NEAR(pieces[2].width, widths.width("0", plain), 1e-9);
    EXPECT_NEAR(pieces[1].x, pieces[0].width, 1e-9);
    EXPECT_NEAR(pieces[0].width + pieces[1].width + pieces[2].width, widths.width("1:0", font),
                1e-9);
}

TEST(QtTextMeasurer, NoDigitsInkIsWiderThanItsCell) {
    // The four of Quicksand is much broader than its zero, but most of that is room beside it.
    const QtTextMeasurer widths = measurer();
    const kit::Font font = kit::Font::system(100, kit::FontWeight::bold).rounded();
    const double cell = widths.pieces(QStringLiteral("0"), font.monospacedDigits()).front().width;
    EXPECT_LT(cell, widths.width("4", font));
    for (char digit = '0'; digit <= '9'; ++digit) {
        QPainterPath ink;
        ink.addText(QPointF(), widths.fonts().font(font, 100), QString(QChar::fromLatin1(digit)));
        EXPECT_LE(ink.boundingRect().width(), cell + 0.01);
    }
}

TEST(QtTextMeasurer, TextFromRightToLeftStaysInOnePiece) {
    const QtTextMeasurer widths = measurer();
    const QString text = QStringLiteral("الساعة 9:30");
    const std::vector<TextPiece> pieces = widths.pieces(text, plain.monospacedDigits());
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_NEAR(pieces[0].width, widths.width(text.toStdString(), plain), 1e-9);
}

TEST(QtTextMeasurer, ForgettingOldTextsChangesNoWidth) {
    const QtTextMeasurer widths = measurer();
    const double before = widths.width("Reading", plain);
    const std::string filler(2000, 'x');
    for (int text = 0; text < 60; ++text) {
        EXPECT_GT(widths.width(std::to_string(text) + filler, plain), 10'000);
    }
    EXPECT_EQ(widths.width("Reading", plain), before);
}

TEST(QtTextMeasurer, TextThatIsNoUtf8StillHasAWidth) {
    EXPECT_GT(measurer().width("\xff\xfe broken", plain), 0);
}

}  // namespace
}  // namespace kelmar::paint
