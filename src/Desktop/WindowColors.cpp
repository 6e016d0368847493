#include "Desktop/WindowColors.h"

#include "Paint/Contrast.h"
#include "Paint/Palette.h"

namespace kelmar::desktop {

namespace {

/// Behind cards, which are a little lighter in both schemes.
QColor backdrop(paint::Scheme scheme) {
    return scheme == paint::Scheme::light ? QColor(0xee, 0xef, 0xf3) : QColor(0x13, 0x14, 0x17);
}

QColor half(QColor color) {
    color.setAlphaF(color.alphaF() / 2);
    return color;
}

}  // namespace

QPalette windowColors(const paint::Appearance& appearance) {
    const paint::Palette plain({.scheme = appearance.scheme,
                                .renderingMode = kit::RenderingMode::fullColor,
                                .accent = appearance.accent});
    const paint::Palette tinted({.scheme = appearance.scheme,
                                 .renderingMode = kit::RenderingMode::accented,
                                 .accent = appearance.accent});
    const QColor text = plain.color(kit::primary);
    const QColor card = plain.background(kit::tertiaryFill);
    const QColor window = backdrop(appearance.scheme);
    // Every fixed colour becomes the accent there.
    const QColor accent = tinted.color(kit::Color::rgb(0, 0, 1));
    const QColor button = paint::mixed(window, text, 0.12);
    QPalette colors(text, button, button.lighter(), button.darker(), half(text), text, text, card,
                    window);
    colors.setColor(QPalette::PlaceholderText, plain.color(kit::secondary));
    colors.setColor(QPalette::Highlight, accent);
    colors.setColor(QPalette::HighlightedText, card);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(QPalette::Disabled, role, half(text));
    }
    return colors;
}

QPalette menuColors(const paint::Appearance& appearance) {
    QPalette colors = windowColors(appearance);
    // The style draws frames and boxes darker than the window: in the dark, black on black.
    const double share = appearance.scheme == paint::Scheme::dark ? 0.55 : 0.28;
    colors.setColor(QPalette::Window, paint::mixed(colors.color(QPalette::Base),
                                                   colors.color(QPalette::Text), share));
    return colors;
}

Qt::LayoutDirection qtDirection(layout::Direction direction) {
    return direction == layout::Direction::rightToLeft ? Qt::RightToLeft : Qt::LeftToRight;
}

}  // namespace kelmar::desktop
