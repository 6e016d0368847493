#include <gtest/gtest.h>

#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;
using kit::HorizontalAlignment;
using kit::VerticalAlignment;

const Length unspecified = Length::unspecified();

kit::View framed(kit::FrameLengths lengths, kit::View child, kit::Alignment alignment = {}) {
    return kit::Frame{.lengths = lengths, .alignment = alignment, .child = std::move(child)};
}

struct FrameRow {
    const char* condition;
    kit::FrameLengths lengths;
    double childWidth;
    Length offer;
    double expected;
};

void PrintTo(const FrameRow& row, std::ostream* out) {
    *out << row.condition;
}

class FrameWidth : public ::testing::TestWithParam<FrameRow> {};

TEST_P(FrameWidth, IsTakenFromTheFrameTheOfferOrTheChild) {
    const FrameRow& row = GetParam();
    const kit::View view = framed(row.lengths, block(row.childWidth, 10));
    EXPECT_EQ(sizeOf(view, proposal(row.offer, unspecified)), (Size{row.expected, 10}));
}

TEST_P(FrameWidth, HoldsForHeightsTheSameWay) {
    const FrameRow& row = GetParam();
    const kit::View view = framed({.height = row.lengths.width, .maxHeight = row.lengths.maxWidth},
                                  block(10, row.childWidth));
    EXPECT_EQ(sizeOf(view, proposal(unspecified, row.offer)), (Size{10, row.expected}));
}

INSTANTIATE_TEST_SUITE_P(
    Frames, FrameWidth,
    ::testing::Values(
        FrameRow{"no length: the child's", {}, 20, Length::definite(100), 20},
        FrameRow{"fixed, wider than the child", {.width = 50}, 20, Length::definite(100), 50},
        FrameRow{"fixed, narrower than the child", {.width = 5}, 20, Length::definite(100), 5},
        FrameRow{"fixed, wider than the offer", {.width = 50}, 20, Length::definite(30), 50},
        FrameRow{"fixed, no offer", {.width = 50}, 20, unspecified, 50},
        FrameRow{"infinite: the offer", {.maxWidth = kit::infinity}, 20, Length::definite(99), 99},
        FrameRow{"infinite, child wider", {.maxWidth = kit::infinity}, 20, Length::definite(9), 20},
        FrameRow{
            "infinite, no offer: the child's", {.maxWidth = kit::infinity}, 20, unspecified, 20},
        FrameRow{"greatest below the offer", {.maxWidth = 60.0}, 20, Length::definite(100), 60},
        FrameRow{"greatest above the offer", {.maxWidth = 60.0}, 20, Length::definite(40), 40},
        FrameRow{"greatest below the child", {.maxWidth = 15.0}, 20, Length::definite(40), 15},
        FrameRow{"greatest, no offer: the child's", {.maxWidth = 60.0}, 20, unspecified, 20},
        FrameRow{"greatest, no offer, child wider", {.maxWidth = 15.0}, 20, unspecified, 15},
        FrameRow{"greatest, all offered", {.maxWidth = 60.0}, 20, Length::infinite(), 60},
        FrameRow{"fixed beats greatest", {.width = 5, .maxWidth = 60.0}, 20, unspecified, 5},
        FrameRow{"negative counts as nothing", {.width = -5}, 20, Length::definite(100), 0}));

TEST(Frame, OffersItsFixedLengthToTheChild) {
    EXPECT_EQ(rectOf(framed({.width = 30, .height = 20}, rectangle()), {100, 100}),
              (Rect{35, 40, 30, 20}));
}

TEST(Frame, TextThatIsFreeToChooseMakesDoWithTheGreatestWidth) {
    EXPECT_EQ(dump(kit::FixedSize{.horizontal = true,
                                  .child = framed({.maxWidth = 40.0}, oneLine("0123456789"))},
                   {100, 12}),
              "30,0 40x12 text 10 regular primary \"0123456…\"@0,9.6 label \"0123456789\"\n");
}

/// A block of 20 x 10 in a frame of 50 x 40, or of 8 x 4, which it sticks out of.
TEST(Frame, AlignsTheChildInEveryCornerAndLetsItStickOutOnTheOtherSide) {
    using H = HorizontalAlignment;
    using V = VerticalAlignment;
    const std::array horizontals{std::tuple(H::leading, 0.0, 0.0),
                                 std::tuple(H::center, 15.0, -6.0),
                                 std::tuple(H::trailing, 30.0, -12.0)};
    const std::array verticals{std::tuple(V::top, 0.0, 0.0), std::tuple(V::center, 15.0, -3.0),
                               std::tuple(V::bottom, 30.0, -6.0)};
    for (const auto& [horizontal, xInside, xOutside] : horizontals) {
        for (const auto& [vertical, yInside, yOutside] : verticals) {
            const kit::Alignment alignment{horizontal, vertical};
            const kit::View wide = framed({.width = 50, .height = 40}, block(20, 10), alignment);
            const kit::View narrow = framed({.width = 8, .height = 4}, block(20, 10), alignment);
            EXPECT_EQ(rectOf(wide, {50, 40}), (Rect{xInside, yInside, 20, 10}));
            EXPECT_EQ(rectOf(narrow, {8, 4}), (Rect{xOutside, yOutside, 20, 10}));
        }
    }
}

TEST(Padding, StandsAroundTheChildAndIsTakenOffItsOffer) {
    const kit::View padded = kit::Padding{
        .insets = {.top = 1, .leading = 2, .bottom = 3, .trailing = 4}, .child = rectangle()};
    EXPECT_EQ(sizeOf(padded, {50, 40}), (Size{50, 40}));
    EXPECT_EQ(rectOf(padded, {50, 40}), (Rect{2, 1, 44, 36}));
}

TEST(Padding, LargerThanItsRoomLeavesTheChildNothing) {
    const kit::View padded =
        kit::Padding{.insets = {.leading = 30, .trailing = 30}, .child = rectangle()};
    EXPECT_EQ(sizeOf(padded, {40, 40}), (Size{60, 40}));
    EXPECT_EQ(rectOf(padded, {40, 40}), (Rect{20, 0, 0, 40}));
}

TEST(Padding, NegativeInsetsCountAsNone) {
    EXPECT_EQ(sizeOf(kit::Padding{.insets = {.top = -9, .leading = -9}, .child = block(10, 10)},
                     {40, 40}),
              (Size{10, 10}));
}

TEST(FixedSize, KeepsTheIdealLengthOnItsAxesOnly) {
    const kit::Text text = words("one two three");
    EXPECT_EQ(sizeOf(text, {35, 12}), (Size{35, 12}));
    EXPECT_EQ(sizeOf(kit::FixedSize{.horizontal = true, .child = text}, {35, 12}), (Size{65, 12}));
    EXPECT_EQ(sizeOf(kit::FixedSize{.vertical = true, .child = text}, {35, 12}), (Size{35, 24}));
    EXPECT_EQ(sizeOf(kit::FixedSize{.child = text}, {35, 12}), (Size{35, 12}));
}

TEST(FixedSize, WhatFillsAnyRoomFillsTheIdealLength) {
    const kit::View bar = kit::Frame{.lengths = {.width = 3}, .child = rectangle()};
    const kit::View label = kit::FixedSize{
        .vertical = true,
        .child = kit::HStack{.spacing = 2, .children = {bar, words("one two three")}}};
    EXPECT_EQ(dump(label, {40, 100}),
              "0,38 3x24 shape rectangle fill primary\n"
              "5,38 35x24 text 10 regular primary \"one two\"@0,9.6 \"three\"@0,21.6 label "
              "\"one two three\"\n");
}

TEST(Background, IsOfferedTheChildsSizeAndLiesBehindIt) {
    const kit::View tag = kit::Background{
        .content = rectangle(),
        .child = kit::Padding{.insets = {.leading = 8, .trailing = 8}, .child = oneLine("Undo")}};
    EXPECT_EQ(sizeOf(tag, {100, 100}), (Size{36, 12}));
    EXPECT_EQ(dump(tag, {36, 12}),
              "0,0 36x12 shape rectangle fill primary\n"
              "8,0 20x12 text 10 regular primary \"Undo\"@0,9.6\n");
}

TEST(Overlay, IsOfferedTheChildsSizeAndLiesInFrontInTheMiddle) {
    const kit::View day =
        kit::Overlay{.content = kit::Symbol{.name = "checkmark", .font = kit::Font::system(10)},
                     .child = block(20, 20)};
    EXPECT_EQ(sizeOf(day, {100, 100}), (Size{20, 20}));
    EXPECT_EQ(dump(day, {20, 20}),
              "0,0 20x20 shape rectangle fill primary\n"
              "4,4 12x12 symbol checkmark regular primary\n");
}

TEST(Overlay, LargerThanTheChildSticksOutOnAllSides) {
    const kit::View day = kit::Overlay{.content = block(30, 40), .child = block(20, 20)};
    EXPECT_EQ(sizeOf(day, {100, 100}), (Size{20, 20}));
    EXPECT_EQ(laidOut(day, {20, 20})[1].rect, (Rect{-5, -10, 30, 40}));
}

TEST(Opacity, MultipliesDown) {
    const kit::View view = kit::Opacity{
        .value = 0.5,
        .child = kit::HStack{
            .children = {block(5, 5), kit::Opacity{.value = 0.4, .child = block(5, 5)}}}};
    const PlacedBoxes boxes = laidOut(view, {10, 5});
    EXPECT_DOUBLE_EQ(boxes[0].opacity, 0.5);
    EXPECT_DOUBLE_EQ(boxes[1].opacity, 0.2);
}

TEST(Opacity, StaysBetweenNothingAndFull) {
    EXPECT_EQ(laidOut(kit::Opacity{.value = 7, .child = block(5, 5)}, {5, 5})[0].opacity, 1);
    EXPECT_EQ(laidOut(kit::Opacity{.value = -7, .child = block(5, 5)}, {5, 5})[0].opacity, 0);
}

}  // namespace
}  // namespace kelmar::layout
