#pragma once

#include <string>

#include "Kit/View.h"
#include "Layout/Layout.h"
#include "Layout/Measuring.h"
#include "tests/Support/DumpBoxes.h"
#include "tests/Support/FixedWidthMeasurer.h"

/// Short words for views and layouts in tests. Text is set at 10 points: with the measurer of fixed
/// widths a character is 5 wide and a line 12 high.
namespace kelmar::layout::laying {

inline kit::Text words(std::string text) {
    return {.text = std::move(text), .font = kit::Font::system(10)};
}
inline kit::Text oneLine(std::string text, double minimumScale = 1) {
    return {.text = std::move(text),
            .font = kit::Font::system(10),
            .lineLimit = 1,
            .minimumScale = minimumScale};
}
inline kit::Shape rectangle() {
    return {.shape = kit::ShapeKind::rectangle, .fill = kit::primary};
}
/// A rectangle of a size of its own.
inline kit::View block(double width, double height) {
    return kit::Frame{.lengths = {.width = width, .height = height}, .child = rectangle()};
}
inline kit::View filling(kit::View child, kit::Alignment alignment = {}) {
    return kit::Frame{.lengths = {.maxWidth = kit::infinity, .maxHeight = kit::infinity},
                      .alignment = alignment,
                      .child = std::move(child)};
}

inline PlacedBoxes laidOut(const kit::View& view, Size area,
                           Direction direction = Direction::leftToRight) {
    return layOut(view, area, testing::FixedWidthMeasurer(), direction);
}
inline std::string dump(const kit::View& view, Size area,
                        Direction direction = Direction::leftToRight) {
    return testing::dumpBoxes(laidOut(view, area, direction));
}

/// The rectangle of the view's only box.
inline Rect rectOf(const kit::View& view, Size area) {
    return laidOut(view, area).at(0).rect;
}

inline Proposal proposal(Length width, Length height) {
    return {width, height};
}
inline Size sizeOf(const kit::View& view, const Proposal& proposal) {
    const testing::FixedWidthMeasurer measurer;
    return Measuring(measurer).measure(view, proposal, Precision::exact).size;
}
inline Size sizeOf(const kit::View& view, Size offer) {
    return sizeOf(view, Proposal::exactly(offer));
}

}  // namespace kelmar::layout::laying

namespace kelmar::layout {

inline void PrintTo(const Rect& rect, std::ostream* out) {
    *out << testing::dumped(rect);
}

}  // namespace kelmar::layout

namespace kelmar::kit {

inline void PrintTo(const Size& size, std::ostream* out) {
    *out << testing::dumped(size.width) << 'x' << testing::dumped(size.height);
}

}  // namespace kelmar::kit
