#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Metrics.h"
#include "Widget/Colors.h"
#include "Widget/ScheduleView.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/Shouting.h"
#include "tests/Support/Timetables.h"

namespace kelmar::widget {
namespace {

using kit::Family;
using kit::FontWeight;
using testing::allOf;
using testing::block;
using testing::dayOf;
using testing::scheduleOf;
using testing::TestSurroundings;
using testing::textSaying;
using testing::textsOf;
using Texts = std::vector<std::string>;

constexpr system::Date now = TestSurroundings::usualNow;  // 15:00

const char* const signInSentence = "Open Kelmar Planner and sign in to see your schedule.";
const char* const nothingSentence =
    "Nothing on your schedule this week. Connect your school calendar in Planner’s Calendar "
    "settings.";

ScheduleEntry entryOf(const shared::WidgetData& data, system::Date date = now) {
    return {.date = date, .data = std::make_shared<const shared::WidgetData>(data)};
}

kit::DrawnEntry drawn(const TestSurroundings& test, const ScheduleEntry& entry, Family family) {
    const kit::Environment environment{.family = family, .contentSize = kit::contentSize(family)};
    return ScheduleView(entry, environment, plannerAccent, test.surroundings).body();
}

/// `count` blocks of an hour each with titles "#1" ..., the first from `firstHour` on.
ScheduleDay hours(const TestSurroundings& test, int firstHour, int count, int days = 0) {
    std::vector<ScheduleBlock> blocks;
    for (int number = 1; number <= count; ++number)
        blocks.push_back(block("#" + std::to_string(number),
                               test.at(firstHour + number - 1, 0, days),
                               test.at(firstHour + number, 0, days)));
    return dayOf(test.at(0, 0, days), std::move(blocks));
}

/// The titles of the blocks shown, in order.
Texts titlesOf(const kit::View& view) {
    Texts titles;
    for (const std::string& text : textsOf(view)) {
        if (text.starts_with('#'))
            titles.push_back(text);
    }
    return titles;
}

Texts urlsOf(const kit::View& view) {
    Texts urls;
    for (const kit::Link& link : allOf<kit::Link>(view))
        urls.push_back(link.url);
    return urls;
}

/// The stack of the whole content.
kit::VStack contentOf(const kit::DrawnEntry& entry) {
    return std::get<kit::VStack>(std::get<kit::Frame>(entry.content.node).child->node);
}

/// The large family's list.
kit::VStack listOf(const kit::DrawnEntry& entry) {
    return std::get<kit::VStack>(contentOf(entry).children.at(1).node);
}

void expectEmpty(const kit::DrawnEntry& entry, const char* sentence) {
    const kit::Text label{.text = "Schedule",
                          .font = kit::Font::system(12, FontWeight::semibold),
                          .color = plannerAccent};
    const kit::Text message{
        .text = sentence, .font = kit::Font::caption(), .color = kit::secondary};
    EXPECT_EQ(allOf<kit::Text>(entry.content), (std::vector{label, message}));
    EXPECT_EQ(
        allOf<kit::Symbol>(entry.content),
        std::vector{(kit::Symbol{.name = "calendar", .font = label.font, .color = plannerAccent})});
    EXPECT_EQ(contentOf(entry).spacing, 6);
    EXPECT_EQ(contentOf(entry).alignment, kit::HorizontalAlignment::leading);
    const auto& frame = std::get<kit::Frame>(entry.content.node);
    EXPECT_EQ(frame.lengths,
              (kit::FrameLengths{.maxWidth = kit::infinity, .maxHeight = kit::infinity}));
    EXPECT_EQ(frame.alignment,
              (kit::Alignment{kit::HorizontalAlignment::leading, kit::VerticalAlignment::top}));
    EXPECT_EQ(entry.widgetUrl, std::nullopt);
    EXPECT_TRUE(allOf<kit::Link>(entry.content).empty());
}

TEST(ScheduleEmpty, AsksToSignInWithoutASnapshotAUserOrASchedule) {
    const TestSurroundings test;
    auto signedOut = scheduleOf({hours(test, 16, 3)});
    signedOut.signedIn = false;
    for (const ScheduleEntry& entry : {ScheduleEntry{.date = now, .data = nullptr},
                                       entryOf(signedOut), entryOf(testing::snapshotOf({}))}) {
        for (const Family family : kit::families)
            expectEmpty(drawn(test, entry, family), signInSentence);
    }
}

TEST(ScheduleEmpty, SaysThatThereIsNothingThisWeek) {
    const TestSurroundings test;
    const std::vector<std::vector<ScheduleDay>> schedules{
        {},
        {dayOf(test.at(0), {})},
        {dayOf(test.at(0), {}), dayOf(test.at(0, 0, 1), {})},
        {hours(test, 9, 2), dayOf(test.at(0, 0, 1), {})},
        {hours(test, 9, 2, -1)},
    };
    for (const auto& schedule : schedules) {
        for (const Family family : kit::families)
            expectEmpty(drawn(test, entryOf(scheduleOf(schedule)), family), nothingSentence);
    }
}

TEST(ScheduleHeader, HasTitleDateFirstLabelAndSymbol) {
    const TestSurroundings test;
    ScheduleDay day = hours(test, 16, 1);
    day.labels = {"A Day", "Late start"};
    for (const Family family : kit::families) {
        const bool isSmall = family == Family::small;
        const kit::DrawnEntry entry = drawn(test, entryOf(scheduleOf({day})), family);
        const kit::VStack content = contentOf(entry);
        EXPECT_EQ(content.spacing, isSmall ? 6 : 5);
        EXPECT_EQ(content.alignment, kit::HorizontalAlignment::leading);
        const auto& header = std::get<kit::HStack>(content.children.at(0).node);
        EXPECT_EQ(header.alignment, kit::VerticalAlignment::firstTextBaseline);
        EXPECT_EQ(header.spacing, 6);
        EXPECT_EQ(textsOf(header),
                  isSmall ? (Texts{"Today", "A Day"}) : (Texts{"Today", "Oct 9", "A Day"}));
        EXPECT_EQ(textSaying(header, "Today"),
                  (kit::Text{.text = "Today",
                             .font = kit::Font::system(isSmall ? 13 : 14, FontWeight::bold)}));
        if (!isSmall) {
            EXPECT_EQ(textSaying(header, "Oct 9"),
                      (kit::Text{.text = "Oct 9",
                                 .font = kit::Font::system(11, FontWeight::medium),
                                 .color = kit::secondary}));
        }
        EXPECT_EQ(std::get<kit::Symbol>(header.children.back().node),
                  (kit::Symbol{.name = "calendar",
                               .font = kit::Font::system(11),
                               .color = plannerAccent.withOpacity(0.8)}));
        EXPECT_EQ(std::get<kit::Spacer>(header.children.end()[-2].node), kit::Spacer{});
    }
}

TEST(ScheduleHeader, TheLabelLiesOnAFaintCapsule) {
    const TestSurroundings test;
    ScheduleDay day = hours(test, 16, 1);
    EXPECT_TRUE(
        allOf<kit::Background>(drawn(test, entryOf(scheduleOf({day})), Family::small).content)
            .empty());
    day.labels = {"A Day"};
    const kit::View view = drawn(test, entryOf(scheduleOf({day})), Family::small).content;
    EXPECT_EQ(textSaying(view, "A Day"),
              (kit::Text{.text = "A Day",
                         .font = kit::Font::system(10, FontWeight::semibold),
                         .color = plannerAccent,
                         .lineLimit = 1}));
    EXPECT_EQ(allOf<kit::Padding>(view).front().insets,
              (kit::EdgeInsets{.top = 1, .leading = 5, .bottom = 1, .trailing = 5}));
    EXPECT_EQ(
        std::get<kit::Shape>(allOf<kit::Background>(view).front().content->node),
        (kit::Shape{.shape = kit::ShapeKind::capsule, .fill = plannerAccent.withOpacity(0.13)}));
}

TEST(ScheduleHeader, NamesTheDayShownAndItsDate) {
    const TestSurroundings test;
    const auto data = scheduleOf({hours(test, 9, 2), hours(test, 9, 2, 1)});
    const kit::View tomorrow = drawn(test, entryOf(data), Family::medium).content;
    EXPECT_EQ(textSaying(tomorrow, "Tomorrow").font, kit::Font::system(14, FontWeight::bold));
    EXPECT_EQ(textSaying(tomorrow, "Oct 10").font.size, 11);
    EXPECT_EQ(titlesOf(tomorrow), (Texts{"#1", "#2"}));

    const auto weekend = scheduleOf({hours(test, 9, 2), dayOf(test.at(0, 0, 1), {}),
                                     dayOf(test.at(0, 0, 2), {}), hours(test, 8, 1, 4)});
    const kit::View monday = drawn(test, entryOf(weekend), Family::medium).content;
    EXPECT_EQ(textSaying(monday, "Monday").font.size, 14);
    EXPECT_EQ(textSaying(monday, "Oct 13").font.size, 11);
}

struct SmallRow {
    const char* what;
    int hour;
    int blocks;
    Texts texts;  ///< Behind the title of the day, without ranges.
    std::optional<std::string> url;
};

TEST(ScheduleSmall, ShowsTheBlockOfNowOrTheNextOneAndWhatThenFollows) {
    const TestSurroundings test;
    const std::vector<SmallRow> rows{
        {"before the first",
         8,
         3,
         {"Next", "#1", "Then", "#2"},
         "kelmarplanner://class/class%20%231"},
        {"in the first", 9, 3, {"Now", "#1", "Then", "#2"}, "kelmarplanner://class/class%20%231"},
        {"in the last", 11, 3, {"Now", "#3"}, "kelmarplanner://class/class%20%233"},
        {"before the only one", 8, 1, {"Next", "#1"}, "kelmarplanner://class/class%20%231"},
        {"in the only one", 9, 1, {"Now", "#1"}, "kelmarplanner://class/class%20%231"},
    };
    for (const SmallRow& row : rows) {
        const auto data = scheduleOf({hours(test, 9, row.blocks)});
        const kit::DrawnEntry entry = drawn(test, entryOf(data, test.at(row.hour)), Family::small);
        Texts texts = textsOf(entry.content);
        EXPECT_EQ(texts.front(), "Today");
        texts.erase(texts.begin());
        std::erase_if(
            texts, [](const std::string& text) { return text.find(" – ") != std::string::npos; });
        EXPECT_EQ(texts, row.texts) << row.what;
        EXPECT_EQ(entry.widgetUrl, row.url) << row.what;
        EXPECT_EQ(urlsOf(entry.content), Texts{*row.url}) << row.what;
    }
}

TEST(ScheduleSmall, TheThenLineIsSmallAndItsTitleOnOneLine) {
    const TestSurroundings test;
    const auto data = scheduleOf({hours(test, 16, 2)});
    const kit::VStack content = contentOf(drawn(test, entryOf(data), Family::small));
    const auto& line = std::get<kit::HStack>(content.children.at(2).node);
    const kit::Font font = kit::Font::system(10, FontWeight::medium);
    EXPECT_EQ(
        line,
        (kit::HStack{.alignment = kit::VerticalAlignment::center,
                     .spacing = 4,
                     .children = {kit::Text{.text = "Then", .font = font, .color = kit::secondary},
                                  kit::Text{.text = "#2", .font = font, .lineLimit = 1}}}));
}

TEST(ScheduleSmall, OfADayThatIsOverHasOnlyTheHeader) {
    const TestSurroundings test;
    ScheduleDay day = hours(test, 9, 2);
    day.day = test.at(20);
    for (const Family family : kit::families) {
        const kit::DrawnEntry entry = drawn(test, entryOf(scheduleOf({day})), family);
        EXPECT_EQ(titlesOf(entry.content), family == Family::large ? (Texts{"#1", "#2"}) : Texts{});
        EXPECT_EQ(textsOf(entry.content).front(), "Today");
        EXPECT_EQ(entry.widgetUrl, std::nullopt);
    }
}

TEST(ScheduleMedium, ShowsTheCurrentBlockAndThreeMore) {
    const TestSurroundings test;
    const auto data = scheduleOf({hours(test, 13, 9)});
    const kit::DrawnEntry entry = drawn(test, entryOf(data), Family::medium);
    EXPECT_EQ(titlesOf(entry.content), (Texts{"#3", "#4", "#5", "#6"}));
    EXPECT_EQ(textSaying(entry.content, "#3").font.weight, FontWeight::semibold);
    EXPECT_EQ(textSaying(entry.content, "#4").font.weight, FontWeight::regular);
    EXPECT_EQ(contentOf(entry).children.size(), 5U);
    EXPECT_TRUE(allOf<kit::Opacity>(entry.content).empty());
    const auto fewer = scheduleOf({hours(test, 16, 2)});
    EXPECT_EQ(titlesOf(drawn(test, entryOf(fewer), Family::medium).content), (Texts{"#1", "#2"}));
}

TEST(ScheduleMedium, PutsTheCurrentBlockFirstWhereverItStandsInTheList) {
    const TestSurroundings test;
    const auto data = scheduleOf({dayOf(test.at(0), {block("#later", test.at(20), test.at(21)),
                                                     block("#now", test.at(14), test.at(16)),
                                                     block("#soon", test.at(16), test.at(17))})});
    const kit::View view = drawn(test, entryOf(data), Family::medium).content;
    EXPECT_EQ(titlesOf(view), (Texts{"#now", "#later", "#soon"}));
    EXPECT_EQ(titlesOf(drawn(test, entryOf(data), Family::large).content),
              (Texts{"#later", "#now", "#soon"}));
}

TEST(ScheduleMedium, OfTwoEqualBlocksShowsTheCurrentOneOnly) {
    const TestSurroundings test;
    const auto twin = block("#twin", test.at(14), test.at(16));
    const auto data = scheduleOf({dayOf(test.at(0), {twin, twin})});
    const kit::View medium = drawn(test, entryOf(data), Family::medium).content;
    EXPECT_EQ(titlesOf(medium), Texts{"#twin"});
    const kit::View large = drawn(test, entryOf(data), Family::large).content;
    EXPECT_EQ(titlesOf(large), (Texts{"#twin", "#twin"}));
    const Texts texts = textsOf(large);
    EXPECT_EQ(std::ranges::count(texts, "Now"), 2);
}

TEST(ScheduleRowLinks, EveryRowLinksToItsBlockAndTheWidgetToNothing) {
    const TestSurroundings test;
    auto study = block("#study", test.at(16), test.at(17));
    study.kind = "study";
    study.assignmentId = "a 1";
    const auto data =
        scheduleOf({dayOf(test.at(0), {block("#a", test.at(9), test.at(16)), study})});
    for (const Family family : {Family::medium, Family::large}) {
        const kit::DrawnEntry entry = drawn(test, entryOf(data), family);
        EXPECT_EQ(urlsOf(entry.content), (Texts{"kelmarplanner://class/class%20%23a",
                                                "kelmarplanner://assignment/a%201"}));
        EXPECT_EQ(entry.widgetUrl, std::nullopt);
    }
}

TEST(ScheduleLarge, FillsTheTopWithTheLastFinishedBlocks) {
    const TestSurroundings test;
    const auto data = scheduleOf({hours(test, 5, 18)});  // 5:00 to 23:00, ten of them finished
    const kit::DrawnEntry entry = drawn(test, entryOf(data), Family::large);
    EXPECT_EQ(titlesOf(entry.content),
              (Texts{"#9", "#10", "#11", "#12", "#13", "#14", "#15", "#16", "#17", "#18"}));
    const auto faded = allOf<kit::Opacity>(entry.content);
    ASSERT_EQ(faded.size(), 2U);
    for (const kit::Opacity& each : faded)
        EXPECT_EQ(each.value, 0.45);
    EXPECT_EQ(titlesOf(*faded[0].child), Texts{"#9"});
    EXPECT_EQ(titlesOf(*faded[1].child), Texts{"#10"});
    const Texts texts = textsOf(entry.content);
    EXPECT_EQ(std::ranges::count(texts, "Now"), 1);
    EXPECT_EQ(textSaying(entry.content, "#11").font.weight, FontWeight::semibold);
}

TEST(ScheduleLarge, SharesWhatTheHeaderLineLeavesAmongItsRows) {
    const TestSurroundings test;
    const auto data = scheduleOf({hours(test, 12, 8)});
    const kit::VStack list = listOf(drawn(test, entryOf(data), Family::large));
    // 328 points: 350 less a line of 17 and a spacing of 5.
    EXPECT_EQ(list.spacing, 4);
    EXPECT_EQ(list.alignment, kit::HorizontalAlignment::leading);
    ASSERT_EQ(list.children.size(), 9U);
    EXPECT_EQ(std::get<kit::Spacer>(list.children.back().node), kit::Spacer{});
    std::size_t rows = 0;
    for (const kit::Frame& frame : allOf<kit::Frame>(list))
        rows += frame.lengths == kit::FrameLengths{.height = 37} ? 1U : 0U;
    EXPECT_EQ(rows, 8U);
}

struct HeightRow {
    double contentHeight;
    Texts titles;
};

TEST(ScheduleLarge, ShowsAsManyRowsAsTheHeightOfTheContentFits) {
    const TestSurroundings test;
    const auto data = scheduleOf({hours(test, 13, 5)});  // two finished
    for (const HeightRow& row :
         {HeightRow{22 + 190, {"#1", "#2", "#3", "#4", "#5"}},
          HeightRow{22 + 120, {"#2", "#3", "#4", "#5"}}, HeightRow{22 + 119.9, {"#3", "#4", "#5"}},
          HeightRow{22 + 50, {"#3"}}, HeightRow{0, {"#3"}}}) {
        const kit::Environment environment{.family = Family::large,
                                           .contentSize = {332, row.contentHeight}};
        const ScheduleEntry entry = entryOf(data);
        const kit::DrawnEntry drawn =
            ScheduleView(entry, environment, plannerAccent, test.surroundings).body();
        EXPECT_EQ(titlesOf(drawn.content), row.titles) << row.contentHeight;
    }
}

TEST(ScheduleModes, OutsideFullColourTheNowBadgeIsAnOutline) {
    const TestSurroundings test;
    const ScheduleEntry entry = entryOf(scheduleOf({hours(test, 15, 2)}));
    for (const kit::RenderingMode mode : kit::renderingModes) {
        const kit::Environment environment{.family = Family::medium,
                                           .contentSize = kit::contentSize(Family::medium),
                                           .renderingMode = mode};
        const kit::DrawnEntry drawn =
            ScheduleView(entry, environment, plannerAccent, test.surroundings).body();
        EXPECT_EQ(allOf<kit::Overlay>(drawn.content).size(),
                  mode == kit::RenderingMode::fullColor ? 0U : 1U);
        EXPECT_EQ(drawn.background, kit::tertiaryFill);
    }
}

/// A timetable of some days around the usual one.
std::vector<ScheduleDay> anyTimetable(const TestSurroundings& test) {
    std::vector<ScheduleDay> schedule;
    for (const int days : *rc::gen::container<std::vector<int>>(rc::gen::inRange(-2, 4))) {
        const int count = *rc::gen::inRange(0, 12);
        schedule.push_back(hours(test, *rc::gen::inRange(6, 12), count, days));
    }
    return schedule;
}

TEST(ScheduleView, DependsOnTheEntrysDateAloneButForTomorrow) {
    TestSurroundings test;
    EXPECT_TRUE(rc::check([&] {
        const auto data = scheduleOf(anyTimetable(test));
        const ScheduleEntry entry =
            entryOf(data, test.at(*rc::gen::inRange(0, 24), 30, *rc::gen::inRange(-1, 3)));
        for (const Family family : kit::families) {
            test.clock.set(entry.date);
            const kit::DrawnEntry whenShown = drawn(test, entry, family);
            test.clock.set(entry.date + *rc::gen::inRange(-5, 6) * 86'400);
            const kit::DrawnEntry atAnotherTime = drawn(test, entry, family);

            Texts texts = textsOf(whenShown.content);
            if (texts.front() == "Tomorrow")
                texts.front() = textsOf(atAnotherTime.content).front();
            RC_ASSERT(textsOf(atAnotherTime.content) == texts);
            RC_ASSERT(urlsOf(atAnotherTime.content) == urlsOf(whenShown.content));
            RC_ASSERT(atAnotherTime.widgetUrl == whenShown.widgetUrl);
            RC_ASSERT(allOf<kit::Opacity>(atAnotherTime.content).size() ==
                      allOf<kit::Opacity>(whenShown.content).size());
        }
    }));
}

TEST(ScheduleView, TranslatesItsWords) {
    const TestSurroundings test;
    const Surroundings surroundings = testing::shouting(test);
    const std::vector<ScheduleEntry> entries{
        {.date = now, .data = nullptr},
        entryOf(scheduleOf({})),
        entryOf(scheduleOf({hours(test, 15, 3)})),
        entryOf(scheduleOf({hours(test, 16, 3, 1)})),
    };
    for (const ScheduleEntry& entry : entries) {
        const kit::Environment environment{.family = Family::small,
                                           .contentSize = kit::contentSize(Family::small)};
        const kit::View view =
            ScheduleView(entry, environment, plannerAccent, surroundings).body().content;
        for (const std::string& text : textsOf(view)) {
            const bool isData = text.starts_with('#') || text.find(" – ") != std::string::npos;
            EXPECT_TRUE(text.starts_with('!') || isData) << text;
        }
    }
}

}  // namespace
}  // namespace kelmar::widget
