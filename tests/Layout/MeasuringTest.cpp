#include <gtest/gtest.h>

#include "Layout/Measuring.h"
#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;

/// Rows and columns in turn, each with texts that wrap beside the next stack: their heights depend
/// on the widths they get and the widths on the heights, all the way down.
kit::View nested(int depth) {
    kit::View view = words("the innermost of all texts");
    for (int level = 0; level < depth; ++level) {
        kit::Children children{words("a text that wraps"), std::move(view), words("and one more")};
        view = level % 2 == 0 ? kit::View(kit::HStack{.spacing = 1, .children = children})
                              : kit::View(kit::VStack{.spacing = 1, .children = children});
    }
    return view;
}

std::size_t questionsFor(const kit::View& view) {
    const testing::FixedWidthMeasurer measurer;
    const PlacedBoxes boxes = layOut(view, {332, 350}, measurer, Direction::leftToRight);
    EXPECT_FALSE(boxes.empty());
    return measurer.questions();
}

TEST(Measuring, QuestionsDoNotMultiplyWithTheDepthOfNestedStacks) {
    const std::size_t shallow = questionsFor(nested(15));
    const std::size_t middle = questionsFor(nested(30));
    const std::size_t deep = questionsFor(nested(60));
    // At worst each level adds its own estimates to those of all levels within it, so that twice
    // the depth asks four times as much; were they to multiply it would be thousands of times.
    EXPECT_LT(middle, 6 * shallow);
    EXPECT_LT(deep, 6 * middle);
    EXPECT_LT(deep, 60'000u);
}

TEST(Measuring, DeepStacksOfOneDirectionAndModifiersStayCheap) {
    kit::View view = words("the innermost of all texts");
    for (int level = 0; level < 20; ++level) {
        view = kit::Frame{
            .lengths = {.maxWidth = 300.0 - level, .maxHeight = kit::infinity},
            .child = kit::Padding{
                .insets = {.leading = 1},
                .child = kit::HStack{.children = {words("a text that wraps"), std::move(view)}}}};
    }
    EXPECT_LT(questionsFor(view), 20'000u);
}

TEST(Measuring, WideStackAsksEachChildAFewTimes) {
    kit::Children children(5'000, words("Essay"));
    EXPECT_LT(questionsFor(kit::HStack{.children = std::move(children)}), 5'000u * 12);
}

TEST(Measuring, SameQuestionIsAnsweredOnce) {
    const testing::FixedWidthMeasurer measurer;
    Measuring measuring(measurer);
    const kit::View view = kit::HStack{.children = {words("one two"), words("three")}};
    const Proposal offer = Proposal::exactly({40, 40});
    const Measurement first = measuring.measure(view, offer, Precision::exact);
    const std::size_t questions = measurer.questions();
    EXPECT_EQ(measuring.measure(view, offer, Precision::exact), first);
    EXPECT_EQ(measurer.questions(), questions);
}

TEST(Measuring, TextThatFitsIsMeasuredOnce) {
    EXPECT_EQ(questionsFor(kit::VStack{.children = {oneLine("Essay"), oneLine("Lab")}}), 2u);
}

}  // namespace
}  // namespace kelmar::layout
