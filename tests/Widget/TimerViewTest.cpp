#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Metrics.h"
#include "Widget/Colors.h"
#include "Widget/TimerView.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/Shouting.h"
#include "tests/Support/Timers.h"

namespace kelmar::widget {
namespace {

using kit::Family;
using testing::allOf;
using testing::pausedTimer;
using testing::readyTimer;
using testing::runningTimer;
using testing::snapshotOf;
using testing::snapshotWith;
using testing::TestSurroundings;
using testing::textsOf;
using Texts = std::vector<std::string>;

constexpr system::Date now = TestSurroundings::usualNow;
constexpr std::array timerFamilies{Family::small, Family::medium};

TimerEntry entryOf(const shared::WidgetData& data) {
    return {.date = now, .data = std::make_shared<const shared::WidgetData>(data)};
}

kit::DrawnEntry drawn(const TimerEntry& entry, Family family,
                      const Surroundings& surroundings = TestSurroundings().surroundings) {
    const kit::Environment environment{.family = family, .contentSize = kit::contentSize(family)};
    return TimerWidgetView(entry, environment, plannerAccent, breakGreen, surroundings).body();
}

kit::DrawnEntry drawnTimer(const shared::WidgetData::Timer& timer, Family family) {
    return drawn(entryOf(snapshotWith(timer)), family);
}

TEST(TimerSignedOut, IsShownWithoutATimerAndWhenNobodyIsSignedIn) {
    auto signedOut = snapshotWith(runningTimer());
    signedOut.signedIn = false;
    for (const TimerEntry& entry :
         {TimerEntry{.date = now, .data = nullptr}, entryOf(signedOut), entryOf(snapshotOf({}))}) {
        for (const Family family : timerFamilies) {
            const kit::DrawnEntry view = drawn(entry, family);
            EXPECT_EQ(textsOf(view.content),
                      Texts{"Open Kelmar Planner and sign in to use the study timer."});
            EXPECT_EQ(allOf<kit::Text>(view.content).front().font, kit::Font::caption());
            EXPECT_EQ(allOf<kit::Text>(view.content).front().color, kit::secondary);
            EXPECT_EQ(allOf<kit::Symbol>(view.content).front().name, "timer");
            EXPECT_EQ(allOf<kit::Symbol>(view.content).front().color, plannerAccent);
            EXPECT_TRUE(allOf<kit::Button>(view.content).empty());
            EXPECT_EQ(view.widgetUrl, std::nullopt);
        }
    }
}

TEST(TimerSmall, StacksTheColumnASpacerAndTheButton) {
    const kit::View view = drawnTimer(readyTimer(), Family::small).content;
    const auto& stack = std::get<kit::VStack>(view.node);
    EXPECT_EQ(stack.alignment, kit::HorizontalAlignment::leading);
    ASSERT_EQ(stack.children.size(), 3U);
    EXPECT_EQ(textsOf(stack.children[0]), (Texts{"Biology", "25:00", "Ready to focus"}));
    EXPECT_TRUE(std::holds_alternative<kit::Spacer>(stack.children[1].node));
    EXPECT_EQ(textsOf(stack.children[2]), Texts{"Start"});
}

TEST(TimerMedium, SetsTheButtonsWithPresetsBesideTheColumn) {
    const kit::View view = drawnTimer(readyTimer(), Family::medium).content;
    EXPECT_EQ(textsOf(view),
              (Texts{"Biology", "25:00", "Ready to focus", "Start", "50 min", "15 min"}));
    const auto& whole = std::get<kit::Frame>(view.node);
    EXPECT_EQ(whole.lengths,
              (kit::FrameLengths{.maxWidth = kit::infinity, .maxHeight = kit::infinity}));
    EXPECT_EQ(whole.alignment.vertical, kit::VerticalAlignment::top);
    const auto& row = std::get<kit::HStack>(whole.child->node);
    EXPECT_EQ(row.alignment, kit::VerticalAlignment::top);
    EXPECT_EQ(row.spacing, 14);
    ASSERT_EQ(row.children.size(), 2U);
    EXPECT_EQ(std::get<kit::Frame>(row.children[1].node).lengths,
              (kit::FrameLengths{.width = 112}));
    EXPECT_EQ(allOf<kit::Button>(row.children[1]).size(), 3U);
}

TEST(TimerColumn, HoldsClassClockBarAndStatusInThisOrder) {
    for (const Family family : timerFamilies) {
        const kit::View view = drawnTimer(runningTimer(), family).content;
        const auto columns = allOf<kit::VStack>(view);
        const auto column = std::ranges::find_if(
            columns, [](const kit::VStack& stack) { return stack.children.size() == 4; });
        ASSERT_NE(column, columns.end());
        EXPECT_EQ(column->alignment, kit::HorizontalAlignment::leading);
        EXPECT_EQ(textsOf(column->children[0]), Texts{"Biology"});
        EXPECT_TRUE(std::holds_alternative<kit::Countdown>(column->children[1].node));
        EXPECT_TRUE(std::holds_alternative<kit::Progress>(column->children[2].node));
        EXPECT_EQ(textsOf(column->children[3]), Texts{"Focusing"});
    }
}

TEST(TimerView, ASessionThatRunsOutTurnsOverAtTheEntryOfItsEnd) {
    const auto data = entryOf(snapshotWith(runningTimer())).data;
    for (const Family family : timerFamilies) {
        EXPECT_EQ(textsOf(drawn({.date = now + 599.999, .data = data}, family).content),
                  (Texts{"Biology", "Focusing", "Pause"}));
        EXPECT_EQ(textsOf(drawn({.date = now + 600, .data = data}, family).content),
                  (Texts{"Biology", "Time’s up", "Take a break", "Stop alarm"}));
    }
}

TEST(TimerView, IsGreenInABreakAndOtherwiseOfTheAccent) {
    for (const Family family : timerFamilies) {
        for (auto timer : {readyTimer(), runningTimer(), pausedTimer()}) {
            for (const bool isBreak : {false, true}) {
                timer.isBreak = isBreak;
                const kit::Color tint = isBreak ? breakGreen : plannerAccent;
                const kit::View view = drawnTimer(timer, family).content;
                EXPECT_EQ(allOf<kit::Progress>(view).at(0).tint, tint);
                for (const kit::Symbol& symbol : allOf<kit::Symbol>(view))
                    EXPECT_EQ(symbol.color, tint);
                for (const kit::Countdown& clock : allOf<kit::Countdown>(view))
                    EXPECT_EQ(clock.color, tint);
            }
        }
    }
}

TEST(TimerView, OpensTheTimerAndHasNoOtherLink) {
    for (const Family family : timerFamilies) {
        const kit::DrawnEntry view = drawnTimer(pausedTimer(), family);
        EXPECT_EQ(view.widgetUrl, "kelmarplanner://timer-open");
        EXPECT_TRUE(allOf<kit::Link>(view.content).empty());
        EXPECT_EQ(view.background, kit::tertiaryFill);
    }
}

TEST(TimerView, TranslatesItsWordsAndLeavesThePlannersAlone) {
    const TestSurroundings test;
    const Surroundings surroundings = testing::shouting(test);
    const auto said = [&](const shared::WidgetData::Timer& timer) {
        return textsOf(drawn(entryOf(snapshotWith(timer)), Family::medium, surroundings).content);
    };
    EXPECT_EQ(said(readyTimer()),
              (Texts{"Biology", "25:00", "!Ready to focus", "!Start", "!50 min", "!15 min"}));
    EXPECT_EQ(said(pausedTimer()), (Texts{"Biology", "12:30", "!Paused", "!Resume"}));
    auto running = runningTimer();
    EXPECT_EQ(said(running), (Texts{"Biology", "!Focusing", "!Pause"}));
    running.sessionTitle = "Essay";
    EXPECT_EQ(said(running), (Texts{"Biology", "Essay", "!Pause"}));
    running.ringing = true;
    EXPECT_EQ(said(running), (Texts{"Biology", "!Time’s up", "!Take a break", "!Stop alarm"}));
}

TEST(TimerView, DependsOnTheEntrysDateAlone) {
    TestSurroundings test;
    EXPECT_TRUE(rc::check([&] {
        auto timer = *rc::gen::elementOf(std::vector{readyTimer(), runningTimer(), pausedTimer()});
        timer.ringing = *rc::gen::arbitrary<bool>();
        timer.isBreak = *rc::gen::arbitrary<bool>();
        TimerEntry entry = entryOf(snapshotWith(timer));
        entry.date = now + *rc::gen::inRange(-1200, 1200);
        for (const Family family : timerFamilies) {
            test.clock.set(entry.date);
            const kit::DrawnEntry whenShown = drawn(entry, family, test.surroundings);
            test.clock.set(entry.date + *rc::gen::inRange(-2000, 2000));
            RC_ASSERT(drawn(entry, family, test.surroundings) == whenShown);
        }
    }));
}

}  // namespace
}  // namespace kelmar::widget
