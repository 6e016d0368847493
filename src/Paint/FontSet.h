#pragma once

#include <QFont>
#include <QString>
#include <vector>

#include "Kit/Font.h"

namespace kelmar::paint {

/// A font as texts are set in it. Glyphs are not hinted, which keeps widths proportional to the
/// size.
[[nodiscard]] QFont textFont(const QString& family, QFont::Weight weight, int pixelSize);

/// The font families behind the fonts that widgets name. A family that is not installed, or that
/// cannot write plain letters and digits, is replaced by one that is there and can, so that a
/// widget never loses its texts to the user's font settings.
class FontSet {
public:
    /// Families by name, rounded texts in Quicksand where it is installed. An empty or unusable
    /// rounded family means the user interface family.
    explicit FontSet(const QString& uiFamily,
                     const QString& roundedFamily = defaultRoundedFamily());

    /// The family that is really used for a design.
    [[nodiscard]] const QString& family(kit::FontDesign design) const { return of(design).name; }

    /// A font of a whole number of pixels: Qt rounds other sizes, so whoever draws or measures at
    /// another size scales by itself.
    [[nodiscard]] QFont font(const kit::Font& font, int pixelSize) const;

    /// The size, in pixels, of the font that texts of a size are measured and drawn with, by
    /// scaling: one of a few, less than half an octave away. To make a font ready costs Qt and
    /// Fontconfig more than all that a widget draws with it; an octave's texts share one.
    [[nodiscard]] static int sharedSize(double size);

    [[nodiscard]] static QString defaultRoundedFamily();

    friend bool operator==(const FontSet&, const FontSet&) = default;

private:
    struct Family {
        explicit Family(const QString& family);

        friend bool operator==(const Family&, const Family&) = default;

        QString name;
        std::vector<int> weights;  ///< Those that it has upright.
    };

    [[nodiscard]] const Family& of(kit::FontDesign design) const;

    Family ui_;
    Family rounded_;
};

}  // namespace kelmar::paint
