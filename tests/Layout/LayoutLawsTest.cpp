#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/Layout/AnyView.h"
#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;
using anyview::Lengths;

bool isSound(const Rect& rect) {
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.right()) &&
           std::isfinite(rect.bottom()) && rect.width >= 0 && rect.height >= 0;
}

bool isSound(const PlacedBox& box) {
    const bool drawsSoundly = std::visit(
        kit::Match{[](const TextDrawing& text) {
                       return std::isfinite(text.font.size) &&
                              std::ranges::all_of(text.lines, [](const TextLine& line) {
                                  return std::isfinite(line.x) && std::isfinite(line.baseline) &&
                                         std::isfinite(line.width) && line.width >= 0;
                              });
                   },
                   [](const CountdownDrawing& countdown) {
                       return std::isfinite(countdown.font.size) &&
                              std::isfinite(countdown.baseline);
                   },
                   [](const auto&) { return true; }},
        box.drawing);
    return drawsSoundly && isSound(box.rect) && box.opacity >= 0 && box.opacity <= 1;
}

RC_GTEST_PROP(LayoutLaws, NoLengthIsNegativeOrNotANumberHoweverHostileTheTree, ()) {
    const kit::View view = anyview::tree(Lengths::hostile, 4);
    const Size area{anyview::length(Lengths::hostile), anyview::length(Lengths::hostile)};
    for (const PlacedBox& box : laidOut(view, area)) {
        RC_ASSERT(isSound(box));
    }
}

RC_GTEST_PROP(LayoutLaws, MeasuringIsSoundForEveryProposal, ()) {
    const kit::View view = anyview::tree(Lengths::hostile, 4);
    const auto anyLength = [] {
        const auto points = Length::definite(anyview::length(Lengths::hostile));
        return *rc::gen::element(points, Length::unspecified(), Length::infinite());
    };
    const Proposal offer{anyLength(), anyLength()};
    const testing::FixedWidthMeasurer measurer;
    for (const Precision precision : {Precision::exact, Precision::estimate}) {
        const Measurement measured = Measuring(measurer).measure(view, offer, precision);
        RC_ASSERT(measured.size.width >= 0);
        RC_ASSERT(measured.size.height >= 0);
        RC_ASSERT(!measured.firstBaseline || !std::isnan(*measured.firstBaseline));
        RC_ASSERT(offer.width.kind() == Length::Kind::infinite ||
                  std::isfinite(measured.size.width));
        RC_ASSERT(offer.height.kind() == Length::Kind::infinite ||
                  std::isfinite(measured.size.height));
    }
}

/// The tree's own children, as its stack has arranged them.
std::vector<Rect> arrangedChildren(const kit::View& stack, Size area) {
    const testing::FixedWidthMeasurer measurer;
    Measuring measuring(measurer);
    std::vector<Rect> rects;
    const Arrangement arrangement =
        measuring.arrange(stack, Proposal::exactly(area), Precision::exact);
    for (const ArrangedChild& child : arrangement.children) {
        rects.push_back({child.origin.x, child.origin.y, child.measured.size.width,
                         child.measured.size.height});
    }
    return rects;
}

Size anyArea() {
    return {double(*rc::gen::inRange(0, 400)), double(*rc::gen::inRange(0, 400))};
}

RC_GTEST_PROP(LayoutLaws, ChildrenOfARowStandOneAfterTheOther, ()) {
    const kit::View row =
        kit::HStack{.spacing = 3, .children = anyview::children(Lengths::sane, 2)};
    const std::vector<Rect> rects = arrangedChildren(row, anyArea());
    for (std::size_t index = 1; index < rects.size(); ++index) {
        RC_ASSERT(std::abs(rects[index].x - (rects[index - 1].right() + 3)) < 1e-9);
    }
}

RC_GTEST_PROP(LayoutLaws, ChildrenOfAColumnStandOneBelowTheOther, ()) {
    const kit::View column =
        kit::VStack{.spacing = 3, .children = anyview::children(Lengths::sane, 2)};
    const std::vector<Rect> rects = arrangedChildren(column, anyArea());
    for (std::size_t index = 1; index < rects.size(); ++index) {
        RC_ASSERT(std::abs(rects[index].y - (rects[index - 1].bottom() + 3)) < 1e-9);
    }
}

RC_GTEST_PROP(LayoutLaws, ReadingFromRightToLeftIsTheMirrorImage, ()) {
    const kit::View view = anyview::tree(Lengths::sane, 4);
    const Size area = anyArea();
    const PlacedBoxes forth = laidOut(view, area, Direction::leftToRight);
    const PlacedBoxes back = laidOut(view, area, Direction::rightToLeft);
    RC_ASSERT(forth.size() == back.size());
    for (std::size_t index = 0; index < forth.size(); ++index) {
        const Rect& there = forth[index].rect;
        const Rect& here = back[index].rect;
        RC_ASSERT(std::abs(here.x - (area.width - there.right())) < 1e-9);
        RC_ASSERT(std::tuple(here.y, here.width, here.height) ==
                  std::tuple(there.y, there.width, there.height));
        RC_ASSERT(forth[index].label == back[index].label);
    }
}

RC_GTEST_PROP(LayoutLaws, LinesOfTextLieAtTheLeadingEdgeOfTheirBox, ()) {
    const kit::View view = anyview::tree(Lengths::sane, 4);
    const Direction direction = *rc::gen::element(Direction::leftToRight, Direction::rightToLeft);
    for (const PlacedBox& box : laidOut(view, anyArea(), direction)) {
        if (const auto* const text = std::get_if<TextDrawing>(&box.drawing)) {
            for (const TextLine& line : text->lines) {
                const double edge = direction == Direction::leftToRight
                                        ? line.x
                                        : box.rect.width - line.x - line.width;
                RC_ASSERT(std::abs(edge) < 1e-9);
                RC_ASSERT(line.width <= box.rect.width + 1e-9);
                RC_ASSERT(line.baseline <= box.rect.height + 1e-9);
            }
        }
    }
}

RC_GTEST_PROP(LayoutLaws, ContainersComeBeforeWhatLiesInThem, ()) {
    const PlacedBoxes boxes = laidOut(anyview::tree(Lengths::sane, 5), anyArea());
    for (std::size_t index = 0; index < boxes.size(); ++index) {
        if (const auto container = boxes[index].container) {
            RC_ASSERT(*container < index);
            RC_ASSERT(!std::holds_alternative<std::monostate>(boxes[*container].action));
        }
    }
}

}  // namespace
}  // namespace kelmar::layout
