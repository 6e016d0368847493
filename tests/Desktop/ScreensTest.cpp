#include <gtest/gtest.h>

#include "Desktop/Screens.h"

namespace kelmar::desktop {
namespace {

const ScreenIdentity laptop{"eDP-1", QRect(0, 0, 1280, 800)};
const ScreenIdentity monitor{"HDMI-1", QRect(1280, 0, 1920, 1080)};
const ScreenIdentity otherMonitor{"HDMI-1", QRect(1280, 0, 1280, 1024)};

ScreenArea withPanelBelow(const ScreenIdentity& screen) {
    return {screen, screen.geometry.adjusted(0, 0, 0, -40)};
}

const std::vector both{withPanelBelow(laptop), withPanelBelow(monitor)};
const std::vector onlyLaptop{withPanelBelow(laptop)};

const WidgetPlace onMonitor{
    .kind = "DueToday", .family = kit::Family::medium, .screen = monitor, .position = {1500, 800}};

TEST(Screens, WidgetStandsOnItsOwnScreen) {
    EXPECT_EQ(shownGeometry(onMonitor, both), QRect(2780, 800, 364, 170));
}

TEST(Screens, WidgetOfAGoneScreenIsShownOnWhatIsLeft) {
    EXPECT_EQ(shownGeometry(onMonitor, onlyLaptop), QRect(916, 590, 364, 170));
}

TEST(Screens, WidgetGoesHomeWhenItsScreenReturns) {
    // Being shown elsewhere changes nothing of what is kept.
    static_cast<void>(shownGeometry(onMonitor, onlyLaptop));
    EXPECT_EQ(shownGeometry(onMonitor, both), QRect(2780, 800, 364, 170));
}

TEST(Screens, ScreenWithAnotherResolutionIsKnownByItsName) {
    const std::vector smaller{withPanelBelow(laptop), withPanelBelow(otherMonitor)};
    EXPECT_EQ(screenOf(onMonitor, smaller).identity, otherMonitor);
    EXPECT_EQ(shownGeometry(onMonitor, smaller).right(), otherMonitor.geometry.right());
}

TEST(Screens, GeometryTellsScreensOfOneNameApart) {
    const std::vector twins{withPanelBelow(otherMonitor), withPanelBelow(monitor)};
    EXPECT_EQ(screenOf(onMonitor, twins).identity, monitor);
}

const ScreenIdentity officeMonitor{"HDMI-1", QRect(1280, 0, 1920, 1080), "U2419", "ABC"};
const ScreenIdentity homeMonitor{"HDMI-1", QRect(1280, 0, 1920, 1080), "U2419", "XYZ"};

WidgetPlace placeOn(const ScreenIdentity& screen) {
    WidgetPlace place = onMonitor;
    place.screen = screen;
    return place;
}

TEST(Screens, DeviceIsKnownAgainOnAnotherConnector) {
    ScreenIdentity moved = officeMonitor;
    moved.name = "DP-1";
    moved.geometry.translate(0, 200);
    const std::vector screens{withPanelBelow(laptop), withPanelBelow(homeMonitor),
                              withPanelBelow(moved)};
    EXPECT_EQ(screenOf(placeOn(officeMonitor), screens).identity, moved);
}

TEST(Screens, AnotherDeviceOnTheConnectorIsTheNextBest) {
    const std::vector screens{withPanelBelow(laptop), withPanelBelow(homeMonitor)};
    EXPECT_EQ(screenOf(placeOn(officeMonitor), screens).identity, homeMonitor);
}

TEST(Screens, TwinsWithoutSerialNumbersAreKnownByTheirConnectors) {
    const ScreenIdentity left{"DP-1", QRect(0, 0, 1920, 1080), "U2419", ""};
    const ScreenIdentity right{"DP-2", QRect(1920, 0, 1920, 1080), "U2419", ""};
    const std::vector screens{withPanelBelow(left), withPanelBelow(right)};
    EXPECT_EQ(screenOf(placeOn(right), screens).identity, right);
}

TEST(Screens, DeviceThatWasNotKnownWhenThePlaceWasKeptIsKnownByItsName) {
    const std::vector screens{withPanelBelow(laptop), withPanelBelow(officeMonitor)};
    EXPECT_EQ(screenOf(placeOn(monitor), screens).identity, officeMonitor);
}

TEST(Screens, PointBelongsToTheScreenThatHoldsItElseToTheNearest) {
    EXPECT_EQ(screenAt({1279, 10}, both).identity, laptop);
    EXPECT_EQ(screenAt({1280, 10}, both).identity, monitor);
    EXPECT_EQ(screenAt({600, 900}, both).identity, laptop);
    EXPECT_EQ(screenAt({9000, -50}, both).identity, monitor);
}

TEST(Screens, MovedWidgetBelongsToTheScreenThatHoldsMostOfIt) {
    const WidgetPlace moved = movedTo({1000, 100}, onMonitor, both);
    EXPECT_EQ(moved.screen, laptop);
    EXPECT_EQ(movedTo({1200, 100}, onMonitor, both).screen, monitor);
}

TEST(Screens, MovedWidgetIsKeptRelativeToItsScreen) {
    EXPECT_EQ(movedTo({1304, 32}, onMonitor, both).position, QPoint(24, 32));
}

TEST(Screens, WidgetDroppedHalfBehindAPanelIsMovedOutOfIt) {
    EXPECT_EQ(movedTo({200, 700}, onMonitor, both).position, QPoint(200, 590));
}

TEST(Screens, WidgetDroppedBesideEveryScreenComesBackToOne) {
    const WidgetPlace moved = movedTo({-5000, -5000}, onMonitor, both);
    EXPECT_EQ(shownGeometry(moved, both).topLeft(), QPoint(0, 0));
}

}  // namespace
}  // namespace kelmar::desktop
