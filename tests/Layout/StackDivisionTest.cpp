#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>
#include <rapidcheck/gtest.h>

#include "Layout/StackDivision.h"

namespace kelmar::layout {
namespace {

using ::testing::ElementsAre;
using Lengths = std::vector<double>;
using Children = std::vector<Flexibility>;

constexpr double infinity = std::numeric_limits<double>::infinity();

Flexibility view(double minimum, double maximum) {
    return {minimum, maximum, Flexibility::Kind::view};
}
Flexibility rigid(double length) {
    return view(length, length);
}
Flexibility spacer(double minimum = 0) {
    return {minimum, infinity, Flexibility::Kind::spacer};
}

/// What well-behaved children take: their offer, as far as they can.
Lengths taken(double length, const Children& children) {
    const auto answer = [&](std::size_t index, double offer) {
        return std::clamp(offer, children[index].minimum, children[index].maximum);
    };
    Lengths result = divide(length, children, answer);
    for (std::size_t index = 0; index < result.size(); ++index) {
        result[index] = answer(index, result[index]);
    }
    return result;
}

double sum(const Lengths& lengths) {
    return std::accumulate(lengths.begin(), lengths.end(), 0.0);
}

TEST(StackDivision, NoChildrenGetNothing) {
    EXPECT_TRUE(taken(100, {}).empty());
}

TEST(StackDivision, OneFlexibleChildTakesEverything) {
    EXPECT_THAT(taken(100, {view(0, infinity)}), ElementsAre(100));
}

TEST(StackDivision, EquallyFlexibleChildrenShareEqually) {
    EXPECT_THAT(taken(90, {view(0, infinity), view(0, infinity), view(0, infinity)}),
                ElementsAre(30, 30, 30));
}

TEST(StackDivision, RigidChildrenComeFirstWhereverTheyStand) {
    EXPECT_THAT(taken(100, {view(0, infinity), rigid(20), view(0, infinity)}),
                ElementsAre(40, 20, 40));
}

TEST(StackDivision, WhatAShortTextLeavesGoesToTheLongOne) {
    EXPECT_THAT(taken(100, {view(0, 90), view(0, 30)}), ElementsAre(70, 30));
}

TEST(StackDivision, TwoTextsTooLongShareEqually) {
    EXPECT_THAT(taken(100, {view(0, 90), view(0, 80)}), ElementsAre(50, 50));
}

TEST(StackDivision, SpacerTakesOnlyWhatIsLeft) {
    EXPECT_THAT(taken(100, {view(0, 30), spacer(), view(0, 40)}), ElementsAre(30, 30, 40));
}

TEST(StackDivision, SpacerGetsNothingBesideAChildThatFills) {
    EXPECT_THAT(taken(100, {spacer(), view(0, infinity)}), ElementsAre(0, 100));
}

TEST(StackDivision, SpacerKeepsItsOwnMinimum) {
    EXPECT_THAT(taken(100, {view(0, 200), spacer(12)}), ElementsAre(88, 12));
}

TEST(StackDivision, SpacersShareWhatIsLeft) {
    EXPECT_THAT(taken(100, {spacer(), rigid(40), spacer()}), ElementsAre(30, 40, 30));
}

TEST(StackDivision, AnEqualPartDoesNotEatIntoAnothersMinimum) {
    EXPECT_THAT(taken(100, {view(0, 100), view(90, infinity)}), ElementsAre(10, 90));
}

TEST(StackDivision, ChildrenAlikeAreTreatedAlikeBesideOneThatNeedsMore) {
    EXPECT_THAT(taken(51, {view(0, 100), view(0, 100), view(40, infinity)}),
                ElementsAre(5.5, 5.5, 40));
}

TEST(StackDivision, NothingIsLeftBesideAChildThatIsFullEarly) {
    EXPECT_THAT(taken(145, {view(90, 100), view(0, 50)}), ElementsAre(95, 50));
}

TEST(StackDivision, WhereThereIsEnoughEveryChildIsOfferedAllThatItCouldTake) {
    const auto grows = [](std::size_t, double offer) { return offer; };
    EXPECT_THAT(divide(100, {view(10, 20), view(0, 30)}, grows), ElementsAre(100, 0));
    EXPECT_THAT(divide(100, {view(10, 20), view(5, 30)}, grows), ElementsAre(95, 5));
}

TEST(StackDivision, MinimumsThatDoNotFitAreKeptAllTheSame) {
    EXPECT_THAT(taken(50, {rigid(40), rigid(30), view(5, 60)}), ElementsAre(40, 30, 5));
}

TEST(StackDivision, NoOfferIsNegativeHoweverLittleThereIs) {
    EXPECT_THAT(divide(-10, {view(0, 5), spacer()}, [](std::size_t, double) { return 3.0; }),
                ElementsAre(0, 0));
    EXPECT_THAT(divide(10, {view(0, 5), view(0, 9)}, [](std::size_t, double) { return 30.0; }),
                ElementsAre(5, 0));
}

TEST(StackDivision, WhatAChildDeclinesGoesToThoseThatFollow) {
    // A text that wraps takes a little less than it is offered.
    const auto answer = [](std::size_t index, double offer) {
        return index == 0 ? offer - 8 : offer;
    };
    EXPECT_THAT(divide(100, {view(0, 80), view(0, infinity)}, answer), ElementsAre(50, 58));
}

/// A row of a width from nothing to more than enough: a symbol, a short and a long text.
TEST(StackDivision, SweepShrinksTheLongTextFirstThenTheShortOne) {
    const Children children{rigid(16), view(0, 30), view(0, 100)};
    for (int width = 0; width <= 200; ++width) {
        const double length = width;
        const double rest = std::max(0.0, length - 16);
        const double shortText = std::min(30.0, rest / 2);
        EXPECT_THAT(taken(length, children),
                    ElementsAre(16, shortText, std::min(100.0, rest - shortText)))
            << "at " << width;
    }
}

/// Whole numbers, so that sums are exact.
rc::Gen<Flexibility> anyChild() {
    return rc::gen::apply(
        [](int minimum, int more, int kind) {
            const double greatest = more > 90 ? infinity : minimum + more;
            return kind == 0 ? spacer(minimum) : view(minimum, greatest);
        },
        rc::gen::inRange(0, 50), rc::gen::inRange(0, 100), rc::gen::inRange(0, 5));
}
rc::Gen<Children> anyChildren() {
    return rc::gen::container<Children>(anyChild());
}

double minimums(const Children& children) {
    double result = 0;
    for (const Flexibility& child : children) {
        result += child.minimum;
    }
    return result;
}
double maximums(const Children& children) {
    double result = 0;
    for (const Flexibility& child : children) {
        result += child.maximum;
    }
    return result;
}

RC_GTEST_PROP(StackDivisionLaws, ChildrenNeverExceedTheLengthWhenTheirMinimumsFit, ()) {
    const Children children = *anyChildren();
    const double length = minimums(children) + *rc::gen::inRange(0, 300);
    RC_ASSERT(sum(taken(length, children)) <= length + 1e-9);
}

RC_GTEST_PROP(StackDivisionLaws, ChildrenTakeTheirMinimumsWhenThoseDoNotFit, ()) {
    const Children children = *anyChildren();
    const double length = minimums(children) - *rc::gen::inRange(0, 50);
    RC_ASSERT(sum(taken(length, children)) == minimums(children));
}

RC_GTEST_PROP(StackDivisionLaws, NothingIsLeftOverWhileAChildCouldTakeIt, ()) {
    const Children children = *anyChildren();
    const double length = minimums(children) + *rc::gen::inRange(0, 300);
    const double expected = std::min(length, maximums(children));
    RC_ASSERT(std::abs(sum(taken(length, children)) - expected) < 1e-9);
}

RC_GTEST_PROP(StackDivisionLaws, OrderOfTheChildrenDoesNotMatter, ()) {
    const Children children = *anyChildren();
    const double length = *rc::gen::inRange(0, 600);
    std::vector<std::size_t> order(children.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::shuffle(order, std::minstd_rand(*rc::gen::arbitrary<unsigned>()));
    Children shuffled;
    for (const std::size_t index : order) {
        shuffled.push_back(children[index]);
    }
    const Lengths before = taken(length, children);
    const Lengths after = taken(length, shuffled);
    for (std::size_t place = 0; place < order.size(); ++place) {
        RC_ASSERT(std::abs(after[place] - before[order[place]]) < 1e-9);
    }
}

}  // namespace
}  // namespace kelmar::layout
