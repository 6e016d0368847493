#include "Paint/Palette.h"

#include <algorithm>
#include <cmath>

#include "Paint/Contrast.h"

namespace kelmar::paint {
namespace {

using kit::ColorStyle;
using kit::RenderingMode;

/// For a desktop that names no accent.
const QColor defaultAccent(0x3d, 0x6f, 0xd6);

constexpr double tintContrast = 5.9;  // on the card; still above 4.5 on the tint's own soft fill
constexpr double secondaryContrast = 5.2;  // clearly below primary, clearly above the limit
constexpr double primaryContrast = 10;
constexpr double focusContrast = 4.5;
constexpr double fillOpacity = 0.08;

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
    return color;
}

QColor neutralCard(Scheme scheme) {
    return scheme == Scheme::light ? QColor(0xfb, 0xfb, 0xfd) : QColor(0x1e, 0x1f, 0x24);
}

/// A card's edge is drawn over whatever wallpaper lies there: dark on light cards, light on dark.
QColor hairline(Scheme scheme) {
    return scheme == Scheme::light ? withAlpha(Qt::black, 0.09) : withAlpha(Qt::white, 0.11);
}

/// The grey of a fixed colour in vibrant mode: a light colour is lighter than a dark one, and both
/// stay readable on the card.
QColor vibrantShade(Scheme scheme, const QColor& color) {
    const double lightness = std::cbrt(luminance(color));
    const double darkest = scheme == Scheme::light ? 24 : 172;
    const double lightest = scheme == Scheme::light ? 84 : 255;
    const auto grey = static_cast<int>(std::lround(std::lerp(darkest, lightest, lightness)));
    return {grey, grey, grey};
}

}  // namespace

Palette::Palette(const Appearance& appearance)
    : appearance_(appearance), inks_(inksFor(appearance)) {}

Palette::Inks Palette::inksFor(const Appearance& appearance) {
    switch (appearance.renderingMode) {
        case RenderingMode::fullColor:
            return fullColorInks(appearance.scheme);
        case RenderingMode::accented:
            return accentedInks(appearance.scheme,
                                appearance.accent.isValid() ? appearance.accent : defaultAccent);
        case RenderingMode::vibrant:
            return vibrantInks(appearance.scheme);
    }
    return {};
}

Palette::Inks Palette::fullColorInks(Scheme scheme) {
    const bool light = scheme == Scheme::light;
    const QColor primary = light ? QColor(0x1b, 0x1b, 0x21) : QColor(0xf2, 0xf2, 0xf5);
    return {
        .card = neutralCard(scheme),
        .edge = hairline(scheme),
        .primary = primary,
        .secondary = light ? QColor(0x64, 0x65, 0x70) : QColor(0xa3, 0xa5, 0xb0),
        .fill = withAlpha(primary, fillOpacity),
        .red = light ? QColor(0xcf, 0x26, 0x22) : QColor(0xff, 0x76, 0x6b),
        .tint = {},
    };
}

Palette::Inks Palette::accentedInks(Scheme scheme, const QColor& accent) {
    const bool light = scheme == Scheme::light;
    const QColor card = mixed(neutralCard(scheme), accent, light ? 0.07 : 0.10);
    const QColor strong = light ? mixed(accent, Qt::black, 0.45) : mixed(accent, Qt::white, 0.65);
    const QColor soft = mixed(accent, QColor(0x80, 0x82, 0x8e), 0.5);
    const QColor primary = withContrastAtLeast(strong, card, primaryContrast);
    return {
        .card = card,
        .edge = hairline(scheme),
        .primary = primary,
        .secondary = withContrastOf(soft, card, secondaryContrast),
        .fill = withAlpha(primary, fillOpacity),
        .red = primary,
        .tint = withContrastAtLeast(accent, card, tintContrast),
    };
}

Palette::Inks Palette::vibrantInks(Scheme scheme) {
    const bool light = scheme == Scheme::light;
    const QColor primary = light ? QColor(0x12, 0x12, 0x14) : QColor(0xff, 0xff, 0xff);
    return {
        .card = withAlpha(light ? QColor(0xf4, 0xf4, 0xf6) : QColor(0x2b, 0x2c, 0x30), 0.92),
        .edge = light ? withAlpha(Qt::white, 0.5) : withAlpha(Qt::white, 0.16),
        .primary = primary,
        .secondary = light ? QColor(0x54, 0x54, 0x58) : QColor(0xbc, 0xbc, 0xc0),
        .fill = withAlpha(primary, fillOpacity),
        .red = primary,
        .tint = {},
    };
}

QColor Palette::color(const kit::Color& color) const {
    const QColor base = color.style() ? styled(*color.style()) : fixed(color);
    return withAlpha(base, base.alphaF() * color.opacity());
}

QColor Palette::background(const kit::Color& color) const {
    const bool tinted = appearance_.renderingMode != RenderingMode::fullColor;
    if (tinted || color.style() == ColorStyle::tertiaryFill) {
        return inks_.card;
    }
    return composited(this->color(color), inks_.card);
}

QColor Palette::focus(const QColor& card) const {
    if (appearance_.renderingMode == RenderingMode::vibrant) {
        return inks_.primary;
    }
    const QColor& accent = appearance_.accent.isValid() ? appearance_.accent : defaultAccent;
    return withContrastAtLeast(accent, card, focusContrast);
}

QColor Palette::styled(ColorStyle style) const {
    switch (style) {
        case ColorStyle::primary:
            return inks_.primary;
        case ColorStyle::secondary:
            return inks_.secondary;
        case ColorStyle::tertiaryFill:
            return inks_.fill;
        case ColorStyle::white:
            return appearance_.renderingMode == RenderingMode::fullColor ? QColor(Qt::white)
                                                                         : inks_.primary;
        case ColorStyle::red:
            return inks_.red;
        case ColorStyle::clear:
            return Qt::transparent;
    }
    return {};
}

QColor Palette::fixed(const kit::Color& color) const {
    const auto component = [](double value) {
        return static_cast<float>(std::clamp(value, 0., 1.));
    };
    const QColor named =
        QColor::fromRgbF(component(color.red()), component(color.green()), component(color.blue()));
    switch (appearance_.renderingMode) {
        case RenderingMode::fullColor:
            return named;
        case RenderingMode::accented:
            return inks_.tint;
        case RenderingMode::vibrant:
            return vibrantShade(appearance_.scheme, named);
    }
    return named;
}

}  // namespace kelmar::paint
