#include <gtest/gtest.h>

#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;

kit::View tick(const std::string& title) {
    return kit::Button{
        .intent = {.name = "TickOff",
                   .parameters = {{"id", "7"}, {"count", std::int64_t{2}}, {"quietly", true}}},
        .label = "Mark " + title + " done",
        .child = kit::Symbol{.name = "circle", .font = kit::Font::system(10)}};
}

/// A row of a list: a tick, and a link over the rest of the row.
kit::View listRow() {
    return kit::HStack{
        .spacing = 4,
        .children = {tick("Essay"),
                     kit::Link{.url = "planner://7",
                               .child = kit::Frame{
                                   .lengths = {.maxWidth = kit::infinity},
                                   .alignment = {kit::HorizontalAlignment::leading,
                                                 kit::VerticalAlignment::center},
                                   .child = kit::VStack{
                                       .alignment = kit::HorizontalAlignment::leading,
                                       .children = {oneLine("Essay"), oneLine("Tomorrow")}}}}}};
}

TEST(Placing, ListRowMakesItsBoxesBackToFront) {
    EXPECT_EQ(
        dump(listRow(), {100, 30}),
        "0,9 12x12 button TickOff(id=\"7\", count=2, quietly=true) label \"Mark Essay done\"\n"
        "0,9 12x12 symbol circle regular primary in 0\n"
        "16,3 84x24 link planner://7 label \"Essay, Tomorrow\"\n"
        "16,3 25x12 text 10 regular primary \"Essay\"@0,9.6 in 2\n"
        "16,15 40x12 text 10 regular primary \"Tomorrow\"@0,9.6 in 2\n");
}

TEST(Placing, ListRowIsMirroredWhereReadingGoesFromRightToLeft) {
    EXPECT_EQ(dump(listRow(), {100, 30}, Direction::rightToLeft),
              "88,9 12x12 button TickOff(id=\"7\", count=2, quietly=true) label \"Mark Essay "
              "done\"\n"
              "88,9 12x12 symbol circle regular primary in 0\n"
              "0,3 84x24 link planner://7 label \"Essay, Tomorrow\"\n"
              "59,3 25x12 text 10 regular primary \"Essay\"@0,9.6 in 2\n"
              "44,15 40x12 text 10 regular primary \"Tomorrow\"@0,9.6 in 2\n");
}

TEST(Placing, PaddingSwapsItsSidesFromRightToLeft) {
    const kit::View padded =
        kit::Padding{.insets = {.leading = 10, .trailing = 2}, .child = rectangle()};
    EXPECT_EQ(laidOut(padded, {50, 10}, Direction::rightToLeft)[0].rect, (Rect{2, 0, 38, 10}));
}

TEST(Placing, EveryDrawingIsToldInTheDump) {
    const auto start = system::Date::since1970(1000);
    const kit::View tree = kit::VStack{
        .children = {
            kit::Text{.text = "Done",
                      .font = kit::Font::caption(),
                      .color = kit::Color::rgb(0.25, 0.5, 1).withOpacity(0.5),
                      .strikethrough = true},
            kit::Countdown{
                .from = start,
                .to = start + 90,
                .font = kit::Font::system(20, kit::FontWeight::bold).rounded().monospacedDigits()},
            kit::Progress{.value = kit::BarValue{0.25}, .tint = kit::red},
            kit::Progress{.value = kit::BarInterval{start, start + 60}},
            kit::Frame{.lengths = {.height = 6},
                       .child = kit::Shape{.shape = kit::ShapeKind::roundedRectangle,
                                           .cornerRadius = 2,
                                           .stroke = kit::secondary,
                                           .lineWidth = 1.5}},
            kit::Toggle{.isOn = true,
                        .intent = {.name = "Run", .parameters = {}},
                        .child = kit::Opacity{.value = 0.5, .child = oneLine("Timer")}}}};
    EXPECT_EQ(dump(tree, {80, 62}),
              "30,0 20x12 text 10 regular caption rgb(0.25,0.5,1)*0.5 strikethrough "
              "\"Done\"@0,9.6\n"
              "20,12 40x24 countdown 20 bold rounded monospacedDigits primary lasting 90 baseline "
              "19.2 label \"1:30\"\n"
              "0,36 80x4 progress red 0.25\n"
              "0,40 80x4 progress primary lasting 60\n"
              "0,44 80x6 shape roundedRectangle radius 2 stroke secondary 1.5\n"
              "27.5,50 25x12 toggle Run() on label \"Timer\"\n"
              "27.5,50 25x12 text 10 regular primary \"Timer\"@0,9.6 opacity 0.5 in 5\n");
}

TEST(Placing, RootIsCentredInItsArea) {
    EXPECT_EQ(rectOf(block(20, 10), {100, 50}), (Rect{40, 20, 20, 10}));
}

TEST(Placing, RootLargerThanItsAreaSticksOutOnAllSides) {
    EXPECT_EQ(rectOf(block(120, 60), {100, 50}), (Rect{-10, -5, 120, 60}));
}

TEST(Placing, SpacersAndEmptyStacksMakeNoBoxes) {
    EXPECT_TRUE(
        laidOut(kit::VStack{.children = {kit::Spacer{}, kit::HStack{.children = {}}}}, {50, 50})
            .empty());
}

TEST(Labels, CutTextKeepsItsWholeTextForAReader) {
    const PlacedBoxes boxes = laidOut(oneLine("A long title"), {30, 12});
    EXPECT_EQ(std::get<TextDrawing>(boxes[0].drawing).lines[0].text, "A lon…");
    EXPECT_EQ(boxes[0].label, "A long title");
}

TEST(Labels, ShapesSymbolsAndBarsSayNothing) {
    const kit::View tree = kit::HStack{
        .children = {rectangle(), kit::Symbol{.name = "book", .font = kit::Font::system(10)},
                     kit::Progress{.value = kit::BarValue{1}}}};
    for (const PlacedBox& box : laidOut(tree, {50, 50})) {
        EXPECT_EQ(box.label, "");
    }
}

TEST(Labels, ButtonWithoutALabelSaysTheTextsInIt) {
    const kit::View button = kit::Button{
        .intent = {.name = "Run", .parameters = {}}, .label = "", .child = oneLine("Start")};
    EXPECT_EQ(laidOut(button, {50, 50})[0].label, "Start");
}

TEST(Labels, LinkLeavesOutWhatAButtonInItSays) {
    const kit::View link =
        kit::Link{.url = "x:", .child = kit::HStack{.children = {oneLine("Essay"), tick("Essay")}}};
    const PlacedBoxes boxes = laidOut(link, {80, 20});
    EXPECT_EQ(boxes[0].label, "Essay");
    EXPECT_EQ(boxes[2].container, 0u);
    EXPECT_EQ(boxes[3].container, 2u);
}

TEST(Labels, AccessiblePictureSaysItsLabel) {
    const kit::View day =
        kit::Accessible{.label = "Monday: counted",
                        .child = kit::Symbol{.name = "checkmark", .font = kit::Font::system(10)}};
    EXPECT_EQ(dump(day, {12, 12}),
              "0,0 12x12 symbol checkmark regular primary label \"Monday: counted\"\n");
}

TEST(Labels, AccessibleTextSaysItsLabelInsteadOfItself) {
    EXPECT_EQ(
        laidOut(kit::Accessible{.label = "five days", .child = oneLine("5")}, {50, 50})[0].label,
        "five days");
}

TEST(Labels, AccessibleLinkSaysItsLabel) {
    const kit::View link = kit::Accessible{
        .label = "Open the essay", .child = kit::Link{.url = "x:", .child = oneLine("Essay")}};
    EXPECT_EQ(laidOut(link, {50, 50})[0].label, "Open the essay");
}

TEST(Labels, AccessibleGroupSaysItsLabelOnceOverItsWholeRectangle) {
    const kit::View day =
        kit::Accessible{.label = "Monday: counted",
                        .child = kit::VStack{.children = {oneLine("M"), block(10, 10)}}};
    EXPECT_EQ(dump(day, {10, 22}),
              "2.5,0 5x12 text 10 regular primary \"M\"@0,9.6\n"
              "0,12 10x10 shape rectangle fill primary\n"
              "0,0 10x22 label \"Monday: counted\"\n");
}

TEST(Labels, AccessibleGroupKeepsTheButtonsInItNamed) {
    const kit::View group = kit::Accessible{
        .label = "Assignment", .child = kit::HStack{.children = {oneLine("Essay"), tick("Essay")}}};
    const PlacedBoxes boxes = laidOut(group, {80, 20});
    EXPECT_EQ(boxes[0].label, "");
    EXPECT_EQ(boxes[1].label, "Mark Essay done");
    EXPECT_EQ(boxes.back().label, "Assignment");
}

TEST(Labels, AccessibleWithoutALabelIsSilent) {
    const kit::View group = kit::Accessible{
        .label = "", .child = kit::HStack{.children = {oneLine("one"), oneLine("two")}}};
    const PlacedBoxes boxes = laidOut(group, {80, 20});
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].label + boxes[1].label, "");
}

TEST(ActionAt, FindsTheFrontmostActionAtAPoint) {
    const kit::View tree = kit::Link{
        .url = "back:",
        .child = kit::ZStack{
            .children = {block(100, 100), kit::Link{.url = "front:", .child = block(20, 20)}}}};
    const PlacedBoxes boxes = laidOut(tree, {100, 100});
    const auto urlAt = [&](Point point) {
        const auto index = actionAt(boxes, point);
        return index ? std::get<LinkAction>(boxes[*index].action).url : "";
    };
    EXPECT_EQ(urlAt({50, 50}), "front:");
    EXPECT_EQ(urlAt({40, 40}), "front:");
    EXPECT_EQ(urlAt({60, 50}), "back:");
    EXPECT_EQ(urlAt({0, 0}), "back:");
    EXPECT_EQ(urlAt({100, 50}), "");
    EXPECT_EQ(urlAt({-1, 50}), "");
}

TEST(ActionAt, BoxInFrontWithoutAnActionLetsThePressThrough) {
    const kit::View tree = kit::Overlay{.content = rectangle(),
                                        .child = kit::Link{.url = "x:", .child = block(10, 10)}};
    EXPECT_EQ(actionAt(laidOut(tree, {10, 10}), {5, 5}), 0u);
}

TEST(ActionAt, NothingToPressIsNothing) {
    EXPECT_EQ(actionAt({}, {0, 0}), std::nullopt);
    EXPECT_EQ(actionAt(laidOut(block(10, 10), {10, 10}), {5, 5}), std::nullopt);
}

}  // namespace
}  // namespace kelmar::layout
