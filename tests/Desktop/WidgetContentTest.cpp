#include <gtest/gtest.h>

#include "Desktop/WidgetContent.h"
#include "tests/Desktop/Pressable.h"

namespace kelmar::desktop {
namespace {

const std::string url = "probe://whole";

class WidgetContentTest : public testing::Test {
protected:
    [[nodiscard]] WidgetContent content(
        const kit::DrawnEntry& entry, paint::Redaction redaction = paint::Redaction::shown) const {
        return {entry, kit::Family::medium, redaction, layout::Direction::leftToRight, resources_};
    }

    paint::PaintResources resources_{paint::FontSet("Inter")};
};

TEST_F(WidgetContentTest, ThereIsNothingInNoContent) {
    const WidgetContent none;
    EXPECT_EQ(none.picture(), nullptr);
    EXPECT_TRUE(none.boxes().empty());
    EXPECT_TRUE(none.readableBoxes("Probe").empty());
    EXPECT_TRUE(none.targets().empty());
    EXPECT_EQ(none.targetAt({36, 36}), std::nullopt);
}

TEST_F(WidgetContentTest, RedactedContentIsDrawnButNeitherReadNorPressed) {
    const WidgetContent redacted = content(entry(url), paint::Redaction::redacted);
    EXPECT_NE(redacted.picture(), nullptr);
    EXPECT_TRUE(redacted.boxes().empty());
    EXPECT_TRUE(redacted.readableBoxes("Probe").empty());
    EXPECT_TRUE(redacted.targets().empty());
    EXPECT_EQ(redacted.targetAt({36, 36}), std::nullopt);
}

TEST_F(WidgetContentTest, WidgetsOwnUrlIsReadFirstUnderTheWidgetsName) {
    const layout::PlacedBoxes boxes = content(entry(url)).readableBoxes("Probe");
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[0].label, "Probe");
    EXPECT_EQ(boxes[0].action, layout::Action(layout::LinkAction{url}));
    EXPECT_EQ(boxes[0].rect, (layout::Rect{0, 0, 364, 170}));
    EXPECT_EQ(content(entry()).readableBoxes("Probe").size(), 2U);
}

TEST_F(WidgetContentTest, OnlyWhatIsReadIsAmongTheReadable) {
    const WidgetContent shown = content(entry());
    EXPECT_LT(shown.readableBoxes("Probe").size(), shown.boxes().size());
    EXPECT_EQ(shown.targets().size(), 2U);
}

TEST_F(WidgetContentTest, PressBesideEveryActionMeansTheWholeWidgetIfItHasAnUrl) {
    const layout::Point beside{besideAll.x() * 1.0, besideAll.y() * 1.0};
    EXPECT_EQ(content(entry()).targetAt(beside), std::nullopt);
    const auto whole = content(entry(url)).targetAt(beside);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->action, layout::Action(layout::LinkAction{url}));
    const auto pressed = content(entry(url)).targetAt({button.x() * 1.0, button.y() * 1.0});
    ASSERT_TRUE(pressed);
    EXPECT_EQ(pressed->action, layout::Action(layout::ButtonAction{press}));
}

}  // namespace
}  // namespace kelmar::desktop
