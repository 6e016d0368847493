#include "Widget/StudyTimerControl.h"

#include <fmt/format.h>

#include "Widget/ClockText.h"
#include "Widget/Snapshots.h"
#include "Widget/TimerIntents.h"
#include "Widget/TimerState.h"
#include "Widget/Truncation.h"

namespace kelmar::widget {

namespace {

enum class Toggle { off, on };

/// A press asks for the other value.
kit::ControlValue toggle(Toggle toggle, std::string text) {
    const bool isOn = toggle == Toggle::on;
    return {.running = isOn,
            .text = std::move(text),
            .symbol = isOn ? "pause.fill" : "timer",
            .intent = TimerControlIntent{.value = !isOn}.described()};
}

}  // namespace

kit::ControlDescriptor StudyTimerControl::descriptor() const {
    const system::Localization& words = surroundings_.localization;
    return {.kind = kind,
            .displayName = words.text("Study Timer"),
            .description = words.text("Start or pause Kelmar Planner's study timer.")};
}

kit::ControlValue StudyTimerControl::previewValue() const {
    return toggle(Toggle::off, surroundings_.localization.text("Start"));
}

kit::ControlValue StudyTimerControl::currentValue() const {
    const Snapshot snapshot = loadSnapshot(surroundings_);
    const shared::WidgetData::Timer* const timer = shownTimer(snapshot);
    if (timer == nullptr) {
        return toggle(Toggle::off, surroundings_.localization.text("Sign in"));
    }
    return valueOf(*timer);
}

kit::ControlValue StudyTimerControl::valueOf(const shared::WidgetData::Timer& timer) const {
    const system::Localization& words = surroundings_.localization;
    if (timer.ringing) {
        return toggle(Toggle::off, words.text("Time’s up"));
    }
    switch (stateOf(timer)) {
        case TimerState::running:
            return toggle(Toggle::on, runningText(timer));
        case TimerState::paused:
            return toggle(Toggle::off,
                          words.text("Paused · {}", clockText(truncated(timer.secsLeft))));
        case TimerState::ready:
        case TimerState::other:
            break;
    }
    constexpr double minute = 60;
    return toggle(Toggle::off,
                  words.text("Start · {} min", fmt::to_string(truncated(timer.total / minute))));
}

std::string StudyTimerControl::runningText(const shared::WidgetData::Timer& timer) const {
    const system::Localization& words = surroundings_.localization;
    return timer.endAt ? words.text("Until {}", surroundings_.localeTexts.shortTime(*timer.endAt))
                       : words.text("Running");
}

}  // namespace kelmar::widget
