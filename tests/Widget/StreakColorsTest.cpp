#include <gtest/gtest.h>

#include "Widget/Colors.h"
#include "Widget/StreakColors.h"

namespace kelmar::widget {
namespace {

using kit::Family;
using kit::primary;
using kit::RenderingMode;
using kit::secondary;
using kit::white;

const Mood milestone = mood::Milestone{7};
const Mood done = mood::Done{};
const Mood early = mood::AtRisk{.late = false};
const Mood late = mood::AtRisk{.late = true};
const Mood start = mood::Start{};

StreakColors colorsOf(const Mood& mood, Family family, RenderingMode mode) {
    return streakColors(mood, {.family = family, .contentSize = {}, .renderingMode = mode});
}

TEST(StreakGround, IsOrangeOnlyWhereTodayCountsInFullColour) {
    for (const Mood& mood : {milestone, done, early, late, start}) {
        for (const RenderingMode mode : kit::renderingModes) {
            const bool isOrange =
                (mood == milestone || mood == done) && mode == RenderingMode::fullColor;
            EXPECT_EQ(streakGround(mood, mode),
                      isOrange ? StreakGround::orange : StreakGround::plain);
        }
    }
}

struct HeadlineRow {
    const char* what;
    Mood mood;
    kit::Color smallFull;
    kit::Color mediumFull;
    kit::Color smallTinted;
    kit::Color mediumTinted;
};

TEST(StreakColors, TheHeadlineIsColouredByMoodFamilyAndMode) {
    const std::vector<HeadlineRow> rows{
        {"milestone", milestone, white, white, primary, primary},
        {"done", done, white, white, primary, primary},
        {"early", early, secondary, primary, secondary, primary},
        {"late", late, streakOrange, streakOrange, primary, primary},
        {"start", start, secondary, primary, secondary, primary},
    };
    const auto line = [](const HeadlineRow& row, Family family, RenderingMode mode) {
        return colorsOf(row.mood, family, mode).headline;
    };
    for (const HeadlineRow& row : rows) {
        EXPECT_EQ(line(row, Family::small, RenderingMode::fullColor), row.smallFull) << row.what;
        EXPECT_EQ(line(row, Family::medium, RenderingMode::fullColor), row.mediumFull) << row.what;
        for (const RenderingMode mode : {RenderingMode::accented, RenderingMode::vibrant}) {
            EXPECT_EQ(line(row, Family::small, mode), row.smallTinted) << row.what;
            EXPECT_EQ(line(row, Family::medium, mode), row.mediumTinted) << row.what;
        }
    }
}

TEST(StreakColors, FlameNumberAndSmallTextsAreWhiteOnOrange) {
    for (const Family family : {Family::small, Family::medium}) {
        for (const Mood& mood : {milestone, done}) {
            const StreakColors colors = colorsOf(mood, family, RenderingMode::fullColor);
            EXPECT_EQ(colors.flame, white);
            EXPECT_EQ(colors.number, white);
            EXPECT_EQ(colors.smallText, white.withOpacity(0.88));
        }
    }
}

TEST(StreakColors, ElsewhereTheFlameIsFaintUntilTodayCounts) {
    for (const RenderingMode mode : kit::renderingModes) {
        for (const Mood& mood : {early, late, start}) {
            const StreakColors colors = colorsOf(mood, Family::medium, mode);
            EXPECT_EQ(colors.flame, secondary.withOpacity(0.55));
            EXPECT_EQ(colors.number, primary);
            EXPECT_EQ(colors.smallText, secondary);
        }
    }
    for (const RenderingMode mode : {RenderingMode::accented, RenderingMode::vibrant}) {
        for (const Mood& mood : {milestone, done}) {
            const StreakColors colors = colorsOf(mood, Family::medium, mode);
            EXPECT_EQ(colors.flame, primary);
            EXPECT_EQ(colors.number, primary);
            EXPECT_EQ(colors.smallText, secondary);
        }
    }
}

}  // namespace
}  // namespace kelmar::widget
