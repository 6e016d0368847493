#include <gtest/gtest.h>
#include <ostream>

#include "Desktop/Preferences.h"

namespace kelmar::desktop {
namespace {

const QString appearance = "org.freedesktop.appearance";
const QString gnome = "org.gnome.desktop.interface";

Preferences with(const QString& settingNamespace, const char* key, const QVariant& value) {
    return *withSetting({}, settingNamespace, key, value);
}

TEST(Preferences, ColourSchemeIsDarkOrLightOrNoPreference) {
    EXPECT_EQ(with(appearance, "color-scheme", 1U).scheme, paint::Scheme::dark);
    EXPECT_EQ(with(appearance, "color-scheme", 2U).scheme, paint::Scheme::light);
    EXPECT_EQ(with(appearance, "color-scheme", 0U).scheme, std::nullopt);
    EXPECT_EQ(with(appearance, "color-scheme", 77U).scheme, std::nullopt);
}

TEST(Preferences, PreferenceThatIsTakenBackIsForgotten) {
    const Preferences dark = with(appearance, "color-scheme", 1U);
    EXPECT_EQ(withSetting(dark, appearance, "color-scheme", 0U)->scheme, std::nullopt);
}

TEST(Preferences, OtherSettingsChangeNothing) {
    const Preferences dark = with(appearance, "color-scheme", 1U);
    EXPECT_EQ(*withSetting(dark, appearance, "contrast", 1U), dark);
    EXPECT_EQ(*withSetting(dark, gnome, "color-scheme", "prefer-light"), dark);
}

TEST(Preferences, MotionIsReducedWhereverTheUserSaysSo) {
    const QString kde = "org.kde.kdeglobals.KDE";
    EXPECT_EQ(Preferences().leastMotion(), Motion::full);
    EXPECT_EQ(with(appearance, "reduced-motion", 0U).leastMotion(), Motion::full);
    EXPECT_EQ(with(appearance, "reduced-motion", 1U).leastMotion(), Motion::reduced);
    EXPECT_EQ(with(gnome, "enable-animations", true).leastMotion(), Motion::full);
    EXPECT_EQ(with(gnome, "enable-animations", false).leastMotion(), Motion::reduced);
    EXPECT_EQ(with(kde, "AnimationDurationFactor", "1").leastMotion(), Motion::full);
    EXPECT_EQ(with(kde, "AnimationDurationFactor", "0").leastMotion(), Motion::reduced);
}

TEST(Preferences, TextsGrowWithTheDesktopsAndNeverShrink) {
    EXPECT_EQ(Preferences().textScale, 1);
    EXPECT_EQ(with(gnome, "text-scaling-factor", 1.25).textScale, 1.25);
    EXPECT_EQ(with(gnome, "text-scaling-factor", 3.0).textScale, 3);
    EXPECT_EQ(with(gnome, "text-scaling-factor", 0.5).textScale, 1);
}

TEST(Preferences, OneWishForStillnessIsEnough) {
    const Preferences still = with(appearance, "reduced-motion", 1U);
    EXPECT_EQ(withSetting(still, gnome, "enable-animations", true)->leastMotion(), Motion::reduced);
    EXPECT_EQ(withSetting(still, appearance, "reduced-motion", 0U)->leastMotion(), Motion::full);
}

struct WrongTypeCase {
    QString settingNamespace;
    const char* key;
    QVariant value;
    const char* reason;
};

void PrintTo(const WrongTypeCase& each, std::ostream* stream) {
    *stream << each.key << " as " << each.value.typeName();
}

class WrongType : public testing::TestWithParam<WrongTypeCase> {};

TEST_P(WrongType, IsRefusedWithWhatCameAndWhatWasExpected) {
    const auto& [settingNamespace, key, value, reason] = GetParam();
    const auto changed = withSetting({}, settingNamespace, key, value);
    ASSERT_FALSE(changed);
    EXPECT_EQ(changed.failure().reason, reason);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongType,
    testing::Values(
        WrongTypeCase{appearance, "color-scheme", "dark",
                      "org.freedesktop.appearance color-scheme is \"dark\" of the type \"s\" "
                      "where a number is expected"},
        WrongTypeCase{appearance, "color-scheme", QString(1'000, 'x'),
                      "org.freedesktop.appearance color-scheme is "
                      "\"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\" of the type \"s\" where a "
                      "number is expected"},
        WrongTypeCase{appearance, "accent-color", 3U,
                      "org.freedesktop.appearance accent-color is \"3\" of the type \"u\" where "
                      "three numbers (ddd) is expected"},
        WrongTypeCase{appearance, "accent-color", QByteArray("blue"),
                      "org.freedesktop.appearance accent-color is of the type \"ay\" "
                      "where three numbers (ddd) is expected"},
        WrongTypeCase{gnome, "enable-animations", 1U,
                      "org.gnome.desktop.interface enable-animations is \"1\" of the type \"u\" "
                      "where true or false (b) is expected"},
        WrongTypeCase{gnome, "text-scaling-factor", QStringList{"1.25"},
                      "org.gnome.desktop.interface text-scaling-factor is of the type \"as\" "
                      "where a number is expected"},
        WrongTypeCase{gnome, "font-name", 11.0,
                      "org.gnome.desktop.interface font-name is \"11\" of the type \"d\" where a "
                      "text (s) is expected"}));

struct FontCase {
    const char* description;
    const char* family;
};

class PangoFont : public testing::TestWithParam<FontCase> {};

TEST_P(PangoFont, GivesItsFamily) {
    EXPECT_EQ(with(gnome, "font-name", GetParam().description).fontFamily, GetParam().family);
}

INSTANTIATE_TEST_SUITE_P(All, PangoFont,
                         testing::Values(FontCase{"Cantarell 11", "Cantarell"},
                                         FontCase{"Noto Sans 10.5", "Noto Sans"},
                                         FontCase{"Ubuntu Bold Italic 11", "Ubuntu"},
                                         FontCase{"DejaVu Sans, Bold 9", "DejaVu Sans"},
                                         FontCase{"Inter", "Inter"},
                                         FontCase{"Medium 10", "Medium"}));

TEST(Preferences, FontMayComeWithItsSizeInPoints) {
    EXPECT_EQ(with(gnome, "font-name", "Noto Sans Bold 10.5").fontSize, 10.5);
    EXPECT_EQ(with("org.kde.kdeglobals.General", "font", "Noto Sans,12,-1,5,50").fontSize, 12);
    for (const char* description : {"Cantarell", "Cantarell 0", "Cantarell -3", ""}) {
        EXPECT_EQ(with(gnome, "font-name", description).fontSize, std::nullopt) << description;
    }
    EXPECT_EQ(with("org.kde.kdeglobals.General", "font", "Noto Sans,-1,16,5").fontSize,
              std::nullopt);
}

TEST(Preferences, FontWithoutAFamilyIsNone) {
    EXPECT_EQ(with(gnome, "font-name", "").fontFamily, std::nullopt);
    EXPECT_EQ(with(gnome, "font-name", "11").fontFamily, std::nullopt);
}

TEST(Preferences, FontMayComeAsQtWritesIt) {
    EXPECT_EQ(with("org.kde.kdeglobals.General", "font", "Noto Sans,10,-1,5,50,0").fontFamily,
              "Noto Sans");
}

}  // namespace
}  // namespace kelmar::desktop
