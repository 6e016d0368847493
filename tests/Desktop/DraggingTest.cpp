#include <gtest/gtest.h>

#include "Desktop/Dragging.h"

namespace kelmar::desktop {
namespace {

const ScreenArea laptop{{"eDP-1", QRect(0, 0, 1366, 768)}, QRect(0, 0, 1366, 728)};
/// Neither of its lengths is a multiple of the grid's step from the laptop's corner.
const ScreenArea monitor{{"HDMI-1", QRect(1366, 5, 1920, 1080)}, QRect(1366, 5, 1920, 1080)};
const std::vector both{laptop, monitor};

constexpr QSize medium(364, 170);

WidgetPlace at(const ScreenArea& screen, QPoint position) {
    return {.kind = "A",
            .family = kit::Family::medium,
            .screen = screen.identity,
            .position = position};
}

TEST(Dragging, GridIsThatOfTheScreenUnderThePointer) {
    EXPECT_EQ(restingPlace(QRect({1999, 403}, medium), {2000, 410}, {}, both),
              QPoint(1366 + 632, 5 + 400));
}

TEST(Dragging, WidgetGoesOverToTheOtherScreenWithThePointer) {
    const QRect across({1300, 300}, medium);
    EXPECT_EQ(restingPlace(across, {1365, 310}, {}, both).x(), 1366 - 364);
    EXPECT_EQ(restingPlace(across, {1366, 310}, {}, both).x(), 1366);
}

TEST(Dragging, PanelsAreKeptFree) {
    EXPECT_EQ(restingPlace(QRect({600, 720}, medium), {700, 760}, {}, both).y(), 728 - 170);
}

TEST(Dragging, OthersOnTheScreenAttract) {
    const WidgetPlace other = at(laptop, {501, 203});
    EXPECT_EQ(restingPlace(QRect({505, 395}, medium), {600, 400}, {other}, both),
              QPoint(501, 203 + 170 + 16));
}

TEST(Dragging, OthersElsewhereDoNotAttract) {
    const WidgetPlace other = at(monitor, {501, 203});
    EXPECT_EQ(restingPlace(QRect({505, 395}, medium), {600, 400}, {other}, both), QPoint(504, 392));
}

TEST(Dragging, OthersWhoseScreenIsGoneAttractWhereTheyAreShown) {
    const WidgetPlace other = at(monitor, {501, 203});
    EXPECT_EQ(restingPlace(QRect({505, 395}, medium), {600, 400}, {other}, {laptop}),
              QPoint(501, 203 + 170 + 16));
}

}  // namespace
}  // namespace kelmar::desktop
