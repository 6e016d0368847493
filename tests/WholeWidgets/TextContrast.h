#pragma once

#include <string>
#include <vector>

#include "Kit/Timeline.h"
#include "Layout/PlacedBox.h"
#include "Paint/BoxPainter.h"

namespace kelmar::testing {

/// Who has chosen a text's colour: the host, which answers for its contrast, or the rules of the
/// widget, which name it.
enum class ColorChoice { host, named };

/// How a text of a drawn widget stands out from what lies beneath it.
struct TextContrast {
    std::string text;
    double size = 0;  ///< Of the font, in points.
    ColorChoice choice = ColorChoice::host;
    std::string colors = {};  ///< The text's and the background's, where they are nearest.
    double contrast = 0;      ///< As WCAG 2 defines it; the least over all pixels of the text.

    /// What WCAG 2 asks of a text of this size.
    [[nodiscard]] double least() const { return size >= 18 ? 3 : 4.5; }
};

/// Every text of a widget, with the contrast that it really has in a picture of `context`'s style:
/// beneath it lie the card, on the least favourable wallpaper that shines through, and whatever was
/// drawn before the text. A text that the widget makes faint is there twice: in its full colour,
/// and as a named one with what the named opacity leaves of it.
[[nodiscard]] std::vector<TextContrast> textContrasts(const layout::PlacedBoxes& boxes,
                                                      const kit::Color& background,
                                                      const paint::PaintContext& context);

}  // namespace kelmar::testing
