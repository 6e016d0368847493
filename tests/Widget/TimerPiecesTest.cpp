#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>

#include "System/Fatal.h"
#include "Widget/Colors.h"
#include "Widget/TimerIntents.h"
#include "Widget/TimerPieces.h"
#include "tests/Support/FindViews.h"
#include "tests/Support/Timers.h"

namespace kelmar::widget {
namespace {

using kit::FontWeight;
using shared::WidgetData;
using testing::allOf;
using testing::pausedTimer;
using testing::readyTimer;
using testing::runningTimer;
using testing::TestSurroundings;
using testing::textsOf;
using Timer = WidgetData::Timer;
using Texts = std::vector<std::string>;
using Minutes = std::vector<std::int64_t>;

constexpr system::Date now = TestSurroundings::usualNow;
constexpr kit::Color tint = plannerAccent;

/// Asks one piece of a timer at the usual moment, or at another.
template <class Ask>
auto piece(const Timer& timer, const Ask& ask, system::Date at = now) {
    const TestSurroundings test;
    return ask(TimerPieces(timer, at, tint, test.surroundings));
}

kit::View clockOf(const Timer& timer, system::Date at = now) {
    return piece(
        timer, [](const TimerPieces& pieces) { return pieces.clock(); }, at);
}

kit::Progress barOf(const Timer& timer, system::Date at = now) {
    return std::get<kit::Progress>(
        piece(
            timer, [](const TimerPieces& pieces) { return pieces.progress(); }, at)
            .node);
}

std::string statusOf(const Timer& timer, system::Date at = now) {
    return piece(
        timer, [](const TimerPieces& pieces) { return pieces.status(); }, at);
}

std::vector<kit::Button> buttonsOf(const Timer& timer, Presets presets = Presets::present,
                                   system::Date at = now) {
    return allOf<kit::Button>(piece(
        timer, [&](const TimerPieces& pieces) { return pieces.buttons(presets); }, at));
}

Timer inState(const std::string& state) {
    Timer timer = readyTimer();
    timer.state = state;
    return timer;
}

Timer ringing(Timer timer) {
    timer.ringing = true;
    return timer;
}

Timer onBreak(Timer timer) {
    timer.isBreak = true;
    return timer;
}

Timer titled(Timer timer) {
    timer.sessionTitle = "Unit 2 review";
    return timer;
}

Timer endingAt(Timer timer, std::optional<system::Date> end) {
    timer.endAt = end;
    return timer;
}

// Clock --------------------------------------------------------------------------------------

struct StillRow {
    const char* state;
    double total;
    double secsLeft;
    const char* text;
};

TEST(TimerClock, StandsStillAtTheWholeLengthWhenReadyAndElseAtWhatIsLeft) {
    for (const StillRow& row : {StillRow{"ready", 1500, 3, "25:00"},
                                {"ready", 3600, 3, "1:00:00"},
                                {"ready", 1500.9, 3, "25:00"},
                                {"ready", 0, 3, "0:00"},
                                {"paused", 1500, 750, "12:30"},
                                {"paused", 1500, 3599.99, "59:59"},
                                {"paused", 1500, -5, "0:00"},
                                {"paused", 1500, -0.5, "0:00"},
                                {"running", 1500, 42, "0:42"},
                                {"asleep", 1500, 61, "1:01"},
                                {"", 1500, 61, "1:01"},
                                {"Ready", 1500, 61, "1:01"}}) {
        Timer timer = inState(row.state);
        timer.total = row.total;
        timer.secsLeft = row.secsLeft;
        const auto text = std::get<kit::Text>(clockOf(timer).node);
        EXPECT_EQ(text, (kit::Text{.text = row.text,
                                   .font = kit::Font::system(30, FontWeight::semibold).rounded(),
                                   .color = tint,
                                   .lineLimit = 1,
                                   .minimumScale = 0.6}))
            << row.state << " " << text.text;
    }
}

TEST(TimerClock, CountsDownLiveFromTheEntryToTheEndWhileRunning) {
    const auto countdown = std::get<kit::Countdown>(clockOf(runningTimer()).node);
    EXPECT_EQ(countdown,
              (kit::Countdown{
                  .from = now,
                  .to = now + 600,
                  .font = kit::Font::system(30, FontWeight::semibold).rounded().monospacedDigits(),
                  .color = tint,
                  .lineLimit = 1,
                  .minimumScale = 0.6}));
    const auto later = std::get<kit::Countdown>(clockOf(runningTimer(), now + 599.5).node);
    EXPECT_EQ(later.from, now + 599.5);
    EXPECT_EQ(later.to, now + 600);
}

TEST(TimerClock, SaysThatTimeIsUpOnceDone) {
    const kit::Text expected{.text = "Time’s up",
                             .font = kit::Font::system(24, FontWeight::bold).rounded(),
                             .color = tint,
                             .lineLimit = 1,
                             .minimumScale = 0.6};
    for (const Timer& timer :
         {ringing(readyTimer()), ringing(pausedTimer()), ringing(runningTimer()),
          endingAt(runningTimer(), now), endingAt(runningTimer(), now + -3600)})
        EXPECT_EQ(std::get<kit::Text>(clockOf(timer).node), expected) << timer.state;
    EXPECT_EQ(std::get<kit::Text>(clockOf(runningTimer(), now + 600).node), expected);
}

TEST(TimerClock, AnEndThatHasPassedMattersOnlyWhileRunning) {
    EXPECT_EQ(textsOf(clockOf(endingAt(pausedTimer(), now + -60))), Texts{"12:30"});
    EXPECT_EQ(textsOf(clockOf(endingAt(readyTimer(), now + -60))), Texts{"25:00"});
    EXPECT_EQ(textsOf(clockOf(endingAt(pausedTimer(), now + 60))), Texts{"12:30"});
}

TEST(TimerClockDeathTest, EndsTheProcessForADurationThatDoesNotFit) {
    for (const double seconds : {0x1p63, -0x1p64, std::numeric_limits<double>::quiet_NaN()}) {
        Timer ready = readyTimer();
        ready.total = seconds;
        Timer paused = pausedTimer();
        paused.secsLeft = seconds;
        for (const Timer& timer : {ready, paused})
            EXPECT_EXIT(clockOf(timer), ::testing::ExitedWithCode(system::fatalExitStatus),
                        "fits no whole number");
    }
}

TEST(TimerClock, ADurationThatIsNotShownMayBeAnything) {
    Timer running = runningTimer();
    running.secsLeft = 1e300;
    EXPECT_TRUE(std::holds_alternative<kit::Countdown>(clockOf(running).node));
    Timer ready = readyTimer();
    ready.secsLeft = 1e300;
    EXPECT_EQ(textsOf(clockOf(ready)), Texts{"25:00"});
    Timer paused = pausedTimer();
    paused.total = 1e300;
    EXPECT_EQ(textsOf(clockOf(paused)), Texts{"12:30"});
    paused.secsLeft = 1e300;
    EXPECT_EQ(textsOf(clockOf(ringing(paused))), Texts{"Time’s up"});
}

// Progress -----------------------------------------------------------------------------------

TEST(TimerProgress, IsALiveBarOverTheWholeSessionWhileRunning) {
    EXPECT_EQ(barOf(runningTimer()),
              (kit::Progress{.value = kit::BarInterval{.from = now + -900, .to = now + 600},
                             .tint = tint}));
    // The session and not the entry: the bar goes on where it was.
    EXPECT_EQ(barOf(runningTimer(), now + 300), barOf(runningTimer()));
}

struct BarRow {
    const char* what;
    Timer timer;
    double value;
};

Timer withLengths(Timer timer, double total, double secsLeft) {
    timer.total = total;
    timer.secsLeft = secsLeft;
    return timer;
}

TEST(TimerProgress, StandsStillInEveryOtherCase) {
    for (const BarRow& row : {
             BarRow{"ready", readyTimer(), 0},
             {"ready, begun", withLengths(readyTimer(), 1500, 750), 0},
             {"other", withLengths(inState("asleep"), 1500, 750), 0},
             {"running without an end", withLengths(inState("running"), 1500, 750), 0},
             {"running without a length", withLengths(runningTimer(), 0, 600), 0},
             {"running with less than no length", withLengths(runningTimer(), -1, 600), 0},
             {"paused half way", withLengths(pausedTimer(), 1500, 750), 0.5},
             {"paused at once", withLengths(pausedTimer(), 1500, 1500), 0},
             {"paused at the end", withLengths(pausedTimer(), 1500, 0), 1},
             {"paused on the way", withLengths(pausedTimer(), 1000, 250), 0.75},
             {"paused without a length", withLengths(pausedTimer(), 0, 750), 0},
             {"ringing", ringing(runningTimer()), 1},
             {"ringing, paused", ringing(pausedTimer()), 1},
             {"ringing without a length", withLengths(ringing(readyTimer()), 0, 0), 1},
             {"ended", endingAt(runningTimer(), now), 1},
             {"ended without a length", withLengths(endingAt(runningTimer(), now), 0, 0), 1},
         })
        EXPECT_EQ(barOf(row.timer),
                  (kit::Progress{.value = kit::BarValue{row.value}, .tint = tint}))
            << row.what;
}

// Status -------------------------------------------------------------------------------------

struct StatusRow {
    const char* what;
    Timer timer;
    const char* study;
    const char* breakTime;
};

TEST(TimerStatus, SaysWhatTheTimerDoes) {
    for (const StatusRow& row : {
             StatusRow{"ringing", ringing(titled(runningTimer())), "Take a break", "Break’s over"},
             {"ringing, paused", ringing(pausedTimer()), "Take a break", "Break’s over"},
             {"ended", endingAt(titled(runningTimer()), now), "Take a break", "Break’s over"},
             {"running, titled", titled(runningTimer()), "Unit 2 review", "Unit 2 review"},
             {"running", runningTimer(), "Focusing", "On a break"},
             {"running without an end", inState("running"), "Focusing", "On a break"},
             {"paused", titled(pausedTimer()), "Paused", "Paused"},
             {"ready", titled(readyTimer()), "Ready to focus", "Ready for a break"},
             {"other", titled(inState("asleep")), "Ready to focus", "Ready for a break"},
             {"empty", inState(""), "Ready to focus", "Ready for a break"},
         }) {
        EXPECT_EQ(statusOf(row.timer), row.study) << row.what;
        EXPECT_EQ(statusOf(onBreak(row.timer)), row.breakTime) << row.what;
    }
}

TEST(TimerStatus, IsSmallAndSecondary) {
    const kit::View line =
        piece(readyTimer(), [](const TimerPieces& pieces) { return pieces.statusLine(); });
    EXPECT_EQ(std::get<kit::Text>(line.node),
              (kit::Text{.text = "Ready to focus",
                         .font = kit::Font::system(10, FontWeight::medium),
                         .color = kit::secondary}));
}

// Class row ----------------------------------------------------------------------------------

struct DotRow {
    const char* classColor;
    kit::Color color;
};

TEST(TimerClassRow, IsADotInTheClassColorBeforeTheClassName) {
    const kit::Color fallback = kit::secondary.withOpacity(0.6);
    for (const DotRow& row : {DotRow{"#000", kit::Color::rgb(0, 0, 0)},
                              {"#ff0000", kit::Color::rgb(1, 0, 0)},
                              {"", fallback},
                              {"teal", fallback},
                              {"#12345678", fallback}}) {
        Timer timer = readyTimer();
        timer.classColor = row.classColor;
        const auto stack = std::get<kit::HStack>(
            piece(timer, [](const TimerPieces& pieces) { return pieces.classRow(); }).node);
        EXPECT_EQ(stack.spacing, 5);
        EXPECT_EQ(stack.alignment, kit::VerticalAlignment::center);
        ASSERT_EQ(stack.children.size(), 2U);
        const auto frame = std::get<kit::Frame>(stack.children[0].node);
        EXPECT_EQ(frame.lengths, (kit::FrameLengths{.width = 7, .height = 7}));
        EXPECT_EQ(std::get<kit::Shape>(frame.child->node),
                  (kit::Shape{.shape = kit::ShapeKind::circle, .fill = row.color}))
            << row.classColor;
        EXPECT_EQ(std::get<kit::Text>(stack.children[1].node),
                  (kit::Text{.text = "Biology",
                             .font = kit::Font::system(11, FontWeight::semibold),
                             .color = kit::secondary}));
    }
}

// Buttons ------------------------------------------------------------------------------------

struct ButtonRow {
    const char* what;
    Timer timer;
    const char* symbol;
    const char* label;
    bool run;
};

TEST(TimerButtons, TheFirstRunsTheTimerOrPausesIt) {
    for (const ButtonRow& row : {
             ButtonRow{"ringing", ringing(readyTimer()), "alarm", "Stop alarm", true},
             {"ringing, running", ringing(runningTimer()), "alarm", "Stop alarm", true},
             {"ringing, paused", ringing(pausedTimer()), "alarm", "Stop alarm", true},
             {"ended", endingAt(runningTimer(), now), "alarm", "Stop alarm", true},
             {"running", runningTimer(), "pause.fill", "Pause", false},
             {"running without an end", inState("running"), "pause.fill", "Pause", false},
             {"paused", pausedTimer(), "play.fill", "Resume", true},
             {"paused, end past", endingAt(pausedTimer(), now + -1), "play.fill", "Resume", true},
             {"ready", readyTimer(), "play.fill", "Start", true},
             {"other", inState("asleep"), "play.fill", "Start", true},
         }) {
        const auto buttons = buttonsOf(row.timer, Presets::absent);
        ASSERT_EQ(buttons.size(), 1U) << row.what;
        EXPECT_EQ(buttons[0].intent, TimerRunIntent{.run = row.run}.described()) << row.what;
        EXPECT_EQ(buttons[0].label, row.label);
        EXPECT_EQ(textsOf(buttons[0].child->node), Texts{row.label}) << row.what;
        const auto symbols = allOf<kit::Symbol>(*buttons[0].child);
        ASSERT_EQ(symbols.size(), 1U) << row.what;
        EXPECT_EQ(symbols[0], (kit::Symbol{.name = row.symbol,
                                           .font = kit::Font::system(10, FontWeight::bold),
                                           .color = tint}));
    }
}

TEST(TimerButtons, PresetsFollowOnlyWhereTheTimerWaits) {
    for (const Timer& timer : {readyTimer(), inState("asleep")}) {
        const auto buttons = buttonsOf(timer);
        ASSERT_EQ(buttons.size(), 3U) << timer.state;
        EXPECT_EQ(buttons[1].intent, TimerPresetIntent{.minutes = 50}.described());
        EXPECT_EQ(buttons[1].label, "50 min");
        EXPECT_EQ(textsOf(*buttons[1].child), Texts{"50 min"});
        EXPECT_TRUE(allOf<kit::Symbol>(*buttons[1].child).empty());
        EXPECT_EQ(buttons[2].intent, TimerPresetIntent{.minutes = 15}.described());
        EXPECT_EQ(buttons[2].label, "15 min");
    }
    for (const Timer& timer : {runningTimer(), pausedTimer(), ringing(readyTimer()),
                               endingAt(runningTimer(), now), inState("running")})
        EXPECT_EQ(buttonsOf(timer).size(), 1U) << timer.state;
}

TEST(TimerButtons, AreCapsulesOfTheTintAsWideAsTheirRoom) {
    for (const kit::Button& button : buttonsOf(readyTimer())) {
        const auto capsule = std::get<kit::Background>(button.child->node);
        EXPECT_EQ(std::get<kit::Shape>(capsule.content->node),
                  (kit::Shape{.shape = kit::ShapeKind::capsule, .fill = tint.withOpacity(0.15)}));
        const auto frame = std::get<kit::Frame>(capsule.child->node);
        EXPECT_EQ(frame.lengths, (kit::FrameLengths{.height = 28, .maxWidth = kit::infinity}));
        EXPECT_EQ(frame.alignment, kit::Alignment{});
        const auto padding = std::get<kit::Padding>(frame.child->node);
        EXPECT_EQ(padding.insets, (kit::EdgeInsets{.leading = 8, .trailing = 8}));
        EXPECT_EQ(std::get<kit::HStack>(padding.child->node).spacing, 4);
        const auto text = allOf<kit::Text>(*button.child).at(0);
        EXPECT_EQ(text.font, kit::Font::system(12, FontWeight::semibold));
        EXPECT_EQ(text.color, tint);
    }
}

// Presets ------------------------------------------------------------------------------------

struct PresetsRow {
    double total;
    Minutes presets;
    Minutes offered;
};

TEST(OfferedPresets, AreTheFirstTwoOfAnotherLength) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    for (const PresetsRow& row : {
             PresetsRow{1500, {25, 50, 15}, {50, 15}},
             {600, {10, 20, 30}, {20, 30}},
             {600, {20, 30, 10}, {20, 30}},
             {600, {}, {}},
             {600, {10}, {}},
             {600, {10, 10, 45}, {45}},
             {600, {45, 45, 20}, {45, 45}},
             {600.9, {10, 20}, {20}},
             {599.9, {10, 20}, {10, 20}},
             {601, {10, 20}, {10, 20}},
             {0, {0, 5}, {5}},
             {0.5, {0, 5}, {5}},
             {-300, {-5, 5}, {5}},
             {-300.5, {-5, 5}, {5}},
             // Their seconds do not fit, so they equal nothing; least * 60 would wrap to 0.
             {0, {least, most}, {least, most}},
             {-60, {most, 1}, {most, 1}},
         }) {
        Timer timer = readyTimer();
        timer.total = row.total;
        timer.presets = row.presets;
        EXPECT_EQ(offeredPresets(timer), row.offered) << row.total;
    }
}

TEST(OfferedPresets, KeepTheOrderAndNeverRepeatTheReadyLength) {
    EXPECT_TRUE(rc::check([] {
        Timer timer = readyTimer();
        timer.presets = *rc::gen::container<Minutes>(rc::gen::inRange<std::int64_t>(-2, 6));
        timer.total = *rc::gen::inRange(-120, 360) + *rc::gen::element(0.0, 0.25);
        const Minutes offered = offeredPresets(timer);
        RC_ASSERT(offered.size() <= 2U);

        // A straight reading of the rule, for lengths whose seconds fit.
        Minutes others;
        for (const std::int64_t minutes : timer.presets) {
            if (static_cast<double>(minutes * 60) != std::trunc(timer.total))
                others.push_back(minutes);
        }
        others.resize(std::min<std::size_t>(others.size(), 2));
        RC_ASSERT(offered == others);
    }));
}

}  // namespace
}  // namespace kelmar::widget
