#include <gtest/gtest.h>

#include "System/Url.h"
#include "Widget/Colors.h"
#include "Widget/ScheduleRows.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/Timetables.h"

namespace kelmar::widget {
namespace {

using kit::FontWeight;
using kit::RenderingMode;
using testing::allOf;
using testing::block;
using testing::TestSurroundings;
using testing::textSaying;
using testing::textsOf;
using Texts = std::vector<std::string>;

ScheduleRows rowsOf(const TestSurroundings& test, RenderingMode mode = RenderingMode::fullColor) {
    return {plannerAccent, mode, test.surroundings};
}

ScheduleBlock calculus(const TestSurroundings& test) {
    return block("Calculus", test.at(9), test.at(9, 50));
}

ScheduleBlock studying(const TestSurroundings& test, bool done) {
    ScheduleBlock session = calculus(test);
    session.kind = "study";
    session.done = done;
    return session;
}

struct LinkRow {
    const char* what;
    const char* kind;
    const char* assignmentId;
    std::optional<std::string> classId;
    const char* url;
};

TEST(ScheduleLink, OpensTheAssignmentElseTheClassElseTheSchedule) {
    const std::vector<LinkRow> rows{
        {"study", "study", "a1", "c1", "kelmarplanner://assignment/a1"},
        {"study without a class", "study", "a 1", {}, "kelmarplanner://assignment/a%201"},
        {"study with a path", "study", "a/b?c", {}, "kelmarplanner://assignment/a/b%3Fc"},
        {"study without an assignment", "study", "", "c1", "kelmarplanner://class/c1"},
        {"study with neither", "study", "", {}, "kelmarplanner://schedule"},
        {"class", "period", "", "c 1/ü", "kelmarplanner://class/c%201/%C3%BC"},
        {"class with an assignment", "period", "a1", "c1", "kelmarplanner://class/c1"},
        {"assignment of another kind", "period", "a1", {}, "kelmarplanner://schedule"},
        {"empty class", "period", "", "", "kelmarplanner://schedule"},
        {"study, empty class", "study", "", "", "kelmarplanner://schedule"},
        {"another case of letters", "Study", "a1", {}, "kelmarplanner://schedule"},
        {"no text at all", "study", "\xFF", {}, "kelmarplanner://assignment/%FF"},
    };
    for (const LinkRow& row : rows) {
        ScheduleBlock each;
        each.kind = row.kind;
        each.assignmentId = row.assignmentId;
        each.classId = row.classId;
        EXPECT_EQ(url(each), row.url) << row.what;
        EXPECT_TRUE(system::isValidUrl(url(each))) << row.what;
    }
}

TEST(ScheduleRange, SaysFromWhenToWhen) {
    const TestSurroundings test;
    const auto each = block("x", test.at(9), test.at(13, 30));
    EXPECT_EQ(rowsOf(test).range(each), test.localeTexts.shortTime(each.start) + " \u2013 " +
                                            test.localeTexts.shortTime(each.end));
    const TestSurroundings german("de_DE", "Europe/Berlin");
    EXPECT_EQ(rowsOf(german).range(block("x", german.at(9), german.at(13, 30))), "09:00 – 13:30");
}

TEST(ScheduleRow, HasTimeBarAndTitleOfAClass) {
    const TestSurroundings test("de_DE", "Europe/Berlin");
    const kit::View row = rowsOf(test).row(calculus(test), Turn::other);
    const auto& stack = std::get<kit::HStack>(row.node);
    EXPECT_EQ(stack.spacing, 7);
    EXPECT_EQ(stack.alignment, kit::VerticalAlignment::center);
    ASSERT_EQ(stack.children.size(), 4U);

    const auto& time = std::get<kit::Frame>(stack.children[0].node);
    EXPECT_EQ(time.lengths, kit::FrameLengths{.width = 52});
    EXPECT_EQ(time.alignment.horizontal, kit::HorizontalAlignment::trailing);
    EXPECT_EQ(std::get<kit::Text>(time.child->node),
              (kit::Text{.text = "09:00",
                         .font = kit::Font::system(10, FontWeight::medium).monospacedDigits(),
                         .color = kit::secondary,
                         .lineLimit = 1}));
    const auto& bar = std::get<kit::Frame>(stack.children[1].node);
    EXPECT_EQ(bar.lengths, (kit::FrameLengths{.width = 3, .height = 16}));
    EXPECT_EQ(std::get<kit::Shape>(bar.child->node),
              (kit::Shape{.shape = kit::ShapeKind::roundedRectangle,
                          .cornerRadius = 1.5,
                          .fill = kit::Color::rgb(16.0 / 255, 185.0 / 255, 129.0 / 255)}));
    EXPECT_EQ(std::get<kit::Text>(stack.children[2].node),
              (kit::Text{.text = "Calculus", .font = kit::Font::system(12), .lineLimit = 1}));
    EXPECT_EQ(std::get<kit::Spacer>(stack.children[3].node), kit::Spacer{.minLength = 2});
}

TEST(ScheduleRow, StandsOutWhileItsBlockIsRunning) {
    const TestSurroundings test;
    const auto each = calculus(test);
    const kit::View row = rowsOf(test).row(each, Turn::now);
    EXPECT_EQ(textsOf(row), (Texts{test.localeTexts.shortTime(each.start), "Calculus", "Now"}));
    EXPECT_EQ(textSaying(row, test.localeTexts.shortTime(each.start)).color, plannerAccent);
    EXPECT_EQ(textSaying(row, "Calculus").font, kit::Font::system(12, FontWeight::semibold));
    EXPECT_EQ(textSaying(row, "Calculus").color, kit::primary);
}

TEST(ScheduleRow, WithoutAColourHasTheAccent) {
    const TestSurroundings test;
    auto each = calculus(test);
    each.color = "no colour";
    EXPECT_EQ(allOf<kit::Shape>(rowsOf(test).row(each, Turn::other)).front().fill, plannerAccent);
}

TEST(ScheduleRow, OfAStudySessionHasABookOrACheck) {
    const TestSurroundings test;
    for (const bool done : {false, true}) {
        const kit::View row = rowsOf(test).row(studying(test, done), Turn::other);
        const auto symbols = allOf<kit::Symbol>(row);
        ASSERT_EQ(symbols.size(), 1U);
        EXPECT_EQ(symbols[0], (kit::Symbol{.name = done ? "checkmark.circle.fill" : "book",
                                           .font = kit::Font::system(9),
                                           .color = kit::secondary}));
        EXPECT_EQ(std::get<kit::HStack>(row.node).children[2], kit::View(symbols[0]));
        EXPECT_EQ(textSaying(row, "Calculus").strikethrough, done);
    }
    EXPECT_TRUE(allOf<kit::Symbol>(rowsOf(test).row(calculus(test), Turn::other)).empty());
}

TEST(ScheduleRow, StrikesTheTitleOfADoneClassThroughToo) {
    const TestSurroundings test;
    auto each = calculus(test);
    each.done = true;
    EXPECT_TRUE(textSaying(rowsOf(test).row(each, Turn::other), "Calculus").strikethrough);
}

TEST(ScheduleBadge, IsFilledInFullColourAndAnOutlineElsewhere) {
    const TestSurroundings test;
    for (const RenderingMode mode : kit::renderingModes) {
        const kit::View row = rowsOf(test, mode).row(calculus(test), Turn::now);
        const bool isFullColor = mode == RenderingMode::fullColor;
        EXPECT_EQ(textSaying(row, "Now"),
                  (kit::Text{.text = "Now",
                             .font = kit::Font::system(9, FontWeight::bold),
                             .color = isFullColor ? kit::white : kit::primary,
                             .lineLimit = 1}));
        EXPECT_EQ(allOf<kit::Padding>(row).front().insets,
                  (kit::EdgeInsets{.top = 1, .leading = 5, .bottom = 1, .trailing = 5}));
        const auto backgrounds = allOf<kit::Background>(row);
        const auto overlays = allOf<kit::Overlay>(row);
        EXPECT_EQ(backgrounds.size(), isFullColor ? 1U : 0U);
        EXPECT_EQ(overlays.size(), isFullColor ? 0U : 1U);
        const kit::View& capsule =
            isFullColor ? *backgrounds.at(0).content : *overlays.at(0).content;
        EXPECT_EQ(std::get<kit::Shape>(capsule.node),
                  (isFullColor ? kit::Shape{.shape = kit::ShapeKind::capsule, .fill = plannerAccent}
                               : kit::Shape{.shape = kit::ShapeKind::capsule,
                                            .stroke = kit::primary,
                                            .lineWidth = 1}));
    }
}

struct CaptionRow {
    Turn turn;
    const char* caption;
    kit::Color color;
};

TEST(ScheduleSmallLabel, HasACaptionAboveBarTitleAndRange) {
    const TestSurroundings test;
    const auto each = calculus(test);
    for (const CaptionRow& row : {CaptionRow{Turn::now, "Now", plannerAccent},
                                  CaptionRow{Turn::other, "Next", kit::secondary}}) {
        const kit::View label = rowsOf(test).smallLabel(each, row.turn);
        const auto& fixed = std::get<kit::FixedSize>(label.node);
        EXPECT_TRUE(fixed.vertical);
        EXPECT_FALSE(fixed.horizontal);
        const auto& column = std::get<kit::VStack>(fixed.child->node);
        EXPECT_EQ(column.spacing, 3);
        EXPECT_EQ(column.alignment, kit::HorizontalAlignment::leading);
        ASSERT_EQ(column.children.size(), 2U);
        EXPECT_EQ(std::get<kit::Text>(column.children[0].node),
                  (kit::Text{.text = row.caption,
                             .font = kit::Font::system(9, FontWeight::bold),
                             .color = row.color}));

        const auto& words = std::get<kit::HStack>(column.children[1].node);
        EXPECT_EQ(words.spacing, 6);
        EXPECT_EQ(words.alignment, kit::VerticalAlignment::top);
        EXPECT_EQ(std::get<kit::Frame>(words.children.at(0).node).lengths,
                  kit::FrameLengths{.width = 3});
        EXPECT_EQ(std::get<kit::VStack>(words.children.at(1).node).spacing, 1);
        EXPECT_EQ(textSaying(label, "Calculus"),
                  (kit::Text{.text = "Calculus",
                             .font = kit::Font::system(13, FontWeight::semibold),
                             .lineLimit = 2}));
        const kit::Text range = textSaying(label, rowsOf(test).range(each));
        EXPECT_EQ(range.font, kit::Font::system(10, FontWeight::medium));
        EXPECT_EQ(range.color, kit::secondary);
    }
}

}  // namespace
}  // namespace kelmar::widget
