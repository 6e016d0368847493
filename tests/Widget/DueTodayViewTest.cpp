#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Metrics.h"
#include "Widget/Colors.h"
#include "Widget/DueTodayView.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/Shouting.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using kit::Family;
using testing::allOf;
using testing::item;
using testing::snapshotOf;
using testing::TestSurroundings;
using testing::textSaying;
using testing::textsOf;
using Texts = std::vector<std::string>;

constexpr system::Date now = TestSurroundings::usualNow;
const shared::WidgetTicks::Tick ticked{.id = "t", .note = {.title = "Ticked", .at = now}};

kit::DrawnEntry drawn(const TestSurroundings& test, const DueEntry& entry, Family family) {
    const kit::Environment environment{.family = family, .contentSize = kit::contentSize(family)};
    return DueTodayView(entry, environment, plannerAccent, test.surroundings).body();
}

DueEntry entryOf(const shared::WidgetData& data,
                 std::optional<shared::WidgetTicks::Tick> undo = std::nullopt) {
    return {.date = now,
            .data = std::make_shared<const shared::WidgetData>(data),
            .undo = std::move(undo)};
}

/// `count` items of today, named by numbers from 1.
std::vector<shared::WidgetData::Item> todays(const TestSurroundings& test, int count) {
    std::vector<shared::WidgetData::Item> items;
    for (int number = 1; number <= count; ++number)
        items.push_back(item(std::to_string(number), test.at(20)));
    return items;
}

std::vector<shared::WidgetData::Item> tomorrows(const TestSurroundings& test, int count) {
    std::vector<shared::WidgetData::Item> items;
    for (int number = 1; number <= count; ++number)
        items.push_back(item("+" + std::to_string(number), test.at(9, 0, 1)));
    return items;
}

/// The titles of the rows, in order.
Texts titlesOf(const kit::View& view) {
    Texts titles;
    for (const std::string& text : textsOf(view)) {
        if (text.starts_with("Title "))
            titles.push_back(text.substr(6));
    }
    return titles;
}

TEST(DueSignedOut, IsShownWithoutASnapshotAndWhenNobodyIsSignedIn) {
    const TestSurroundings test;
    auto signedOut = snapshotOf(todays(test, 3));
    signedOut.signedIn = false;
    for (const DueEntry& entry : {DueEntry{.date = now, .data = nullptr, .undo = {}},
                                  entryOf(signedOut), entryOf(signedOut, ticked)}) {
        for (const Family family : kit::families) {
            const kit::DrawnEntry view = drawn(test, entry, family);
            EXPECT_EQ(textsOf(view.content),
                      Texts{"Open Kelmar Planner and sign in to see what’s due."});
            EXPECT_EQ(allOf<kit::Text>(view.content).front().font, kit::Font::caption());
            EXPECT_EQ(allOf<kit::Text>(view.content).front().color, kit::secondary);
            EXPECT_EQ(allOf<kit::Symbol>(view.content).front().name, "graduationcap.fill");
            EXPECT_EQ(allOf<kit::Symbol>(view.content).front().color, plannerAccent);
            EXPECT_EQ(std::get<kit::VStack>(view.content.node).spacing, 6);
            EXPECT_TRUE(allOf<kit::Button>(view.content).empty());
            EXPECT_EQ(view.widgetUrl, std::nullopt);
        }
    }
}

TEST(DueSmall, ShowsThreeRowsOrTwoAboveAnUndoBar) {
    const TestSurroundings test;
    const auto data = snapshotOf(todays(test, 5));
    EXPECT_EQ(titlesOf(drawn(test, entryOf(data), Family::small).content), (Texts{"1", "2", "3"}));
    const kit::View withUndo = drawn(test, entryOf(data, ticked), Family::small).content;
    EXPECT_EQ(titlesOf(withUndo), (Texts{"1", "2"}));
    EXPECT_EQ(textSaying(withUndo, "Done").font, kit::Font::system(11));
}

TEST(DueSmall, OpensTheDashboardAndHasNoOtherLink) {
    const TestSurroundings test;
    const kit::DrawnEntry view = drawn(test, entryOf(snapshotOf(todays(test, 2))), Family::small);
    EXPECT_EQ(view.widgetUrl, "kelmarplanner://dashboard");
    EXPECT_TRUE(allOf<kit::Link>(view.content).empty());
}

TEST(DueSmall, SaysWhenThereIsNothingLeft) {
    const TestSurroundings test;
    const kit::View view = drawn(test, entryOf(snapshotOf({})), Family::small).content;
    EXPECT_EQ(textsOf(view), (Texts{"0", "due today", "You’re all caught up."}));
    EXPECT_EQ(textSaying(view, "You’re all caught up.").font, kit::Font::system(11));
}

struct HeaderRow {
    Family family;
    double count;
    double label;
    std::size_t texts;
};

TEST(DueHeader, CountsTheFeaturedItems) {
    const TestSurroundings test;
    const auto data = snapshotOf(todays(test, 12), tomorrows(test, 3));
    for (const HeaderRow& row :
         {HeaderRow{Family::small, 30, 13, 2}, HeaderRow{Family::medium, 24, 12, 2},
          HeaderRow{Family::large, 28, 12, 3}}) {
        const kit::View view = drawn(test, entryOf(data), row.family).content;
        const kit::Text count = textSaying(view, "12");
        EXPECT_EQ(count.font, kit::Font::system(row.count, kit::FontWeight::bold).rounded());
        EXPECT_EQ(count.color, plannerAccent);
        const kit::Text label = textSaying(view, "due today");
        EXPECT_EQ(label.font, kit::Font::system(row.label, kit::FontWeight::semibold));
        EXPECT_EQ(label.color, kit::secondary);
        EXPECT_EQ(label.lineLimit, 1);
        EXPECT_EQ(label.minimumScale, 0.8);
        const auto texts = textsOf(view);
        EXPECT_EQ(std::ranges::count(texts, "Thursday, Oct 9"),
                  row.family == Family::large ? 1 : 0);
        const auto symbols = allOf<kit::Symbol>(view);
        const auto cap = std::ranges::find(symbols, "graduationcap.fill", &kit::Symbol::name);
        ASSERT_NE(cap, symbols.end());
        EXPECT_EQ(cap->font, kit::Font::system(12));
        EXPECT_EQ(cap->color, plannerAccent.withOpacity(0.8));
    }
}

TEST(DueHeader, TheDateLineIsTheEntrysDate) {
    const TestSurroundings test;
    DueEntry entry = entryOf(snapshotOf({}));
    entry.date = test.at(0, 0, 1);
    const kit::View view = drawn(test, entry, Family::large).content;
    const kit::Text date = textSaying(view, "Friday, Oct 10");
    EXPECT_EQ(date.font, kit::Font::system(11, kit::FontWeight::medium));
    EXPECT_EQ(date.color, kit::secondary);
}

TEST(DueList, FillsItsRowsFromTheFeaturedItemsThenTheRest) {
    const TestSurroundings test;
    const kit::View medium =
        drawn(test, entryOf(snapshotOf(todays(test, 2), tomorrows(test, 4))), Family::medium)
            .content;
    EXPECT_EQ(titlesOf(medium), (Texts{"1", "2", "+1"}));
    const kit::Text heading = textSaying(medium, "Up next");
    EXPECT_EQ(heading.font, kit::Font::system(11, kit::FontWeight::semibold));
    EXPECT_EQ(heading.color, kit::secondary);

    const kit::View full =
        drawn(test, entryOf(snapshotOf(todays(test, 7), tomorrows(test, 4))), Family::medium)
            .content;
    EXPECT_EQ(titlesOf(full), (Texts{"1", "2", "3"}));
    const auto texts = textsOf(full);
    EXPECT_EQ(std::ranges::count(texts, "Up next"), 0);
}

TEST(DueList, TheHeadingsRuleIsOnePointHighAndFaint) {
    const TestSurroundings test;
    const kit::View view =
        drawn(test, entryOf(snapshotOf(todays(test, 1), tomorrows(test, 1))), Family::large)
            .content;
    const auto shapes = allOf<kit::Shape>(view);
    const auto rule = std::ranges::find(shapes, kit::ShapeKind::rectangle, &kit::Shape::shape);
    ASSERT_NE(rule, shapes.end());
    EXPECT_EQ(rule->fill, kit::secondary.withOpacity(0.25));
    const auto frames = allOf<kit::Frame>(view);
    EXPECT_EQ(std::ranges::count(frames, kit::FrameLengths{.height = 1}, &kit::Frame::lengths), 1);
}

TEST(DueList, RowsOfTodayAreLargerThanTheRest) {
    const TestSurroundings test;
    const kit::View view =
        drawn(test, entryOf(snapshotOf(todays(test, 1), tomorrows(test, 1))), Family::large)
            .content;
    EXPECT_EQ(textSaying(view, "Title 1").font.size, 13);
    EXPECT_EQ(textSaying(view, "Title +1").font.size, 12);
    const kit::View future =
        drawn(test, entryOf(snapshotOf({}, tomorrows(test, 2))), Family::large).content;
    EXPECT_EQ(textSaying(future, "Title +1").font.size, 12);
}

TEST(DueList, EveryRowLinksToItsAssignmentAndTheWidgetToNothing) {
    const TestSurroundings test;
    for (const Family family : {Family::medium, Family::large}) {
        const kit::DrawnEntry view =
            drawn(test, entryOf(snapshotOf(todays(test, 2), tomorrows(test, 1))), family);
        EXPECT_EQ(view.widgetUrl, std::nullopt);
        Texts urls;
        for (const kit::Link& link : allOf<kit::Link>(view.content))
            urls.push_back(link.url);
        EXPECT_EQ(urls, (Texts{"kelmarplanner://assignment/1", "kelmarplanner://assignment/2",
                               "kelmarplanner://assignment/+1"}));
    }
}

TEST(DueList, CaughtUpHasItsOwnBlock) {
    const TestSurroundings test;
    for (const Family family : {Family::medium, Family::large}) {
        const kit::View view = drawn(test, entryOf(snapshotOf({})), family).content;
        EXPECT_EQ(textSaying(view, "You’re all caught up.").font, kit::Font::system(13));
        const auto symbols = allOf<kit::Symbol>(view);
        const auto check = std::ranges::find(symbols, "checkmark.circle", &kit::Symbol::name);
        ASSERT_NE(check, symbols.end());
        EXPECT_EQ(check->font, kit::Font::system(26));
        EXPECT_EQ(check->color, plannerAccent);
    }
}

struct ClosingRow {
    const char* what;
    Family family;
    int items;
    int rest;
    bool undo;
    const char* line;
};

TEST(DueList, ClosesWithALineOnlyWhereTheLargeFamilyHasRoom) {
    const TestSurroundings test;
    const char* const everything = "That’s everything coming up.";
    const char* const nothing = "Nothing else due this week.";
    for (const ClosingRow& row : {ClosingRow{"few", Family::large, 3, 0, false, nothing},
                                  {"none", Family::large, 0, 0, false, nothing},
                                  {"rest", Family::large, 3, 2, false, everything},
                                  {"full", Family::large, 8, 0, false, nullptr},
                                  {"full with rest", Family::large, 3, 9, false, nullptr},
                                  {"undo", Family::large, 3, 0, true, nullptr},
                                  {"medium", Family::medium, 1, 0, false, nullptr},
                                  {"medium, none", Family::medium, 0, 0, false, nullptr}}) {
        const auto data = snapshotOf(todays(test, row.items), tomorrows(test, row.rest));
        const auto entry = row.undo ? entryOf(data, ticked) : entryOf(data);
        const kit::View view = drawn(test, entry, row.family).content;
        const Texts texts = textsOf(view);
        for (const char* line : {everything, nothing}) {
            const bool isExpected = row.line != nullptr && std::string(row.line) == line;
            EXPECT_EQ(std::ranges::count(texts, line), isExpected ? 1 : 0) << row.what;
        }
        if (row.line != nullptr) {
            EXPECT_EQ(textSaying(view, row.line).font, kit::Font::system(11));
            EXPECT_EQ(textSaying(view, row.line).color, kit::secondary);
        }
        EXPECT_EQ(std::ranges::count(texts, "Marked done"), row.undo ? 1 : 0) << row.what;
    }
}

TEST(DueList, IsAStackWhoseSpacingIsTheFittedGap) {
    const TestSurroundings test;
    const kit::View view = drawn(test, entryOf(snapshotOf(todays(test, 8))), Family::large).content;
    const auto& list = std::get<kit::VStack>(std::get<kit::Frame>(view.node).child->node);
    EXPECT_EQ(list.spacing, 3.5);
    EXPECT_EQ(list.alignment, kit::HorizontalAlignment::leading);
    EXPECT_EQ(list.children.size(), 9U);
    EXPECT_EQ(std::get<kit::Frame>(list.children[0].node).lengths,
              (kit::FrameLengths{.height = 34}));
    EXPECT_EQ(std::get<kit::Frame>(list.children[1].node).lengths,
              (kit::FrameLengths{.height = 36}));
}

TEST(DueToday, EveryEntryLiesOnTheTertiaryFill) {
    const TestSurroundings test;
    for (const Family family : kit::families) {
        EXPECT_EQ(drawn(test, entryOf(snapshotOf({})), family).background, kit::tertiaryFill);
    }
}

TEST(DueToday, TranslatesItsWords) {
    const TestSurroundings test;
    const Surroundings surroundings = testing::shouting(test);
    auto overdue = item("x", now + -60);
    overdue.className = "!own word of the planner";
    overdue.title = "!own title of the planner";
    const DueEntry entry = entryOf(snapshotOf({overdue}, tomorrows(test, 0)), ticked);
    const kit::Environment environment{.family = Family::medium,
                                       .contentSize = kit::contentSize(Family::medium)};
    const kit::View view =
        DueTodayView(entry, environment, plannerAccent, surroundings).body().content;
    for (const std::string& text : textsOf(view))
        EXPECT_TRUE(text.starts_with('!') || text == "1") << text;
}

TEST(DueTodayView, DependsOnTheEntrysDateAlone) {
    TestSurroundings test;
    EXPECT_TRUE(rc::check([&] {
        std::vector<shared::WidgetData::Item> items;
        for (const int hours : *rc::gen::container<std::vector<int>>(rc::gen::inRange(-60, 120))) {
            items.push_back(item(std::to_string(items.size()), now + hours * 3600.0));
            items.back().hasTime = *rc::gen::arbitrary<bool>();
        }
        DueEntry entry = entryOf(snapshotOf(items));
        if (*rc::gen::arbitrary<bool>())
            entry.undo = ticked;
        entry.date = test.at(*rc::gen::inRange(0, 24), 30, *rc::gen::inRange(-1, 3));
        for (const Family family : kit::families) {
            test.clock.set(entry.date);
            const kit::DrawnEntry whenShown = drawn(test, entry, family);
            test.clock.set(entry.date + *rc::gen::inRange(-100, 100) * 3600.0);
            RC_ASSERT(drawn(test, entry, family) == whenShown);
        }
    }));
}

}  // namespace
}  // namespace kelmar::widget
