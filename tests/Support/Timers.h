#pragma once

#include "tests/Support/TestSurroundings.h"

namespace kelmar::testing {

/// A study session of 25 minutes that stands ready; the other states differ in a field or two.
[[nodiscard]] inline shared::WidgetData::Timer readyTimer() {
    return {.state = "ready",
            .ringing = false,
            .total = 1500,
            .secsLeft = 1500,
            .endAt = std::nullopt,
            .isBreak = false,
            .className = "Biology",
            .classColor = "#10B981",
            .sessionTitle = "",
            .presets = {25, 50, 15}};
}

/// The same session with 10 minutes to go at the usual moment.
[[nodiscard]] inline shared::WidgetData::Timer runningTimer() {
    auto timer = readyTimer();
    timer.state = "running";
    timer.secsLeft = 600;
    timer.endAt = TestSurroundings::usualNow + 600;
    return timer;
}

/// The same session, stopped with 12:30 to go.
[[nodiscard]] inline shared::WidgetData::Timer pausedTimer() {
    auto timer = readyTimer();
    timer.state = "paused";
    timer.secsLeft = 750;
    return timer;
}

[[nodiscard]] inline shared::WidgetData snapshotWith(shared::WidgetData::Timer timer) {
    auto data = snapshotOf({});
    data.timer = std::move(timer);
    return data;
}

}  // namespace kelmar::testing
