#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Metrics.h"
#include "Widget/Colors.h"
#include "Widget/StreakView.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/Shouting.h"
#include "tests/Support/Streaks.h"

namespace kelmar::widget {
namespace {

using kit::Family;
using kit::FontWeight;
using kit::RenderingMode;
using testing::allOf;
using testing::dayAfter;
using testing::dayBefore;
using testing::snapshotWith;
using testing::streakOf;
using testing::TestSurroundings;
using testing::textSaying;
using testing::textsOf;
using testing::usualDay;
using Texts = std::vector<std::string>;

constexpr std::array streakFamilies{Family::small, Family::medium};

StreakEntry entryOf(const shared::WidgetData& data, system::Date date) {
    return {.date = date, .data = std::make_shared<const shared::WidgetData>(data)};
}

kit::DrawnEntry drawn(const Surroundings& surroundings, const StreakEntry& entry, Family family,
                      RenderingMode mode = RenderingMode::fullColor) {
    const kit::Environment environment{
        .family = family, .contentSize = kit::contentSize(family), .renderingMode = mode};
    return StreakView(entry, environment, streakFrost, surroundings).body();
}

/// The widget for a streak on the usual day.
kit::DrawnEntry drawn(const shared::WidgetData::Streak& streak, int hour, Family family,
                      RenderingMode mode = RenderingMode::fullColor) {
    const TestSurroundings test;
    return drawn(test.surroundings, entryOf(snapshotWith(streak), test.at(hour)), family, mode);
}

/// The texts but for the week's letters.
Texts wordsOf(const kit::DrawnEntry& entry) {
    Texts words = textsOf(entry.content);
    words.resize(words.size() - 7);
    return words;
}

TEST(StreakSignedOut, IsShownWithoutASnapshotAUserOrAStreak) {
    const TestSurroundings test;
    auto signedOut = snapshotWith(streakOf(7, usualDay));
    signedOut.signedIn = false;
    const system::Date now = test.at(15);
    for (const StreakEntry& entry :
         {StreakEntry{.date = now, .data = nullptr}, entryOf(signedOut, now),
          entryOf(testing::snapshotOf({}), now)}) {
        for (const Family family : streakFamilies) {
            const kit::DrawnEntry view = drawn(test.surroundings, entry, family);
            EXPECT_EQ(allOf<kit::Text>(view.content),
                      std::vector{
                          (kit::Text{.text = "Open Kelmar Planner and sign in to see your streak.",
                                     .font = kit::Font::caption(),
                                     .color = kit::secondary})});
            ASSERT_EQ(allOf<kit::Symbol>(view.content).size(), 1U);
            EXPECT_EQ(allOf<kit::Symbol>(view.content)[0].name, "flame.fill");
            EXPECT_EQ(allOf<kit::Symbol>(view.content)[0].color, streakOrange);
            EXPECT_EQ(view.background, kit::tertiaryFill);
            EXPECT_EQ(view.widgetUrl, "kelmarplanner://stats");
        }
    }
}

struct WordsRow {
    const char* what;
    std::int64_t count;
    const char* lastDate;
    int hour;
    const char* freezeNext;
    Texts small;
    Texts medium;
};

TEST(StreakView, SaysHowTheStreakStands) {
    const std::vector<WordsRow> rows{
        {"milestone",
         7,
         usualDay,
         15,
         "",
         {"7", "7-day streak!"},
         {"7", "day streak", "Best 21", "7-day streak!", "Next up: 14 days."}},
        {"a whole year",
         365,
         usualDay,
         15,
         "",
         {"365", "365-day streak!"},
         {"365", "day streak", "Best 21", "365-day streak!", "That’s a whole year."}},
        {"done",
         400,
         usualDay,
         15,
         "",
         {"400", "day streak"},
         {"400", "day streak", "Best 21", "Today counts!",
          "Everything due today is done. See you tomorrow."}},
        {"early",
         5,
         dayBefore,
         20,
         "",
         {"5", "day streak"},
         {"5", "day streak", "Best 21", "Keep it going", "Finish what’s due today to make it 6."}},
        {"late",
         5,
         dayBefore,
         21,
         dayAfter,
         {"5", "Ends at midnight"},
         {"5", "day streak", "Best 21", "Ends at midnight",
          "Finish what’s due today, or your 5-day streak ends."}},
        {"late with a freeze",
         5,
         dayBefore,
         21,
         usualDay,
         {"5", "Ends at midnight"},
         {"5", "day streak", "Best 21", "Ends at midnight",
          "Finish what’s due today. If you can’t, your streak freeze covers it."}},
        {"dead",
         12,
         "2025-10-01",
         15,
         "",
         {"0", "day streak"},
         {"0", "day streak", "Best 21", "Start a streak",
          "Finish everything due today and it starts at 1."}},
    };
    for (const WordsRow& row : rows) {
        auto streak = streakOf(row.count, row.lastDate);
        streak.freezeNext = row.freezeNext;
        EXPECT_EQ(wordsOf(drawn(streak, row.hour, Family::small)), row.small) << row.what;
        EXPECT_EQ(wordsOf(drawn(streak, row.hour, Family::medium)), row.medium) << row.what;
    }
}

struct CountRow {
    Family family;
    double size;
    double flame;
};

TEST(StreakCount, IsAFlameBesideALargeNumber) {
    for (const CountRow& row :
         {CountRow{Family::small, 40, 40 * 0.62}, CountRow{Family::medium, 48, 48 * 0.62}}) {
        const kit::View view = drawn(streakOf(5, dayBefore), 15, row.family).content;
        const auto rows = allOf<kit::HStack>(view);
        const auto count = std::ranges::find_if(rows, [](const kit::HStack& each) {
            return std::holds_alternative<kit::Symbol>(each.children.front().node);
        });
        ASSERT_NE(count, rows.end());
        EXPECT_EQ(count->spacing, 3);
        EXPECT_EQ(count->alignment, kit::VerticalAlignment::center);
        EXPECT_EQ(std::get<kit::Symbol>(count->children.at(0).node),
                  (kit::Symbol{.name = "flame.fill",
                               .font = kit::Font::system(row.flame, FontWeight::bold),
                               .color = kit::secondary.withOpacity(0.55)}));
        const auto& number = std::get<kit::Text>(count->children.at(1).node);
        EXPECT_EQ(number.text, "5");
        EXPECT_EQ(number.font, kit::Font::system(row.size, FontWeight::heavy).monospacedDigits());
        EXPECT_EQ(number.color, kit::primary);
    }
}

TEST(StreakCount, IsAPlainNumberInEveryLocale) {
    const TestSurroundings test("de_DE", "Europe/Berlin");
    const auto entry = entryOf(snapshotWith(streakOf(12'345, dayBefore)), test.at(15));
    EXPECT_EQ(wordsOf(drawn(test.surroundings, entry, Family::small)).front(), "12345");
}

TEST(StreakSmall, IsAColumnOfCountHeadlineAndWeek) {
    const kit::View view = drawn(streakOf(5, dayBefore), 21, Family::small).content;
    EXPECT_EQ(textSaying(view, "Ends at midnight"),
              (kit::Text{.text = "Ends at midnight",
                         .font = kit::Font::system(12.5, FontWeight::heavy),
                         .color = streakOrange,
                         .lineLimit = 1,
                         .minimumScale = 0.8}));
    EXPECT_EQ(
        textSaying(drawn(streakOf(5, dayBefore), 15, Family::small).content, "day streak").color,
        kit::secondary);
    const auto frames = allOf<kit::Frame>(view);
    EXPECT_EQ(std::ranges::count(frames, kit::FrameLengths{.width = 15, .height = 15},
                                 &kit::Frame::lengths),
              7);
}

TEST(StreakMedium, HasTheTotalBesideTheMessage) {
    const kit::View view = drawn(streakOf(8, usualDay), 15, Family::medium).content;
    const kit::Color smallText = kit::white.withOpacity(0.88);
    EXPECT_EQ(textSaying(view, "day streak"),
              (kit::Text{.text = "day streak",
                         .font = kit::Font::system(12.5, FontWeight::heavy),
                         .color = smallText}));
    EXPECT_EQ(textSaying(view, "Best 21"),
              (kit::Text{.text = "Best 21",
                         .font = kit::Font::system(11, FontWeight::semibold),
                         .color = smallText}));
    EXPECT_EQ(textSaying(view, "Today counts!"),
              (kit::Text{.text = "Today counts!",
                         .font = kit::Font::system(16, FontWeight::heavy),
                         .color = kit::white,
                         .lineLimit = 1,
                         .minimumScale = 0.8}));
    const kit::Text subline = textSaying(view, "Everything due today is done. See you tomorrow.");
    EXPECT_EQ(subline.font, kit::Font::system(11.5, FontWeight::medium));
    EXPECT_EQ(subline.color, smallText);
    EXPECT_EQ(subline.lineLimit, 2);
    const auto paddings = allOf<kit::Padding>(view);
    EXPECT_EQ(std::ranges::count(paddings, kit::EdgeInsets{.top = 2}, &kit::Padding::insets), 1);
    const auto frames = allOf<kit::Frame>(view);
    EXPECT_EQ(std::ranges::count(frames, kit::FrameLengths{.width = 19, .height = 19},
                                 &kit::Frame::lengths),
              7);
}

TEST(StreakMedium, KeepsItsColumnsHoweverLongTheNumberIs) {
    for (const std::int64_t count : {1, 12, 128, 1'234'567}) {
        const kit::View view = drawn(streakOf(count, dayBefore), 15, Family::medium).content;
        const auto& columns = std::get<kit::HStack>(view.node);
        ASSERT_EQ(columns.children.size(), 2U);
        EXPECT_EQ(std::get<kit::Frame>(columns.children[0].node).lengths,
                  kit::FrameLengths{.width = 120});
        const kit::Text number = textSaying(view, std::to_string(count));
        EXPECT_EQ(number.lineLimit, 1);
        EXPECT_LT(number.minimumScale, 0.5);
    }
}

TEST(StreakView, ShowsTheWeekUpToTheEntrysDay) {
    const TestSurroundings test;
    auto streak = streakOf(2, usualDay);
    streak.hist = {{usualDay, 2}, {dayBefore, 1}};
    const auto symbolsAt = [&](int days) {
        Texts names;
        const auto entry = entryOf(snapshotWith(streak), test.at(15, 0, days));
        for (const kit::Symbol& symbol :
             allOf<kit::Symbol>(drawn(test.surroundings, entry, Family::small).content))
            names.push_back(symbol.name);
        return names;
    };
    EXPECT_EQ(symbolsAt(0), (Texts{"flame.fill", "checkmark", "snowflake"}));
    EXPECT_EQ(symbolsAt(5), (Texts{"flame.fill", "checkmark", "snowflake"}));
    EXPECT_EQ(symbolsAt(6), (Texts{"flame.fill", "snowflake"}));
    EXPECT_EQ(symbolsAt(7), Texts{"flame.fill"});
    const auto entry = entryOf(snapshotWith(streak), test.at(0, 0, 1));
    const Texts texts = textsOf(drawn(test.surroundings, entry, Family::small).content);
    EXPECT_EQ(Texts(texts.end() - 7, texts.end()), (Texts{"S", "S", "M", "T", "W", "T", "F"}));
}

TEST(StreakView, TurnsOrangeOnceTodayCountsInFullColourOnly) {
    for (const Family family : streakFamilies) {
        for (const RenderingMode mode : kit::renderingModes) {
            for (const std::int64_t count : {7, 8}) {
                EXPECT_EQ(drawn(streakOf(count, usualDay), 15, family, mode).background,
                          mode == RenderingMode::fullColor ? streakOrange : kit::tertiaryFill);
                EXPECT_EQ(drawn(streakOf(count, dayBefore), 22, family, mode).background,
                          kit::tertiaryFill);
            }
        }
    }
}

TEST(StreakView, PaintsNoColourOfItsOwnOutsideFullColour) {
    auto streak = streakOf(7, usualDay);
    streak.hist = {{usualDay, 1}, {dayBefore, 2}};
    for (const std::string& last : {std::string(usualDay), std::string(dayBefore)}) {
        streak.lastDate = last;
        for (const RenderingMode mode : {RenderingMode::accented, RenderingMode::vibrant}) {
            const kit::View view = drawn(streak, 22, Family::medium, mode).content;
            for (const kit::Text& text : allOf<kit::Text>(view))
                EXPECT_TRUE(text.color.style()) << text.text;
            for (const kit::Symbol& symbol : allOf<kit::Symbol>(view))
                EXPECT_TRUE(symbol.color.style()) << symbol.name;
            for (const kit::Shape& shape : allOf<kit::Shape>(view))
                EXPECT_TRUE(shape.fill.value_or(kit::clear).style() &&
                            shape.stroke.value_or(kit::clear).style());
        }
    }
}

TEST(StreakView, OpensTheStatisticsAndHasNoOtherLink) {
    for (const Family family : streakFamilies) {
        const kit::DrawnEntry view = drawn(streakOf(7, usualDay), 15, family);
        EXPECT_EQ(view.widgetUrl, "kelmarplanner://stats");
        EXPECT_TRUE(allOf<kit::Link>(view.content).empty());
    }
}

TEST(StreakView, DependsOnTheEntrysDateAlone) {
    TestSurroundings test;
    EXPECT_TRUE(rc::check([&] {
        auto streak = streakOf(*rc::gen::inRange<std::int64_t>(0, 400),
                               *rc::gen::element<std::string>(usualDay, dayBefore, ""));
        streak.freezeNext = *rc::gen::element<std::string>("", usualDay, dayAfter);
        const auto entry = entryOf(snapshotWith(streak), test.at(*rc::gen::inRange(0, 24), 30));
        for (const Family family : streakFamilies) {
            test.clock.set(entry.date);
            const kit::DrawnEntry whenShown = drawn(test.surroundings, entry, family);
            test.clock.set(entry.date + *rc::gen::inRange(-100, 100) * 3600.0);
            RC_ASSERT(drawn(test.surroundings, entry, family) == whenShown);
        }
    }));
}

TEST(StreakView, TranslatesItsWords) {
    const TestSurroundings test;
    const Surroundings shouting = testing::shouting(test);
    for (const std::string& last : {std::string(usualDay), std::string(dayBefore), std::string()}) {
        for (const std::int64_t count : {7, 8}) {
            for (const int hour : {15, 22}) {
                const auto entry = entryOf(snapshotWith(streakOf(count, last)), test.at(hour));
                const Texts words = wordsOf(drawn(shouting, entry, Family::medium));
                for (std::size_t index = 1; index < words.size(); ++index)
                    EXPECT_TRUE(words[index].starts_with('!')) << words[index];
            }
        }
    }
    const StreakEntry signedOut{.date = test.at(15), .data = nullptr};
    EXPECT_TRUE(textsOf(drawn(shouting, signedOut, Family::small).content)[0].starts_with('!'));
}

}  // namespace
}  // namespace kelmar::widget
