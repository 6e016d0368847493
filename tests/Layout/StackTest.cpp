#include <gtest/gtest.h>

#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;
using kit::HorizontalAlignment;
using kit::VerticalAlignment;

std::vector<Rect> rects(const kit::View& view, Size area) {
    std::vector<Rect> result;
    for (const PlacedBox& box : laidOut(view, area)) {
        result.push_back(box.rect);
    }
    return result;
}
using Rects = std::vector<Rect>;

TEST(Stack, EmptyStackTakesNothing) {
    EXPECT_EQ(sizeOf(kit::HStack{.spacing = 8, .children = {}}, {100, 100}), (Size{0, 0}));
    EXPECT_EQ(sizeOf(kit::VStack{.spacing = 8, .children = {}}, {100, 100}), (Size{0, 0}));
    EXPECT_EQ(sizeOf(kit::ZStack{}, {100, 100}), (Size{0, 0}));
}

TEST(Stack, RowIsAsLongAsItsChildrenWithTheSpacingBetween) {
    const kit::View row = kit::HStack{.spacing = 4, .children = {block(10, 20), block(30, 10)}};
    EXPECT_EQ(sizeOf(row, {100, 100}), (Size{44, 20}));
    EXPECT_EQ(rects(row, {44, 20}), (Rects{{0, 0, 10, 20}, {14, 5, 30, 10}}));
}

TEST(Stack, ColumnIsTheSameDownwards) {
    const kit::View column = kit::VStack{.spacing = 4, .children = {block(20, 10), block(10, 30)}};
    EXPECT_EQ(sizeOf(column, {100, 100}), (Size{20, 44}));
    EXPECT_EQ(rects(column, {20, 44}), (Rects{{0, 0, 20, 10}, {5, 14, 10, 30}}));
}

TEST(Stack, RowAlignsItsChildren) {
    const auto row = [](VerticalAlignment alignment) {
        return rects(kit::HStack{.alignment = alignment, .children = {block(5, 20), block(5, 8)}},
                     {10, 20})[1];
    };
    EXPECT_EQ(row(VerticalAlignment::top), (Rect{5, 0, 5, 8}));
    EXPECT_EQ(row(VerticalAlignment::center), (Rect{5, 6, 5, 8}));
    EXPECT_EQ(row(VerticalAlignment::bottom), (Rect{5, 12, 5, 8}));
}

TEST(Stack, ColumnAlignsItsChildren) {
    const auto column = [](HorizontalAlignment alignment) {
        return rects(kit::VStack{.alignment = alignment, .children = {block(20, 5), block(8, 5)}},
                     {20, 10})[1];
    };
    EXPECT_EQ(column(HorizontalAlignment::leading), (Rect{0, 5, 8, 5}));
    EXPECT_EQ(column(HorizontalAlignment::center), (Rect{6, 5, 8, 5}));
    EXPECT_EQ(column(HorizontalAlignment::trailing), (Rect{12, 5, 8, 5}));
}

TEST(Stack, SpacerPushesItsNeighboursApart) {
    const kit::View row =
        kit::HStack{.spacing = 6, .children = {block(10, 10), kit::Spacer{}, block(20, 10)}};
    EXPECT_EQ(rects(row, {100, 10}), (Rects{{0, 0, 10, 10}, {80, 0, 20, 10}}));
}

TEST(Stack, SpacingStandsOnBothSidesOfASpacerThatHasNothing) {
    const kit::View row =
        kit::HStack{.spacing = 6, .children = {block(10, 10), kit::Spacer{}, block(20, 10)}};
    EXPECT_EQ(rects(row, {42, 10}), (Rects{{0, 0, 10, 10}, {22, 0, 20, 10}}));
}

TEST(Stack, SpacerHasItsMinimumWhereNothingIsSpecified) {
    const kit::View row =
        kit::HStack{.children = {block(10, 10), kit::Spacer{.minLength = 7}, block(20, 10)}};
    EXPECT_EQ(sizeOf(row, Proposal{}), (Size{37, 10}));
}

TEST(Stack, SpacerTakesNoHeightInARowAndNoWidthInAColumn) {
    EXPECT_EQ(sizeOf(kit::HStack{.children = {kit::Spacer{}, block(5, 5)}}, {50, 50}),
              (Size{50, 5}));
    EXPECT_EQ(sizeOf(kit::VStack{.children = {kit::Spacer{}, block(5, 5)}}, {50, 50}),
              (Size{5, 50}));
}

TEST(Stack, TextGivesWayBeforeARigidNeighbour) {
    const kit::View row =
        kit::HStack{.spacing = 5, .children = {block(20, 10), oneLine("0123456789")}};
    EXPECT_EQ(dump(row, {60, 12}),
              "0,1 20x10 shape rectangle fill primary\n"
              "25,0 35x12 text 10 regular primary \"012345…\"@0,9.6 label \"0123456789\"\n");
}

TEST(Stack, ShortTextKeepsItsWidthBesideALongOne) {
    const kit::View row =
        kit::HStack{.spacing = 5, .children = {oneLine("a very long title"), oneLine("9:05")}};
    const PlacedBoxes boxes = laidOut(row, {60, 12});
    EXPECT_EQ(boxes[0].rect, (Rect{0, 0, 35, 12}));
    EXPECT_EQ(boxes[1].rect, (Rect{40, 0, 20, 12}));
}

/// A heading, a spacer and a picture, from too narrow to more than wide enough.
TEST(Stack, SweepLetsTheTextGiveWayThenTheSpacerGrow) {
    const kit::View row = kit::HStack{
        .spacing = 2, .children = {oneLine("0123456789"), kit::Spacer{}, block(12, 12)}};
    for (int width = 16; width <= 120; ++width) {
        const PlacedBoxes boxes = laidOut(row, {double(width), 12});
        const int characters = std::min(10, (width - 16) / 5);
        EXPECT_EQ(boxes[0].rect, (Rect{0, 0, 5.0 * characters, 12})) << "at " << width;
        EXPECT_EQ(boxes[1].rect, (Rect{width - 12.0, 0, 12, 12})) << "at " << width;
    }
}

TEST(Stack, NarrowRowStandsOutOnBothSidesOfItsArea) {
    EXPECT_EQ(rects(kit::HStack{.children = {block(30, 10), block(30, 10)}}, {40, 10}),
              (Rects{{-10, 0, 30, 10}, {20, 0, 30, 10}}));
}

TEST(Stack, NestedStacksShareTheRoomThatIsLeft) {
    const kit::View tree = kit::HStack{
        .spacing = 10,
        .children = {kit::VStack{.children = {rectangle(), rectangle()}}, block(20, 40)}};
    EXPECT_EQ(rects(tree, {100, 40}), (Rects{{0, 0, 70, 20}, {0, 20, 70, 20}, {80, 0, 20, 40}}));
}

TEST(Stack, WrappedTextTakesTheHeightItsWidthDemandsBeforeAFillingNeighbour) {
    const kit::View column = kit::VStack{.alignment = HorizontalAlignment::leading,
                                         .children = {words("one two three"), rectangle()}};
    EXPECT_EQ(rects(column, {40, 60}), (Rects{{0, 0, 35, 24}, {0, 24, 40, 36}}));
}

TEST(Stack, ShortTextKeepsItsLineAboveOneThatMustBeCut) {
    const kit::View column =
        kit::VStack{.alignment = HorizontalAlignment::leading,
                    .children = {words("one two three four five"), words("six")}};
    EXPECT_EQ(rects(column, {25, 48}), (Rects{{0, 0, 25, 36}, {0, 36, 15, 12}}));
}

TEST(Stack, BaselinesOfDifferentFontsStandOnOneLine) {
    kit::Text large = words("25");
    large.font.size = 30;
    const kit::View row = kit::HStack{.alignment = VerticalAlignment::firstTextBaseline,
                                      .children = {std::move(large), words("days"), block(5, 20)}};
    // The large line is 36 high with its baseline at 28.8; the small one's is at 9.6 of 12; a view
    // without text stands on its bottom.
    EXPECT_EQ(dump(row, {55, 36}),
              "0,0 30x36 text 30 regular primary \"25\"@0,28.8\n"
              "30,19.2 20x12 text 10 regular primary \"days\"@0,9.6\n"
              "50,8.8 5x20 shape rectangle fill primary\n");
}

TEST(Stack, BaselineRowIsHigherThanItsHighestChildWhereTextsHangLower) {
    const kit::View row = kit::HStack{.alignment = VerticalAlignment::firstTextBaseline,
                                      .children = {block(5, 20), words("one\ntwo")}};
    EXPECT_EQ(sizeOf(row, {100, 100}), (Size{20, 34.4}));
}

TEST(Stack, BaselineReachesThroughModifiersAndStacks) {
    const kit::View row = kit::HStack{
        .alignment = VerticalAlignment::firstTextBaseline,
        .children = {kit::Padding{.insets = {.top = 7},
                                  .child = kit::VStack{.children = {block(5, 3), words("one")}}},
                     kit::Link{.url = "x:", .child = words("two")},
                     kit::Symbol{.name = "book", .font = kit::Font::system(10)}}};
    const PlacedBoxes boxes = laidOut(row, {100, 100});
    const double line = boxes[1].rect.y;
    EXPECT_DOUBLE_EQ(boxes[0].rect.y + 3, line);
    EXPECT_DOUBLE_EQ(boxes[3].rect.y, line);
    EXPECT_DOUBLE_EQ(boxes[4].rect.y, line);
}

TEST(ZStack, IsAsLargeAsItsChildrenTogether) {
    const kit::View stack = kit::ZStack{.children = {block(40, 10), block(10, 30)}};
    EXPECT_EQ(sizeOf(stack, {100, 100}), (Size{40, 30}));
    EXPECT_EQ(rects(stack, {40, 30}), (Rects{{0, 10, 40, 10}, {15, 0, 10, 30}}));
}

TEST(ZStack, AlignsItsChildren) {
    const kit::View stack =
        kit::ZStack{.alignment = {HorizontalAlignment::trailing, VerticalAlignment::bottom},
                    .children = {block(40, 30), block(10, 10)}};
    EXPECT_EQ(rects(stack, {40, 30})[1], (Rect{30, 20, 10, 10}));
}

TEST(Leaf, ShapeFillsItsRoomAndTakesTenPointsOfNoneInParticular) {
    EXPECT_EQ(sizeOf(rectangle(), {30, 40}), (Size{30, 40}));
    EXPECT_EQ(sizeOf(rectangle(), proposal(Length::unspecified(), Length::definite(40))),
              (Size{10, 40}));
}

TEST(Leaf, SymbolIsASquareAsHighAsALineOfItsFont) {
    const kit::Symbol symbol{.name = "book", .font = kit::Font::system(20)};
    EXPECT_EQ(sizeOf(symbol, {5, 5}), (Size{24, 24}));
}

TEST(Leaf, ProgressFillsTheWidthAtItsOwnHeight) {
    const kit::Progress bar{.value = kit::BarValue{0.5}};
    EXPECT_EQ(sizeOf(bar, {80, 50}), (Size{80, 4}));
    EXPECT_EQ(sizeOf(bar, Proposal{}), (Size{10, 4}));
}

TEST(Leaf, SpacerOutsideAStackFillsItsRoom) {
    EXPECT_EQ(sizeOf(kit::Spacer{.minLength = 5}, {30, 2}), (Size{30, 5}));
}

}  // namespace
}  // namespace kelmar::layout
