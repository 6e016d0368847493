#include <gtest/gtest.h>

#include "Widget/Colors.h"
#include "Widget/DueRows.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using kit::Family;
using testing::allOf;
using testing::item;
using testing::TestSurroundings;
using testing::textSaying;
using testing::textsOf;

constexpr system::Date now = TestSurroundings::usualNow;

DueRows rowsOf(const TestSurroundings& test, Family family = Family::medium) {
    return {now, family, plannerAccent, test.surroundings};
}

struct WhenRow {
    const char* what;
    system::Date due;
    bool hasTime;
    RowGroup group;
    std::string text;
};

TEST(DueWhen, SaysWhenAnItemIsDue) {
    const TestSurroundings test;
    const std::vector<WhenRow> rows{
        {"a minute ago, today", now + -60, true, RowGroup::today, "Overdue"},
        {"a minute ago, another group", now + -60, true, RowGroup::other, "Overdue"},
        {"a minute ago without a time", now + -60, false, RowGroup::today, "Overdue"},
        {"this very moment", now, true, RowGroup::today, test.localeTexts.shortTime(now)},
        {"tonight", test.at(20, 30), true, RowGroup::today,
         test.localeTexts.shortTime(test.at(20, 30))},
        {"today without a time", test.at(23, 59), false, RowGroup::today, "Today"},
        {"at midnight", test.at(0, 0, 1), true, RowGroup::other, "Tomorrow"},
        {"late tomorrow without a time", test.at(23, 59, 1), false, RowGroup::other, "Tomorrow"},
        {"the day after tomorrow", test.at(0, 0, 2), true, RowGroup::other, "Sat, Oct 11"},
        {"a week ahead", test.at(9, 0, 7), false, RowGroup::other, "Thu, Oct 16"},
        {"later today in another group", test.at(20), true, RowGroup::other, "Thu, Oct 9"},
    };
    for (const WhenRow& row : rows) {
        auto each = item("x", row.due);
        each.hasTime = row.hasTime;
        EXPECT_EQ(rowsOf(test).when(each, row.group), row.text) << row.what;
    }
}

TEST(DueWhen, TheTimeFollowsTheLocale) {
    const TestSurroundings german("de_DE", "Europe/Berlin");
    EXPECT_EQ(rowsOf(german).when(item("x", german.at(22, 5)), RowGroup::today), "22:05");
}

TEST(DueRow, TicksBesideALinkThatOpensTheAssignment) {
    const TestSurroundings test;
    auto each = item("x/y z", test.at(20));
    each.title = "Essay";
    const kit::View row = rowsOf(test).row(each, RowGroup::today);

    const auto& stack = std::get<kit::HStack>(row.node);
    EXPECT_EQ(stack.spacing, 7);
    ASSERT_EQ(stack.children.size(), 2U);
    const auto& tick = std::get<kit::Button>(stack.children[0].node);
    EXPECT_EQ(tick.intent, (kit::Intent{.name = "TickOffIntent",
                                        .parameters = {{"id", std::string("x/y z")},
                                                       {"name", std::string("Essay")}}}));
    EXPECT_EQ(tick.label, "Mark Essay done");
    EXPECT_EQ(
        std::get<kit::Symbol>(tick.child->node),
        (kit::Symbol{.name = "circle", .font = kit::Font::system(16), .color = kit::secondary}));
    const auto& link = std::get<kit::Link>(stack.children[1].node);
    EXPECT_EQ(link.url, "kelmarplanner://assignment/x/y%20z");
    EXPECT_TRUE(allOf<kit::Button>(*link.child).empty());
}

struct RowSizes {
    RowGroup group;
    double tick;
    double bar;
    double title;
    double line;
};

TEST(DueRow, IsALittleLargerInTodaysGroup) {
    const TestSurroundings test;
    for (const RowSizes& sizes :
         {RowSizes{RowGroup::today, 16, 30, 13, 11}, RowSizes{RowGroup::other, 15, 24, 12, 10}}) {
        const auto each = item("x", test.at(9, 0, 1));
        const kit::View row = rowsOf(test).row(each, sizes.group);
        EXPECT_EQ(allOf<kit::Symbol>(row).front().font, kit::Font::system(sizes.tick));
        const kit::Text title = textSaying(row, "Title x");
        EXPECT_EQ(title.font, kit::Font::system(sizes.title, kit::FontWeight::medium));
        EXPECT_EQ(title.lineLimit, 1);
        EXPECT_EQ(title.color, kit::primary);
        const kit::Text when = textSaying(row, rowsOf(test).when(each, sizes.group));
        EXPECT_EQ(when.font, kit::Font::system(sizes.line, kit::FontWeight::medium));
        EXPECT_EQ(when.color, kit::secondary);
        const kit::Text className = textSaying(row, "Biology");
        EXPECT_EQ(className.font.size, sizes.line);
        EXPECT_EQ(className.color, kit::secondary);
        EXPECT_EQ(className.lineLimit, 1);
        const auto frames = allOf<kit::Frame>(row);
        EXPECT_EQ(std::ranges::count_if(frames,
                                        [&](const kit::Frame& frame) {
                                            return frame.lengths ==
                                                   kit::FrameLengths{.width = 3,
                                                                     .height = sizes.bar};
                                        }),
                  1);
    }
}

TEST(DueRow, OverdueIsRedAndOnlyThat) {
    const TestSurroundings test;
    const kit::View row = rowsOf(test).row(item("x", now + -60), RowGroup::today);
    EXPECT_EQ(textSaying(row, "Overdue").color, kit::red);
    EXPECT_EQ(textSaying(row, "Biology").color, kit::secondary);
}

TEST(DueRow, TheBarHasTheColourOfTheClassOrElseTheSecondaryColour) {
    const TestSurroundings test;
    auto each = item("x", test.at(20));
    const auto barOf = [&] {
        return allOf<kit::Shape>(rowsOf(test).row(each, RowGroup::today)).front();
    };
    EXPECT_EQ(barOf().shape, kit::ShapeKind::roundedRectangle);
    EXPECT_EQ(barOf().cornerRadius, 1.5);
    EXPECT_EQ(barOf().fill, kit::Color::rgb(16.0 / 255, 185.0 / 255, 129.0 / 255));
    each.classColor = "no colour";
    EXPECT_EQ(barOf().fill, kit::secondary);
}

TEST(DueCompactRow, HasATickABarAndATitleButNoLink) {
    const TestSurroundings test;
    const kit::View row = rowsOf(test, Family::small).compactRow(item("x", test.at(20)));
    const auto& stack = std::get<kit::HStack>(row.node);
    EXPECT_EQ(stack.spacing, 5);
    EXPECT_EQ(stack.children.size(), 3U);
    EXPECT_EQ(allOf<kit::Symbol>(row).front().font, kit::Font::system(13));
    EXPECT_EQ(allOf<kit::Frame>(row).front().lengths,
              (kit::FrameLengths{.width = 3, .height = 14}));
    EXPECT_EQ(textSaying(row, "Title x").font, kit::Font::system(11, kit::FontWeight::medium));
    EXPECT_EQ(textSaying(row, "Title x").lineLimit, 1);
    EXPECT_TRUE(allOf<kit::Link>(row).empty());
    EXPECT_EQ(allOf<kit::Button>(row).size(), 1U);
}

TEST(DueUndoBar, SaysDoneOnTheSmallFamilyAndMarkedDoneElsewhere) {
    const TestSurroundings test;
    const shared::WidgetTicks::Tick tick{.id = "x", .note = {.title = "Essay", .at = now}};
    using Texts = std::vector<std::string>;
    EXPECT_EQ(textsOf(rowsOf(test, Family::small).undoBar(tick)), (Texts{"Done", "Undo"}));
    EXPECT_EQ(textsOf(rowsOf(test, Family::medium).undoBar(tick)), (Texts{"Marked done", "Undo"}));
    EXPECT_EQ(textsOf(rowsOf(test, Family::large).undoBar(tick)), (Texts{"Marked done", "Undo"}));
}

TEST(DueUndoBar, TakesTheTickBack) {
    const TestSurroundings test;
    const kit::View bar = rowsOf(test).undoBar({.id = "x", .note = {.title = "Essay", .at = now}});
    const auto buttons = allOf<kit::Button>(bar);
    ASSERT_EQ(buttons.size(), 1U);
    EXPECT_EQ(buttons[0].intent,
              (kit::Intent{.name = "UndoTickIntent", .parameters = {{"id", std::string("x")}}}));
    const kit::Text undo = textSaying(bar, "Undo");
    EXPECT_EQ(undo.font, kit::Font::system(11, kit::FontWeight::semibold));
    EXPECT_EQ(undo.color, plannerAccent);
    const auto capsule = allOf<kit::Shape>(bar).front();
    EXPECT_EQ(capsule.shape, kit::ShapeKind::capsule);
    EXPECT_EQ(capsule.fill, plannerAccent.withOpacity(0.14));
    const kit::Symbol check = allOf<kit::Symbol>(bar).front();
    EXPECT_EQ(check.name, "checkmark.circle.fill");
    EXPECT_EQ(check.font, kit::Font::system(12));
    EXPECT_EQ(check.color, plannerAccent);
}

}  // namespace
}  // namespace kelmar::widget
