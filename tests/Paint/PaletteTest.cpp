#include <array>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "Paint/Contrast.h"
#include "Paint/Palette.h"

namespace kelmar::paint {
namespace {

using kit::RenderingMode;

constexpr double readable = 4.5;
constexpr std::array schemes{Scheme::light, Scheme::dark};
const kit::Color indigo = kit::Color::rgb(0.31, 0.275, 0.898);
const kit::Color orange = kit::Color::rgb(0.976, 0.451, 0.086);

struct NamedAccent {
    const char* name;
    QColor color;
};
const std::array accents{
    NamedAccent{"none", QColor()},
    NamedAccent{"black", Qt::black},
    NamedAccent{"white", Qt::white},
    NamedAccent{"yellow", QColor(0xf6, 0xd3, 0x2d)},
    NamedAccent{"blue", QColor(0, 0, 0xff)},
    NamedAccent{"grey", QColor(0x80, 0x80, 0x80)},
    NamedAccent{"pink", QColor(0xd5, 0x61, 0x99)},
};

std::vector<Appearance> allAppearances() {
    std::vector<Appearance> all;
    for (const Scheme scheme : schemes) {
        for (const RenderingMode mode : kit::renderingModes) {
            for (const NamedAccent& accent : accents) {
                all.push_back({scheme, mode, accent.color});
            }
        }
    }
    return all;
}

std::string described(const Appearance& appearance) {
    return std::string(appearance.scheme == Scheme::light ? "light " : "dark ") +
           std::string(kit::nameOf(appearance.renderingMode)) + " accent " +
           appearance.accent.name().toStdString();
}

/// The least contrast a colour has on the card, whatever shines through it.
double contrastOnCard(const Palette& palette, const kit::Color& color) {
    const QColor card = palette.background(kit::tertiaryFill);
    const QColor ink = palette.color(color);
    return std::min(contrast(ink, composited(card, Qt::black)),
                    contrast(ink, composited(card, Qt::white)));
}

TEST(Palette, PrimaryAndSecondaryAreReadableInEveryAppearance) {
    for (const Appearance& appearance : allAppearances()) {
        SCOPED_TRACE(described(appearance));
        const Palette palette(appearance);
        EXPECT_GE(contrastOnCard(palette, kit::primary), 7);
        EXPECT_GE(contrastOnCard(palette, kit::secondary), readable);
        EXPECT_GE(contrastOnCard(palette, kit::red), readable);
    }
}

TEST(Palette, SecondaryIsVisiblySofterThanPrimary) {
    for (const Appearance& appearance : allAppearances()) {
        SCOPED_TRACE(described(appearance));
        const Palette palette(appearance);
        EXPECT_GE(contrastOnCard(palette, kit::primary),
                  1.5 * contrastOnCard(palette, kit::secondary));
    }
}

RC_GTEST_PROP(Palette, EveryAccentStaysReadable, ()) {
    const QColor accent(*rc::gen::inRange(0, 256), *rc::gen::inRange(0, 256),
                        *rc::gen::inRange(0, 256));
    const Palette palette({*rc::gen::elementOf(schemes), RenderingMode::accented, accent});
    RC_ASSERT(contrastOnCard(palette, kit::primary) >= readable);
    RC_ASSERT(contrastOnCard(palette, kit::secondary) >= readable);
    RC_ASSERT(contrastOnCard(palette, indigo) >= readable);
}

TEST(Palette, TintedModesKeepAButtonsLabelReadableOnItsSoftFill) {
    for (const Appearance& appearance : allAppearances()) {
        if (appearance.renderingMode == RenderingMode::fullColor) {
            continue;
        }
        SCOPED_TRACE(described(appearance));
        const Palette palette(appearance);
        const QColor card = composited(palette.background(kit::tertiaryFill), Qt::gray);
        const QColor button = composited(palette.color(indigo.withOpacity(0.15)), card);
        EXPECT_GE(contrast(palette.color(indigo), button), 4.5);
    }
}

RC_GTEST_PROP(Palette, EveryFixedColourStaysReadableInVibrantMode, ()) {
    const auto component = [] { return *rc::gen::inRange(0, 256) / 255.0; };
    const Palette palette({*rc::gen::elementOf(schemes), RenderingMode::vibrant, QColor()});
    const kit::Color color = kit::Color::rgb(component(), component(), component());
    RC_ASSERT(contrastOnCard(palette, color) >= readable);
}

TEST(Palette, FullColourKeepsFixedColoursAsNamed) {
    for (const Scheme scheme : schemes) {
        const Palette palette({scheme, RenderingMode::fullColor, QColor(Qt::red)});
        EXPECT_EQ(palette.color(indigo).rgba(), QColor::fromRgbF(0.31F, 0.275F, 0.898F).rgba());
        EXPECT_EQ(palette.color(kit::white).rgba(), QColor(Qt::white).rgba());
    }
}

TEST(Palette, AccentedModeGivesEveryFixedColourTheAccent) {
    const QColor accent(0x1f, 0x4f, 0x98);
    const Palette palette({Scheme::light, RenderingMode::accented, accent});
    EXPECT_EQ(palette.color(indigo).rgba(), accent.rgba());
    EXPECT_EQ(palette.color(orange).rgba(), accent.rgba());
}

TEST(Palette, VibrantModeKnowsNoHue) {
    for (const Scheme scheme : schemes) {
        const Palette palette({scheme, RenderingMode::vibrant, QColor(Qt::red)});
        for (const kit::Color& color : {indigo, orange, kit::red, kit::white, kit::primary}) {
            EXPECT_LE(palette.color(color).hslSaturation(), 20);
        }
    }
}

TEST(Palette, VibrantModeKeepsLightColoursLighterThanDarkOnes) {
    for (const Scheme scheme : schemes) {
        const Palette palette({scheme, RenderingMode::vibrant, QColor()});
        EXPECT_LT(palette.color(indigo).red(), palette.color(orange).red());
    }
}

TEST(Palette, TintedModesMakeWhiteAndRedPrimary) {
    for (const Appearance& appearance : allAppearances()) {
        if (appearance.renderingMode == RenderingMode::fullColor) {
            continue;
        }
        SCOPED_TRACE(described(appearance));
        const Palette palette(appearance);
        EXPECT_EQ(palette.color(kit::white), palette.color(kit::primary));
        EXPECT_EQ(palette.color(kit::red), palette.color(kit::primary));
    }
}

TEST(Palette, OpacityIsKeptInEveryAppearance) {
    for (const Appearance& appearance : allAppearances()) {
        SCOPED_TRACE(described(appearance));
        const Palette palette(appearance);
        EXPECT_NEAR(palette.color(indigo.withOpacity(0.14)).alphaF(), 0.14, 0.01);
        EXPECT_NEAR(palette.color(kit::secondary.withOpacity(0.25)).alphaF(), 0.25, 0.01);
        EXPECT_EQ(palette.color(kit::clear).alpha(), 0);
    }
}

TEST(Palette, BackgroundTakesAFixedColourInFullColourOnly) {
    const QColor named = QColor::fromRgbF(0.976F, 0.451F, 0.086F);
    const Palette full({Scheme::dark, RenderingMode::fullColor, QColor()});
    EXPECT_EQ(full.background(orange).rgba(), named.rgba());
    const Palette vibrant({Scheme::dark, RenderingMode::vibrant, QColor()});
    EXPECT_EQ(vibrant.background(orange), vibrant.background(kit::tertiaryFill));
}

TEST(Palette, CardsAreOpaqueOrNearlySo) {
    for (const Appearance& appearance : allAppearances()) {
        SCOPED_TRACE(described(appearance));
        const int alpha = Palette(appearance).background(kit::tertiaryFill).alpha();
        EXPECT_GE(alpha, appearance.renderingMode == RenderingMode::vibrant ? 230 : 255);
    }
}

TEST(Palette, TertiaryFillInsideTheContentIsASubtleTint) {
    for (const Appearance& appearance : allAppearances()) {
        SCOPED_TRACE(described(appearance));
        const Palette palette(appearance);
        const QColor card = composited(palette.background(kit::tertiaryFill), Qt::black);
        const QColor filled = composited(palette.color(kit::tertiaryFill), card);
        EXPECT_GT(contrast(filled, card), 1.05);
        EXPECT_LT(contrast(filled, card), 1.5);
    }
}

}  // namespace
}  // namespace kelmar::paint
