#pragma once

#include <QColor>

namespace kelmar::paint {

/// Relative luminance of an sRGB colour as WCAG 2 defines it: 0 for black, 1 for white. Opacity
/// does not count.
[[nodiscard]] double luminance(const QColor& color);

/// Contrast ratio as WCAG 2 defines it, from 1 (alike) to 21 (black on white), of two opaque
/// colours.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

/// `share` of `top` over the rest of `bottom`, component by component; opaque.
[[nodiscard]] QColor mixed(const QColor& bottom, const QColor& top, double share);

/// A colour as it looks over an opaque one.
[[nodiscard]] QColor composited(const QColor& top, const QColor& bottom);

/// The colour, moved no further than needed towards black or white (whichever stands out more
/// from the background) to reach a contrast.
[[nodiscard]] QColor withContrastAtLeast(const QColor& color, const QColor& background,
                                         double ratio);

/// The colour, moved towards black or white or back towards the background until it has a contrast.
[[nodiscard]] QColor withContrastOf(const QColor& color, const QColor& background, double ratio);

}  // namespace kelmar::paint
