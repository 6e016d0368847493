#include <gtest/gtest.h>

#include "Desktop/Press.h"

namespace kelmar::desktop {
namespace {

using layout::Action;
using layout::ButtonAction;
using layout::LinkAction;
using layout::PlacedBox;
using layout::PlacedBoxes;

constexpr layout::Size widget{364, 170};
constexpr double threshold = 10;
const Action tickFirst = ButtonAction{{.name = "TickOff", .parameters = {{"id", "a"}}}};
const Action tickSecond = ButtonAction{{.name = "TickOff", .parameters = {{"id", "b"}}}};
const Action openFirst = LinkAction{"kelmarplanner://assignment/a"};

PlacedBox box(layout::Rect rect, Action action) {
    PlacedBox placed;
    placed.rect = rect;
    placed.action = std::move(action);
    return placed;
}

const PlacedBoxes rows{box({16, 40, 20, 20}, tickFirst), box({43, 36, 300, 30}, openFirst),
                       box({16, 70, 20, 20}, tickSecond)};

std::optional<PressTarget> at(double x, double y,
                              const std::optional<std::string>& widgetUrl = std::nullopt) {
    return targetAt(rows, widgetUrl, widget, {x, y});
}

TEST(PressTarget, IsTheActionUnderThePointer) {
    EXPECT_EQ(at(16, 40)->action, tickFirst);
    EXPECT_EQ(at(35.9, 59.9)->action, tickFirst);
    EXPECT_EQ(at(43, 40)->action, openFirst);
}

TEST(PressTarget, IsNothingBesideEveryActionWithoutAWidgetUrl) {
    EXPECT_EQ(at(36, 60), std::nullopt);
    EXPECT_EQ(at(1, 1), std::nullopt);
}

TEST(PressTarget, IsTheWidgetUrlBesideEveryAction) {
    EXPECT_EQ(at(1, 1, "kelmarplanner://dashboard")->action,
              Action(LinkAction{"kelmarplanner://dashboard"}));
    EXPECT_EQ(at(20, 45, "kelmarplanner://dashboard")->action, tickFirst);
}

TEST(PressTarget, IsNothingOutsideTheWidget) {
    EXPECT_EQ(at(364, 20, "kelmarplanner://dashboard"), std::nullopt);
    EXPECT_EQ(at(-1, 20, "kelmarplanner://dashboard"), std::nullopt);
}

TEST(PressTargets, AreTheBoxesWithAnActionInTheirOrder) {
    const std::vector<PressTarget> targets = targetsOf(rows, {}, widget);
    ASSERT_EQ(targets.size(), 3U);
    EXPECT_EQ(targets[1], (PressTarget{openFirst, {43, 36, 300, 30}}));
}

TEST(PressTargets, BeginWithTheWholeWidgetThatHasAnUrl) {
    const std::vector<PressTarget> targets = targetsOf(rows, "kelmarplanner://dashboard", widget);
    ASSERT_EQ(targets.size(), 4U);
    EXPECT_EQ(targets[0], (PressTarget{LinkAction{"kelmarplanner://dashboard"}, {0, 0, 364, 170}}));
}

TEST(PressTargets, LeaveOutWhatCannotBePressed) {
    EXPECT_TRUE(targetsOf({box({0, 0, 10, 10}, std::monostate())}, {}, widget).empty());
}

class PressGestureTest : public testing::Test {
protected:
    void begin(double x, double y) { gesture_.begin({x, y}, at(x, y)); }
    PressGesture::Kind moveTo(double x, double y) { return gesture_.moveTo({x, y}, threshold); }
    std::optional<Action> end(double x, double y) { return gesture_.end(at(x, y)); }

    PressGesture gesture_;
};

TEST_F(PressGestureTest, PressAndReleaseInOneBoxRunsIt) {
    begin(20, 45);
    moveTo(24, 48);
    EXPECT_EQ(end(24, 48), tickFirst);
}

TEST_F(PressGestureTest, ReleaseInAnotherBoxRunsNothing) {
    begin(35, 45);
    moveTo(43, 45);
    EXPECT_EQ(end(43, 45), std::nullopt);
}

TEST_F(PressGestureTest, ReleaseInTheGapRunsNothing) {
    begin(35, 45);
    EXPECT_EQ(end(38, 45), std::nullopt);
}

TEST_F(PressGestureTest, ReleaseInABoxRunsNothingWhenThePressBeganOutside) {
    begin(38, 45);
    EXPECT_EQ(end(35, 45), std::nullopt);
}

TEST_F(PressGestureTest, ReleaseWithoutAPressRunsNothing) {
    EXPECT_EQ(end(20, 45), std::nullopt);
}

TEST_F(PressGestureTest, ActionThatTookThePressedOnesPlaceDoesNotRun) {
    begin(20, 45);
    const PlacedBoxes redrawn{box({16, 40, 20, 20}, tickSecond)};
    EXPECT_EQ(gesture_.end(targetAt(redrawn, {}, widget, {20, 45})), std::nullopt);
}

TEST_F(PressGestureTest, SameActionAfterARedrawStillRuns) {
    begin(20, 45);
    const PlacedBoxes redrawn{box({0, 0, 5, 5}, openFirst), box({16, 40, 20, 20}, tickFirst)};
    EXPECT_EQ(gesture_.end(targetAt(redrawn, {}, widget, {20, 45})), tickFirst);
}

TEST_F(PressGestureTest, MovingFarMakesADragThatRunsNothing) {
    begin(20, 45);
    EXPECT_EQ(moveTo(26, 48), PressGesture::Kind::press);
    EXPECT_EQ(moveTo(26, 49), PressGesture::Kind::drag);
    EXPECT_EQ(end(26, 49), std::nullopt);
}

TEST_F(PressGestureTest, DragThatReturnsToItsBeginningStaysADrag) {
    begin(20, 45);
    moveTo(60, 45);
    EXPECT_EQ(moveTo(20, 45), PressGesture::Kind::drag);
    EXPECT_EQ(end(20, 45), std::nullopt);
}

TEST_F(PressGestureTest, DragMayBeginBesideEveryAction) {
    begin(1, 1);
    EXPECT_EQ(moveTo(40, 1), PressGesture::Kind::drag);
}

TEST_F(PressGestureTest, MovingWithoutAPressIsNoDrag) {
    EXPECT_EQ(moveTo(200, 100), PressGesture::Kind::none);
}

TEST_F(PressGestureTest, CancelledPressRunsNothing) {
    begin(20, 45);
    gesture_.cancel();
    EXPECT_EQ(end(20, 45), std::nullopt);
}

TEST_F(PressGestureTest, EndedGestureIsOver) {
    begin(20, 45);
    static_cast<void>(end(20, 45));
    EXPECT_EQ(end(20, 45), std::nullopt);
}

}  // namespace
}  // namespace kelmar::desktop
