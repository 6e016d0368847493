#include <gtest/gtest.h>

#include "Layout/TextScale.h"
#include "tests/Support/FixedWidthMeasurer.h"

namespace kelmar::layout {
namespace {

kit::Text line(const std::string& words) {
    return {.text = words, .font = kit::Font::system(10), .lineLimit = 1};
}

/// In an area of 100 x 48 points.
PlacedBoxes magnified(const kit::View& view, double wanted) {
    const testing::FixedWidthMeasurer measurer;
    return layOutMagnified(view, {100, 48}, measurer, Direction::leftToRight, wanted);
}

double fontSize(const PlacedBoxes& boxes) {
    return std::get<TextDrawing>(boxes.back().drawing).font.size;
}

TEST(TextScale, TextsWithRoomGrowAsWanted) {
    const PlacedBoxes boxes = magnified(line("short"), 1.5);
    EXPECT_DOUBLE_EQ(fontSize(boxes), 15);
    EXPECT_DOUBLE_EQ(boxes[0].rect.height, 18);
    EXPECT_DOUBLE_EQ(boxes[0].rect.y, 15);
}

TEST(TextScale, NothingGrowsBeyondTwice) {
    EXPECT_DOUBLE_EQ(fontSize(magnified(line("a"), 5)), 20);
}

TEST(TextScale, TextThatWouldBeCutOffGrowsOnlyAsFarAsItIsWhole) {
    const kit::View view = line("twelve chars");
    const PlacedBoxes usual = magnified(view, 1);
    const PlacedBoxes grown = magnified(view, 2);
    EXPECT_EQ(std::get<TextDrawing>(grown[0].drawing).lines[0].text, "twelve chars");
    EXPECT_GE(fontSize(grown), fontSize(usual));
    EXPECT_LT(fontSize(grown), 20);
}

TEST(TextScale, TitleInALinkMayBeCutOff) {
    const PlacedBoxes boxes =
        magnified(kit::Link{.url = "probe://title", .child = kit::View(line("twelve chars"))}, 2);
    EXPECT_DOUBLE_EQ(fontSize(boxes), 20);
}

TEST(TextScale, NothingIsPushedOutOfTheArea) {
    const kit::View column =
        kit::VStack{.spacing = 0, .children = {line("a"), line("b"), line("c"), line("d")}};
    EXPECT_DOUBLE_EQ(fontSize(magnified(column, 2)), 10);
}

}  // namespace
}  // namespace kelmar::layout
