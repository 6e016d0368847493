#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QRawFont>
#include <array>
#include <gtest/gtest.h>

#include "Paint/FontSet.h"

namespace kelmar::paint {
namespace {

using kit::FontDesign;
using kit::FontWeight;

QRawFont rawFont(const FontSet& fonts, const kit::Font& font) {
    return QRawFont::fromFont(fonts.font(font, 20));
}

bool writesPlainText(const FontSet& fonts, FontDesign design) {
    QFont font(fonts.family(design));
    font.setStyleStrategy(QFont::NoFontMerging);
    const QRawFont raw = QRawFont::fromFont(font);
    return raw.supportsCharacter(QChar(u'a')) && raw.supportsCharacter(QChar(u'7'));
}

TEST(FontSet, EachWeightIsARealCutOfTheFamily) {
    const FontSet fonts(QStringLiteral("Inter"));
    struct Cut {
        FontWeight weight;
        int value;
        const char* style;
    };
    for (const Cut& cut :
         {Cut{FontWeight::regular, 400, "Regular"}, Cut{FontWeight::medium, 500, "Medium"},
          Cut{FontWeight::semibold, 600, "Semi Bold"}, Cut{FontWeight::bold, 700, "Bold"},
          Cut{FontWeight::heavy, 800, "Extra Bold"}, Cut{FontWeight::black, 900, "Black"}}) {
        SCOPED_TRACE(cut.style);
        const QRawFont raw = rawFont(fonts, kit::Font::system(13, cut.weight));
        EXPECT_EQ(raw.familyName(), QStringLiteral("Inter"));
        EXPECT_EQ(raw.styleName(), QString::fromLatin1(cut.style));
        EXPECT_EQ(raw.weight(), cut.value);
    }
}

TEST(FontSet, WeightsThatAFamilyLacksShareOneThatItHas) {
    // Quicksand has "Regular" and "Bold" only: its other cuts are families of their own.
    const FontSet fonts(QStringLiteral("Inter"));
    const auto rounded = [&](FontWeight weight) {
        return fonts.font(kit::Font::system(20, weight).rounded(), 24);
    };
    EXPECT_EQ(rounded(FontWeight::medium), rounded(FontWeight::regular));
    for (const FontWeight weight : {FontWeight::semibold, FontWeight::heavy, FontWeight::black}) {
        EXPECT_EQ(rounded(weight), rounded(FontWeight::bold));
    }
    EXPECT_NE(rounded(FontWeight::regular), rounded(FontWeight::bold));
}

TEST(FontSet, AFamilyWithoutBoldLettersIsStillAskedForThem) {
    const FontSet fonts(QStringLiteral("Quicksand Medium"));
    const QFont regular = fonts.font(kit::Font::system(20), 24);
    EXPECT_EQ(fonts.font(kit::Font::system(20, FontWeight::semibold), 24), regular);
    EXPECT_EQ(fonts.font(kit::Font::system(20, FontWeight::bold), 24).weight(), QFont::Bold);
}

TEST(FontSet, RoundedIsQuicksandWhereInstalled) {
    const FontSet fonts(QStringLiteral("Inter"));
    const QRawFont raw = rawFont(fonts, kit::Font::system(30, FontWeight::bold).rounded());
    EXPECT_EQ(raw.familyName(), QStringLiteral("Quicksand"));
    EXPECT_EQ(raw.styleName(), QStringLiteral("Bold"));
}

TEST(FontSet, RoundedIsTheUiFamilyWhereQuicksandIsMissing) {
    const FontSet fonts(QStringLiteral("Inter"), QStringLiteral("No Such Rounded Family"));
    EXPECT_EQ(fonts.family(FontDesign::rounded), QStringLiteral("Inter"));
}

TEST(FontSet, UnusableFamiliesFallBackToOneThatWrites) {
    for (const char* name : {"", "No Such Family", "Noto Color Emoji"}) {
        SCOPED_TRACE(name);
        const FontSet fonts(QString::fromLatin1(name), QString());
        EXPECT_NE(fonts.family(FontDesign::standard), QString::fromLatin1(name));
        EXPECT_TRUE(writesPlainText(fonts, FontDesign::standard));
        EXPECT_TRUE(writesPlainText(fonts, FontDesign::rounded));
    }
}

TEST(FontSet, TextsOfAnOctaveShareASize) {
    struct Case {
        double size;
        int shared;
    };
    for (const auto& [size, shared] :
         {Case{0.5, 12}, Case{9, 12}, Case{12, 12}, Case{16.9, 12}, Case{17, 24}, Case{30, 24},
          Case{34, 48}, Case{67.8, 48}, Case{67.9, 96}, Case{96, 96}, Case{2000, 96}}) {
        EXPECT_EQ(FontSet::sharedSize(size), shared) << size;
    }
}

TEST(FontSet, GenericNamesLeadToAFamily) {
    const FontSet fonts(QStringLiteral("Sans Serif"));
    EXPECT_EQ(fonts.family(FontDesign::standard),
              QFontInfo(QFont(QStringLiteral("Sans Serif"))).family());
    EXPECT_TRUE(QFontDatabase::hasFamily(fonts.family(FontDesign::standard)));
}

}  // namespace
}  // namespace kelmar::paint
