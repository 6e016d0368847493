#include <cmath>
#include <gtest/gtest.h>

#include "Layout/Measuring.h"
#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;

/// A text that takes three lines of the width that it is offered at most, and one line of none.
kit::View note(double lineHeight) {
    const double size = lineHeight / 1.2;
    return kit::Frame{.lengths = {.maxWidth = size},
                      .child = kit::Text{.text = "ab cd ef", .font = kit::Font::system(size)}};
}

/// Rows and columns in turn, each with a note beside the next stack. A column's heights depend on
/// the widths that are offered, and so does the height that is left for the next stack. Line
/// heights are such that no two ways of adding them up come to the same.
kit::View nested(int depth) {
    kit::View view = words("the innermost of all texts");
    for (int level = 0; level < depth; ++level) {
        kit::Children children{note(std::exp2(level / 4)), std::move(view)};
        view = level % 2 == 0 ? kit::View(kit::HStack{.children = children})
                              : kit::View(kit::VStack{.children = children});
    }
    return view;
}

std::size_t questionsFor(const kit::View& view) {
    const testing::FixedWidthMeasurer measurer;
    const PlacedBoxes boxes = layOut(view, {1e6, 1e6}, measurer, Direction::leftToRight);
    EXPECT_FALSE(boxes.empty());
    return measurer.questions();
}

TEST(Measuring, QuestionsDoNotMultiplyWithTheDepthOfNestedStacks) {
    const std::size_t shallow = questionsFor(nested(15));
    const std::size_t middle = questionsFor(nested(30));
    const std::size_t deep = questionsFor(nested(60));
    // Every level adds about as many questions as the one before. Were each stack to ask its
    // children as precisely as it is asked itself, they would multiply.
    EXPECT_LT(middle, 3 * shallow);
    EXPECT_LT(deep, 3 * middle);
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
