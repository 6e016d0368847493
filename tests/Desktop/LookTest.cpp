#include <gtest/gtest.h>

#include "Desktop/Look.h"
#include "Kit/Metrics.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Desktop/RecordingLog.h"
#include "tests/Desktop/ToldSettings.h"

namespace kelmar::desktop {
namespace {

class LookTest : public testing::Test {
protected:
    void name(const char* font) { tell(settings_, setting::gnomeInterface, "font-name", font); }
    void magnify(double scale) {
        tell(settings_, setting::gnomeInterface, "text-scaling-factor", scale);
    }

    test::RecordingLog log_;
    PortalSettings settings_{log_};
    Look look_{settings_, SchemeChoice::light, foundFonts()};
};

TEST_F(LookTest, OwnTextsAreInTheDesktopsFont) {
    EXPECT_EQ(look_.font(13).families().first(), "Inter");
    name("Quicksand Bold 11");
    EXPECT_EQ(look_.font(13).families().first(), "Quicksand");
    EXPECT_EQ(look_.menuFont().families().first(), "Quicksand");
    EXPECT_EQ(look_.font(13, kit::FontWeight::bold).weight(), QFont::Bold);
}

TEST_F(LookTest, OwnTextsGrowWithTheDesktops) {
    EXPECT_EQ(look_.font(13).pixelSize(), 13);
    EXPECT_EQ(look_.menuFont().pixelSize(), 13);
    EXPECT_EQ(look_.heldLength(24), 24);
    magnify(1.5);
    EXPECT_EQ(look_.font(13).pixelSize(), 20);
    EXPECT_EQ(look_.menuFont().pixelSize(), 20);
    EXPECT_EQ(look_.heldLength(24), 36);
    magnify(1);
    EXPECT_EQ(look_.font(13).pixelSize(), 13);
}

TEST_F(LookTest, MenusHaveTheSizeOfTheDesktopsFontAndOtherTextsTheirOwn) {
    name("Inter 15");
    EXPECT_EQ(look_.menuFont().pixelSize(), 20);
    EXPECT_EQ(look_.font(13).pixelSize(), 13);
    magnify(1.5);
    EXPECT_EQ(look_.menuFont().pixelSize(), 30);
}

TEST_F(LookTest, SizeThatMustBeAMistakeLeavesMenusUsable) {
    name("Inter 1");
    EXPECT_EQ(look_.menuFont().pixelSize(), 9);
    name("Inter 1000000");
    EXPECT_EQ(look_.menuFont().pixelSize(), 48);
}

TEST_F(LookTest, LargerTextsLeaveRoomForFewerOfThem) {
    magnify(2);
    look_.setRenderingMode(kit::RenderingMode::vibrant);
    const kit::Environment environment = look_.environment(kit::Family::medium);
    const kit::Size room = kit::contentSize(kit::Family::medium);
    EXPECT_EQ(environment.family, kit::Family::medium);
    EXPECT_EQ(environment.contentSize, (kit::Size{room.width / 2, room.height / 2}));
    EXPECT_EQ(environment.renderingMode, kit::RenderingMode::vibrant);
}

}  // namespace
}  // namespace kelmar::desktop
