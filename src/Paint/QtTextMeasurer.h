#pragma once

#include <QCache>
#include <QFont>
#include <QString>
#include <future>
#include <string_view>
#include <vector>

#include "Kit/Font.h"
#include "Layout/TextMeasurer.h"
#include "Paint/FontSet.h"

namespace kelmar::paint {

/// A stretch of a line that is drawn as one, with its place on the line in points.
struct TextPiece {
    QString text;
    double x = 0;      ///< Where drawing begins, from the line's left edge.
    double width = 0;  ///< How much of the line it takes; the drawing of a digit may be narrower.
};

/// Widths of text in the system's fonts. They come from the fonts' design, scaled to the size from
/// the nearest of a few (FontSet::sharedSize), so a layout is the same at every scale of the
/// screen.
class QtTextMeasurer final : public layout::TextMeasurer {
public:
    explicit QtTextMeasurer(const FontSet& fonts);
    /// Fonts that are still being looked for: they are waited for when there is text to measure.
    explicit QtTextMeasurer(std::shared_future<FontSet> fonts);

    [[nodiscard]] double width(std::string_view text, const kit::Font& font) const override;

    /// The line as it is to be drawn. One piece, except that monospaced digits stand each in the
    /// middle of a cell: as wide as a zero, or as the broadest digit's ink where that is more. Text
    /// that runs from right to left stays in one piece because pieces side by side would lose its
    /// order.
    [[nodiscard]] std::vector<TextPiece> pieces(const QString& text, const kit::Font& font) const;

    [[nodiscard]] const FontSet& fonts() const { return fonts_.get(); }

private:
    [[nodiscard]] double widthPerPoint(const QString& text, const kit::Font& font) const;
    [[nodiscard]] double digitCell(QChar digit, const kit::Font& font) const;
    template <class Measure>
    [[nodiscard]] double cached(const QString& key, Measure measure) const;

    std::shared_future<FontSet> fonts_;
    /// Widths for a size of 1 by font and text; the least used are forgotten.
    mutable QCache<QString, double> widths_;
};

}  // namespace kelmar::paint
