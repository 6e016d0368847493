#pragma once

#include <string>
#include <vector>

#include "Kit/View.h"
#include "Layout/LineBreaking.h"
#include "Layout/PlacedBox.h"
#include "Layout/Proposal.h"

namespace kelmar::layout {

/// A text laid out in its own box.
struct ComposedText {
    std::vector<TextLine> lines = {};  ///< At the leading edge, as if read from left to right.
    kit::Font font = {};               ///< Shrunk where the text had to shrink.
    Size size = {};
};

/// The lines of a text before they know their room: the text as it will be shown.
[[nodiscard]] LineBreaking lineBreaking(const kit::Text& text, const TextMeasurer& measurer);

/// Composes a text in the room that it is offered: as many lines as its limit and the height allow,
/// at least one; a single line shrinks before it is cut off.
[[nodiscard]] ComposedText compose(const kit::Text& text, const LineBreaking& breaking,
                                   const Proposal& proposal);

/// The font as it can be computed with, whatever size a view asks for.
[[nodiscard]] kit::Font usable(kit::Font font);

/// How far a line of some width shrinks to fit a room, but not below `minimumScale`.
[[nodiscard]] double scaleToFit(double width, const Length& room, double minimumScale);

/// From the top of a line, as high as unshrunk text wants it, to the baseline of text that is
/// shrunk by `scale`: the middle of the letters stays where it was.
[[nodiscard]] double baselineOfShrunk(double fontSize, double scale);

}  // namespace kelmar::layout
