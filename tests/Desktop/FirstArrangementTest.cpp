#include <gtest/gtest.h>

#include "Desktop/FirstArrangement.h"

namespace kelmar::desktop {
namespace {

const ScreenArea screen{{"eDP-1", QRect(0, 0, 1280, 800)}, QRect(0, 32, 1280, 768)};

kit::WidgetDescriptor widget(const char* kind, std::vector<kit::Family> families) {
    return {.kind = kind, .displayName = kind, .description = "", .families = std::move(families)};
}

const std::vector<kit::Family> all(kit::families.begin(), kit::families.end());

TEST(FirstArrangement, SingleWidgetIsLarge) {
    const auto places = firstWidgets({.widgets = {widget("A", all)}, .controls = {}}, {screen});
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places[0].family, kit::Family::large);
    EXPECT_EQ(shownGeometry(places[0], {screen}), QRect(900, 48, 364, 382));
}

TEST(FirstArrangement, SeveralWidgetsAreMediumInTheirOrderFromTheTop) {
    const auto places = firstWidgets(
        {.widgets = {widget("A", all), widget("B", all), widget("C", all)}, .controls = {}},
        {screen});
    ASSERT_EQ(places.size(), 3U);
    for (std::size_t index = 0; index < places.size(); ++index) {
        EXPECT_EQ(places[index].family, kit::Family::medium);
        EXPECT_EQ(shownGeometry(places[index], {screen}),
                  QRect(900, 48 + 192 * static_cast<int>(index), 364, 170));
    }
}

TEST(FirstArrangement, WidgetWithoutTheWishedSizeTakesItsFirst) {
    const auto places = firstWidgets(
        {.widgets = {widget("A", {kit::Family::small}), widget("B", {kit::Family::large})},
         .controls = {}},
        {screen});
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(places[0].family, kit::Family::small);
    EXPECT_EQ(places[1].family, kit::Family::large);
}

TEST(FirstArrangement, EmptyBundleGivesAnEmptyDesktop) {
    EXPECT_TRUE(firstWidgets({}, {screen}).empty());
}

TEST(FirstArrangement, FreshWidgetKeepsClearOfThoseThatAreThere) {
    const WidgetPlace there = freshPlace("A", kit::Family::large, {}, {screen}, screen);
    const WidgetPlace fresh = freshPlace("A", kit::Family::small, {there}, {screen}, screen);
    EXPECT_FALSE(shownGeometry(fresh, {screen}).intersects(shownGeometry(there, {screen})));
}

TEST(FirstArrangement, FreshWidgetStandsOnTheScreenThatIsAskedFor) {
    const ScreenArea second{{"HDMI-1", QRect(1280, 0, 1920, 1080)}, QRect(1280, 0, 1920, 1080)};
    const WidgetPlace fresh = freshPlace("A", kit::Family::small, {}, {screen, second}, second);
    EXPECT_EQ(fresh.screen, second.identity);
    EXPECT_EQ(shownGeometry(fresh, {screen, second}), QRect(3014, 16, 170, 170));
}

}  // namespace
}  // namespace kelmar::desktop
