#include <QJsonDocument>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Desktop/Arrangement.h"

namespace kelmar::desktop {
namespace {

const Arrangement twoWidgets{
    .renderingMode = kit::RenderingMode::accented,
    .lock = ArrangementLock::locked,
    .widgets = {{.kind = "DueToday",
                 .family = kit::Family::large,
                 .screen = {"HDMI-1", QRect(0, 0, 1920, 1080)},
                 .position = {1540, 16}},
                {.kind = "Wochenübersicht",
                 .family = kit::Family::small,
                 .screen = {"DP-2", QRect(-1280, 64, 1280, 1024), "Büro 24", "A7"},
                 .position = {0, 408}}}};

TEST(Arrangement, ComesBackAsItWasKept) {
    const auto decoded = decodeArrangement(encodeArrangement(twoWidgets));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(*decoded, twoWidgets);
}

TEST(Arrangement, FileOfAnEarlierProgramIsOpenAndKnowsNoDevices) {
    const auto decoded = decodeArrangement(
        R"({"version": 1, "renderingMode": "vibrant", "widgets": [{"kind": "A", "family": "small",
            "screen": {"name": "S", "x": 0, "y": 0, "width": 1, "height": 1}, "x": 8, "y": 16}]})");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(*decoded, (Arrangement{.renderingMode = kit::RenderingMode::vibrant,
                                     .lock = ArrangementLock::open,
                                     .widgets = {{.kind = "A",
                                                  .family = kit::Family::small,
                                                  .screen = {"S", QRect(0, 0, 1, 1)},
                                                  .position = {8, 16}}}}));
}

TEST(Arrangement, WhatALaterProgramWroteBesideIsKept) {
    const QByteArray later =
        R"({"version": 1, "renderingMode": "vibrant", "wallpaper": {"tint": 0.5}, "locked": true,
            "widgets": [{"kind": "A", "family": "small", "opacity": 0.25, "x": 8, "y": 16,
            "screen": {"name": "S", "x": 0, "y": 0, "width": 1, "height": 1}}]})";
    const auto decoded = decodeArrangement(later);
    ASSERT_TRUE(decoded);
    const QJsonObject kept = QJsonDocument::fromJson(encodeArrangement(*decoded)).object();
    EXPECT_EQ(kept, QJsonDocument::fromJson(later).object());
}

TEST(Arrangement, EmptyDesktopIsAnArrangementToo) {
    const auto decoded = decodeArrangement(encodeArrangement({}));
    ASSERT_TRUE(decoded);
    EXPECT_TRUE(decoded->widgets.empty());
}

RC_GTEST_PROP(Arrangement, AnyPlacesComeBack, ()) {
    const auto coordinate = rc::gen::inRange(-20'000, 20'000);
    Arrangement arrangement{.renderingMode = *rc::gen::elementOf(kit::renderingModes),
                            .widgets = {}};
    const int count = *rc::gen::inRange(0, 6);
    for (int i = 0; i < count; ++i) {
        arrangement.widgets.push_back(
            {.kind = *rc::gen::container<std::string>(rc::gen::inRange<char>(' ', '~')),
             .family = *rc::gen::elementOf(kit::families),
             .screen = {"S", QRect(*coordinate, *coordinate, 800, 600)},
             .position = {*coordinate, *coordinate}});
    }
    const auto decoded = decodeArrangement(encodeArrangement(arrangement));
    RC_ASSERT(bool(decoded));
    RC_ASSERT(*decoded == arrangement);
}

struct DamagedCase {
    const char* name;
    const char* json;
    const char* reason;
};

class DamagedArrangement : public testing::TestWithParam<DamagedCase> {};

TEST_P(DamagedArrangement, IsRefusedWithItsReason) {
    const auto decoded = decodeArrangement(GetParam().json);
    ASSERT_FALSE(decoded);
    EXPECT_EQ(decoded.failure().reason, GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    All, DamagedArrangement,
    testing::Values(
        DamagedCase{"CutOff", R"({"version": 1, "widgets": [)", "unterminated array"},
        DamagedCase{"NoObject", "[]", "not a JSON object"},
        DamagedCase{"Empty", "", "illegal value"},
        DamagedCase{"NewerVersion",
                    R"({"version": 2, "renderingMode": "fullColor", "widgets": []})",
                    "\"version\" is that of a later program"},
        DamagedCase{"NoVersion", R"({"renderingMode": "fullColor", "widgets": []})",
                    "\"version\" is not a reasonable integer"},
        DamagedCase{"OlderVersion",
                    R"({"version": 0, "renderingMode": "fullColor", "widgets": []})",
                    "\"version\" is not one that this program knows"},
        DamagedCase{
            "LockThatIsNoFlag",
            R"({"version": 1, "renderingMode": "fullColor", "locked": "no", "widgets": []})",
            "\"locked\" is neither true nor false"},
        DamagedCase{"ModelThatIsNoText",
                    R"({"version": 1, "renderingMode": "fullColor", "widgets": [{"kind": "A",
                        "family": "small", "screen": {"name": "S", "x": 0, "y": 0, "width": 1,
                        "height": 1, "model": 7}, "x": 0, "y": 0}]})",
                    "\"model\" is not a text"},
        DamagedCase{"NoWidgets", R"({"version": 1, "renderingMode": "fullColor"})",
                    "\"widgets\" is not an array"},
        DamagedCase{"UnknownMode", R"({"version": 1, "renderingMode": "sepia", "widgets": []})",
                    "\"renderingMode\" has an unknown value"},
        DamagedCase{"WidgetThatIsNoObject",
                    R"({"version": 1, "renderingMode": "fullColor", "widgets": [7]})",
                    "\"kind\" is not a text"},
        DamagedCase{"UnknownFamily",
                    R"({"version": 1, "renderingMode": "fullColor", "widgets": [{"kind": "A",
                        "family": "huge", "screen": {"name": "S", "x": 0, "y": 0, "width": 1,
                        "height": 1}, "x": 0, "y": 0}]})",
                    "\"family\" has an unknown value"},
        DamagedCase{"PlaceInFractions",
                    R"({"version": 1, "renderingMode": "fullColor", "widgets": [{"kind": "A",
                        "family": "small", "screen": {"name": "S", "x": 0, "y": 0, "width": 1,
                        "height": 1}, "x": 0.5, "y": 0}]})",
                    "\"x\" is not a reasonable integer"},
        DamagedCase{"PlaceBeyondAnyScreen",
                    R"({"version": 1, "renderingMode": "fullColor", "widgets": [{"kind": "A",
                        "family": "small", "screen": {"name": "S", "x": 0, "y": 0, "width": 1,
                        "height": 1}, "x": 1e300, "y": 0}]})",
                    "\"x\" is not a reasonable integer"}),
    [](const auto& damaged) { return std::string(damaged.param.name); });

Arrangement arrangementOf(std::size_t count, std::size_t kindLength) {
    Arrangement arrangement;
    arrangement.widgets.assign(count, {.kind = std::string(kindLength, 'x'),
                                       .family = kit::Family::small,
                                       .screen = {},
                                       .position = {}});
    return arrangement;
}

TEST(Arrangement, HoldsAThousandWidgetsAndNoMore) {
    EXPECT_TRUE(decodeArrangement(encodeArrangement(arrangementOf(1'000, 1))));
    const auto more = decodeArrangement(encodeArrangement(arrangementOf(1'001, 1)));
    ASSERT_FALSE(more);
    EXPECT_EQ(more.failure().reason, "\"widgets\" has more of them than any desktop");
}

TEST(Arrangement, HoldsNoKindThatIsTooLongToBeAName) {
    EXPECT_TRUE(decodeArrangement(encodeArrangement(arrangementOf(1, 200))));
    for (const std::size_t length : {201U, 1'000'000U}) {
        const auto longer = decodeArrangement(encodeArrangement(arrangementOf(1, length)));
        ASSERT_FALSE(longer);
        EXPECT_EQ(longer.failure().reason, "\"kind\" is too long to be a name");
    }
}

}  // namespace
}  // namespace kelmar::desktop
