#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Desktop/LiveChange.h"
#include "Layout/CountdownText.h"

namespace kelmar::desktop {
namespace {

using system::Date;

Date at(double seconds) {
    return Date::since1970(1'760'000'000 + seconds);
}

layout::PlacedBox countdown(double from, double to) {
    layout::PlacedBox box;
    box.rect = {0, 0, 80, 20};
    box.drawing = layout::CountdownDrawing{.from = at(from), .to = at(to), .font = {}};
    return box;
}

layout::PlacedBox bar(double from, double to, double width) {
    layout::PlacedBox box;
    box.rect = {0, 0, width, 4};
    box.drawing = layout::ProgressDrawing{{.value = kit::BarInterval{at(from), at(to)}}};
    return box;
}

TEST(LiveChange, StillBoxesNeverChange) {
    layout::PlacedBox text;
    text.drawing = layout::TextDrawing{};
    layout::PlacedBox stillBar;
    stillBar.drawing = layout::ProgressDrawing{{.value = kit::BarValue{0.5}}};
    EXPECT_EQ(nextLiveChange({text, stillBar, {}}, at(0), 1), std::nullopt);
}

TEST(LiveChange, CountdownChangesWhenWholeSecondsAreLeft) {
    EXPECT_EQ(nextLiveChange({countdown(0, 1500)}, at(3.25), 1), at(4));
    EXPECT_EQ(nextLiveChange({countdown(0, 1500.5)}, at(3.25), 1), at(3.5));
}

TEST(LiveChange, CountdownOnAWholeSecondChangesASecondLater) {
    EXPECT_EQ(nextLiveChange({countdown(0, 1500)}, at(4), 1), at(5));
}

TEST(LiveChange, CountdownChangesLastAtItsEnd) {
    EXPECT_EQ(nextLiveChange({countdown(0, 10)}, at(9.5), 1), at(10));
    EXPECT_EQ(nextLiveChange({countdown(0, 10)}, at(10), 1), std::nullopt);
    EXPECT_EQ(nextLiveChange({countdown(0, 10)}, at(500), 1), std::nullopt);
}

TEST(LiveChange, CountdownYetToBeginStandsStillUntilItsFirstSecondIsOver) {
    EXPECT_EQ(nextLiveChange({countdown(100, 110)}, at(0), 1), at(101));
}

TEST(LiveChange, BarChangesWhenItsEndMovesByAPixel) {
    EXPECT_EQ(nextLiveChange({bar(0, 1000, 100)}, at(1), 1), at(10));
    EXPECT_EQ(nextLiveChange({bar(0, 1000, 100)}, at(1), 2), at(5));
}

TEST(LiveChange, EndedAndEmptyBarsNeverChange) {
    EXPECT_EQ(nextLiveChange({bar(0, 1000, 100)}, at(1000), 1), std::nullopt);
    EXPECT_EQ(nextLiveChange({bar(5, 5, 100)}, at(0), 1), std::nullopt);
    EXPECT_EQ(nextLiveChange({bar(9, 5, 100)}, at(0), 1), std::nullopt);
}

TEST(LiveChange, EarliestOfSeveralBoxesDecides) {
    EXPECT_EQ(nextLiveChange({bar(0, 1000, 100), countdown(0, 50), {}}, at(2.5), 1), at(3));
}

RC_GTEST_PROP(LiveChange, WakingAtEachChangeEndsAfterOneWakeASecond, ()) {
    const double from = *rc::gen::inRange(-2000, 2000) / 16.0;
    const double to = from + *rc::gen::inRange(1, 500) / 16.0;
    Date now = at(from);
    int wakes = 0;
    while (const auto next = nextLiveChange({countdown(from, to)}, now, 1)) {
        RC_ASSERT(*next > now);
        RC_ASSERT(*next <= at(to));
        now = *next;
        ++wakes;
    }
    RC_ASSERT(now == at(to));
    RC_ASSERT(wakes == int(std::ceil(to - from)));
}

/// Any moment at all, not only whole seconds: nobody starts a session on the second.
rc::Gen<double> anySeconds(double least, double most) {
    return rc::gen::map(rc::gen::inRange<int>(0, 1'000'000), [least, most](int part) {
        return least + (most - least) * part / 1'000'000;
    });
}

RC_GTEST_PROP(LiveChange, CountdownReadsTheSameUntilItsNextChangeAndOneSecondLessFromThenOn, ()) {
    const double to = *anySeconds(1, 8000);
    const Date now = at(*anySeconds(0, to - 0.01));
    const auto next = nextLiveChange({countdown(0, to)}, now, 1);
    RC_ASSERT(next.has_value());
    const auto reads = [&](Date moment) { return layout::countdownText(at(to) - moment); };
    // A clock that counts seconds since 1970 has a grain of its own.
    constexpr double grain = 1e-5;
    RC_PRE(*next - now > 2 * grain);
    RC_ASSERT(reads(*next + -grain) == reads(now));
    RC_ASSERT(reads(*next + grain) != reads(now));
    RC_ASSERT(*next - now <= 1 + grain);
}

RC_GTEST_PROP(LiveChange, BarNeverWakesMoreOftenThanItHasPixels, ()) {
    const double length = *anySeconds(1, 8000);
    const int width = *rc::gen::inRange(1, 340);
    const double scale = *rc::gen::element(1.0, 1.25, 1.5, 2.0);
    Date now = at(0);
    int wakes = 0;
    while (const auto next = nextLiveChange({bar(0, length, width)}, now, scale)) {
        RC_ASSERT(*next > now);
        now = *next;
        ++wakes;
    }
    RC_ASSERT(now == at(length));
    RC_ASSERT(wakes <= int(std::ceil(width * scale)));
}

}  // namespace
}  // namespace kelmar::desktop
