#include <gtest/gtest.h>

#include "Widget/Colors.h"
#include "Widget/StreakWeek.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using kit::FontWeight;
using kit::RenderingMode;
using testing::allOf;
using testing::TestSurroundings;
using testing::textsOf;
using Streak = shared::WidgetData::Streak;

/// What a mark can lie on: the orange ground, or a plain one in one of the modes.
struct Place {
    StreakGround ground;
    RenderingMode mode;
};

constexpr Place onOrange{StreakGround::orange, RenderingMode::fullColor};
constexpr Place fullColor{StreakGround::plain, RenderingMode::fullColor};
constexpr Place accented{StreakGround::plain, RenderingMode::accented};
constexpr Place vibrant{StreakGround::plain, RenderingMode::vibrant};

constexpr kit::Color testFrost = kit::Color::rgb(0.1, 0.2, 0.3);

StreakWeek weekAt(const TestSurroundings& test, Place place) {
    return {place.ground, place.mode, testFrost, test.localeTexts};
}

kit::View markAt(Place place, Streak::Mark mark, bool isToday, double size = 20) {
    const TestSurroundings test;
    return weekAt(test, place).mark({.date = test.at(0), .mark = mark, .isToday = isToday}, size);
}

TEST(StreakMark, LiesInASquareOfItsSize) {
    for (const auto mark : {Streak::Mark::streak, Streak::Mark::covered, Streak::Mark::none}) {
        const kit::View view = markAt(fullColor, mark, false, 19);
        EXPECT_EQ(std::get<kit::Frame>(view.node).lengths,
                  (kit::FrameLengths{.width = 19, .height = 19}));
        EXPECT_EQ(std::get<kit::Frame>(view.node).alignment, kit::Alignment{});
        EXPECT_EQ(allOf<kit::Shape>(view).size(), 1U);
        EXPECT_EQ(allOf<kit::Shape>(view)[0].shape, kit::ShapeKind::circle);
    }
}

struct CountedRow {
    Place place;
    kit::Color fill;
    kit::Color check;
};

TEST(StreakMark, OfADayThatCountedIsADotWithACheck) {
    for (const CountedRow& row : {CountedRow{onOrange, kit::white, streakOrange},
                                  CountedRow{fullColor, streakOrange, kit::white},
                                  CountedRow{accented, kit::primary, kit::clear},
                                  CountedRow{vibrant, kit::primary, kit::clear}}) {
        for (const bool isToday : {false, true}) {
            const kit::View view = markAt(row.place, Streak::Mark::streak, isToday);
            EXPECT_EQ(allOf<kit::Shape>(view)[0],
                      (kit::Shape{.shape = kit::ShapeKind::circle, .fill = row.fill}));
            EXPECT_EQ(allOf<kit::Symbol>(view),
                      std::vector{(kit::Symbol{.name = "checkmark",
                                               .font = kit::Font::system(10, FontWeight::black),
                                               .color = row.check})});
        }
    }
}

struct CoveredRow {
    Place place;
    kit::Color fill;
    kit::Color ring;
    kit::Color flake;
};

TEST(StreakMark, OfACoveredDayIsAFrostedRingWithASnowflake) {
    for (const CoveredRow& row :
         {CoveredRow{onOrange, kit::white, kit::white, testFrost},
          CoveredRow{fullColor, testFrost.withOpacity(0.15), testFrost, testFrost},
          CoveredRow{accented, kit::clear, kit::primary, kit::primary},
          CoveredRow{vibrant, kit::clear, kit::primary, kit::primary}}) {
        const kit::View view = markAt(row.place, Streak::Mark::covered, false);
        EXPECT_EQ(allOf<kit::Shape>(view)[0], (kit::Shape{.shape = kit::ShapeKind::circle,
                                                          .fill = row.fill,
                                                          .stroke = row.ring,
                                                          .lineWidth = 1.5}));
        EXPECT_EQ(allOf<kit::Symbol>(view),
                  std::vector{(kit::Symbol{.name = "snowflake",
                                           .font = kit::Font::system(20 * 0.52, FontWeight::bold),
                                           .color = row.flake})});
    }
}

struct OpenRow {
    Place place;
    kit::Color today;
    kit::Color other;
};

TEST(StreakMark, OfAnyOtherDayIsARingStrongerForToday) {
    const kit::Color strong = kit::primary.withOpacity(0.7);
    const kit::Color faint = kit::secondary.withOpacity(0.45);
    const kit::Color whitish = kit::white.withOpacity(0.6);
    for (const OpenRow& row : {OpenRow{onOrange, whitish, whitish},
                               {fullColor, strong, faint},
                               {accented, strong, faint},
                               {vibrant, strong, faint}}) {
        const kit::View today = markAt(row.place, Streak::Mark::none, true);
        const kit::View other = markAt(row.place, Streak::Mark::none, false);
        EXPECT_EQ(
            allOf<kit::Shape>(today)[0],
            (kit::Shape{.shape = kit::ShapeKind::circle, .stroke = row.today, .lineWidth = 2}));
        EXPECT_EQ(
            allOf<kit::Shape>(other)[0],
            (kit::Shape{.shape = kit::ShapeKind::circle, .stroke = row.other, .lineWidth = 1}));
        EXPECT_TRUE(allOf<kit::Symbol>(today).empty());
        EXPECT_TRUE(allOf<kit::Symbol>(other).empty());
    }
}

std::vector<Streak::Day> usualWeek(const TestSurroundings& test) {
    return Streak{.count = 0, .best = 0, .lastDate = "", .hist = {}, .freezeNext = ""}.recent(
        test.at(15), *test.calendar);
}

TEST(StreakWeek, HasAColumnADayWithItsWeekdayAboveItsMark) {
    const TestSurroundings test;
    const kit::View row = weekAt(test, fullColor).week(usualWeek(test), 15);
    const auto& stack = std::get<kit::HStack>(row.node);
    EXPECT_EQ(stack.alignment, kit::VerticalAlignment::center);
    EXPECT_EQ(textsOf(row), (std::vector<std::string>{"F", "S", "S", "M", "T", "W", "T"}));
    const auto columns = allOf<kit::VStack>(row);
    ASSERT_EQ(columns.size(), 7U);
    for (const kit::VStack& column : columns) {
        ASSERT_EQ(column.children.size(), 2U);
        EXPECT_EQ(std::get<kit::Text>(column.children[0].node).font,
                  kit::Font::system(9, FontWeight::heavy));
        EXPECT_EQ(std::get<kit::Frame>(column.children[1].node).lengths,
                  (kit::FrameLengths{.width = 15, .height = 15}));
    }
    EXPECT_EQ(allOf<kit::Shape>(columns.back())[0].lineWidth, 2);
    EXPECT_EQ(allOf<kit::Shape>(columns.front())[0].lineWidth, 1);
}

struct LetterRow {
    Place place;
    kit::Color today;
    kit::Color other;
};

TEST(StreakWeek, TodaysLetterIsStronger) {
    const TestSurroundings test;
    for (const LetterRow& row : {LetterRow{onOrange, kit::white, kit::white.withOpacity(0.8)},
                                 {fullColor, kit::primary, kit::secondary},
                                 {accented, kit::primary, kit::secondary},
                                 {vibrant, kit::primary, kit::secondary}}) {
        const auto letters = allOf<kit::Text>(weekAt(test, row.place).week(usualWeek(test), 15));
        ASSERT_EQ(letters.size(), 7U);
        for (std::size_t index = 0; index < 6; ++index)
            EXPECT_EQ(letters[index].color, row.other);
        EXPECT_EQ(letters[6].color, row.today);
    }
}

TEST(StreakWeek, ItsLettersFollowTheLocale) {
    const TestSurroundings test("de_DE", "Europe/Berlin");
    EXPECT_EQ(textsOf(weekAt(test, fullColor).week(usualWeek(test), 15)),
              (std::vector<std::string>{"F", "S", "S", "M", "D", "M", "D"}));
}

}  // namespace
}  // namespace kelmar::widget
