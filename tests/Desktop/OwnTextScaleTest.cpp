#include <gtest/gtest.h>

#include "Desktop/OwnTextScale.h"

namespace kelmar::desktop {
namespace {

struct Case {
    const char* condition;
    double wanted;
    double screenScale;
    double own;
};

TEST(OwnTextScale, IsWhatTheScreensScaleDoesNotHold) {
    constexpr auto dots = [](double perInch) { return perInch / 96; };
    const Case cases[] = {
        {"nothing is wanted", 1, 1, 1},
        {"nothing is wanted of a large screen", 1, dots(120), 1},
        {"nothing is wanted of a very fine screen", 1, 2, 1},
        {"the screen is usual", 1.25, 1, 1.25},
        {"the screen is fine for another reason", 1.25, 2, 1.25},
        {"the screen is somewhat larger for another reason", 1.5, dots(120), 1.5},
        {"the resolution holds it", 1.25, dots(120), 1},
        {"the resolution holds it beside a window scale of 2", 1.25, dots(240), 1},
        {"the resolution holds it beside a window scale of 3", 1.5, dots(432), 1},
        {"the resolution holds it and was cut to whole dots", 1.1, dots(105), 1},
        {"the resolution holds one that is larger than any of ours", 3, dots(288), 1},
        {"one that is larger than any of ours is told once", 3, 1, 2},
    };
    for (const Case& each : cases) {
        EXPECT_DOUBLE_EQ(ownTextScale(each.wanted, each.screenScale), each.own) << each.condition;
    }
}

}  // namespace
}  // namespace kelmar::desktop
