#pragma once

#include <QColor>

#include "Kit/Color.h"
#include "Paint/Appearance.h"

namespace kelmar::paint {

/// The one place that turns the colours a widget names into pixels' colours.
///
/// Full colour: fixed colours stay as named; styles follow the scheme.
/// Accented: fixed colours become the desktop's accent, made readable on the card; `primary` is a
/// stronger, `secondary` a softer text of the accent's hue.
/// Vibrant: everything is a shade of one neutral; a fixed colour keeps only how light it is.
/// In both tinted modes `white` and `red` have nothing left to say and are `primary`.
///
/// On the card, `primary` and `secondary` (and in tinted modes fixed colours) have a contrast of
/// at least 4.5 in every appearance.
class Palette {
public:
    explicit Palette(const Appearance& appearance);

    /// A colour in a widget's content; its opacity is the one named.
    [[nodiscard]] QColor color(const kit::Color& color) const;

    /// The card for a background that a widget asks for: the neutral card for `tertiaryFill`, else
    /// the colour over the neutral card. Opaque except in vibrant mode, where a little of what is
    /// behind shines through.
    [[nodiscard]] QColor background(const kit::Color& color) const;

    /// For marking what has the keyboard: the accent, made to stand out from this card.
    [[nodiscard]] QColor focus(const QColor& card) const;

    /// The hairline round the card.
    [[nodiscard]] QColor edge() const { return inks_.edge; }

private:
    struct Inks {
        QColor card;
        QColor edge;
        QColor primary;
        QColor secondary;
        QColor fill;  ///< `tertiaryFill` inside the content.
        QColor red;
        QColor tint;  ///< Fixed colours in accented mode.
    };

    [[nodiscard]] static Inks fullColorInks(Scheme scheme);
    [[nodiscard]] static Inks accentedInks(Scheme scheme, const QColor& accent);
    [[nodiscard]] static Inks vibrantInks(Scheme scheme);
    [[nodiscard]] static Inks inksFor(const Appearance& appearance);

    [[nodiscard]] QColor styled(kit::ColorStyle style) const;
    [[nodiscard]] QColor fixed(const kit::Color& color) const;

    Appearance appearance_;
    Inks inks_;
};

}  // namespace kelmar::paint
