#include "Widget/TimerPieces.h"

#include <algorithm>
#include <fmt/format.h>

#include "Widget/Building.h"
#include "Widget/ClockText.h"
#include "Widget/HexString.h"
#include "Widget/TimerIntents.h"
#include "Widget/Truncation.h"

namespace kelmar::widget {

namespace {

using kit::FontWeight;
using shared::WidgetData;

bool isDone(const WidgetData::Timer& timer, system::Date at) {
    const bool hasEnded =
        stateOf(timer) == TimerState::running && timer.endAt && *timer.endAt <= at;
    return timer.ringing || hasEnded;
}

/// Divides where multiplying could leave the 64 bits.
bool isReadyLength(std::int64_t minutes, const WidgetData::Timer& timer) {
    const std::int64_t total = truncated(timer.total);
    return total % 60 == 0 && total / 60 == minutes;
}

}  // namespace

std::vector<std::int64_t> offeredPresets(const WidgetData::Timer& timer) {
    constexpr std::size_t most = 2;
    std::vector<std::int64_t> offered;
    for (const std::int64_t minutes : timer.presets) {
        if (offered.size() == most) {
            break;
        }
        if (!isReadyLength(minutes, timer)) {
            offered.push_back(minutes);
        }
    }
    return offered;
}

TimerPieces::TimerPieces(const WidgetData::Timer& timer, system::Date at, kit::Color tint,
                         const Surroundings& surroundings)
    : timer_(timer),
      at_(at),
      tint_(tint),
      surroundings_(surroundings),
      state_(stateOf(timer)),
      done_(isDone(timer, at)) {}

kit::View TimerPieces::classRow() const {
    constexpr double dot = 7;
    return kit::HStack{
        .alignment = kit::VerticalAlignment::center,
        .spacing = 5,
        .children = {withSize(dot, dot,
                              kit::Shape{.shape = kit::ShapeKind::circle,
                                         .fill = hexString(timer_.classColor)
                                                     .value_or(kit::secondary.withOpacity(0.6))}),
                     kit::Text{.text = timer_.className,
                               .font = kit::Font::system(11, FontWeight::semibold),
                               .color = kit::secondary}}};
}

kit::View TimerPieces::clock() const {
    constexpr double leastScale = 0.6;
    const auto still = [&](std::string text, kit::Font font) {
        return kit::Text{.text = std::move(text),
                         .font = font,
                         .color = tint_,
                         .lineLimit = 1,
                         .minimumScale = leastScale};
    };
    if (done_) {
        return still(surroundings_.localization.text("Time’s up"),
                     kit::Font::system(24, FontWeight::bold).rounded());
    }
    const kit::Font font = kit::Font::system(30, FontWeight::semibold).rounded();
    if (state_ == TimerState::running && timer_.endAt) {
        return kit::Countdown{.from = at_,
                              .to = std::max(at_, *timer_.endAt),
                              .font = font.monospacedDigits(),
                              .color = tint_,
                              .lineLimit = 1,
                              .minimumScale = leastScale};
    }
    const system::Seconds left = state_ == TimerState::ready ? timer_.total : timer_.secsLeft;
    return still(clockText(truncated(left)), font);
}

kit::View TimerPieces::progress() const {
    if (done_) {
        return kit::Progress{.value = kit::BarValue{1}, .tint = tint_};
    }
    if (timer_.total > 0 && state_ == TimerState::running && timer_.endAt) {
        return kit::Progress{
            .value = kit::BarInterval{.from = *timer_.endAt + -timer_.total, .to = *timer_.endAt},
            .tint = tint_};
    }
    const bool hasPart = timer_.total > 0 && state_ == TimerState::paused;
    return kit::Progress{.value = kit::BarValue{hasPart ? 1 - timer_.secsLeft / timer_.total : 0},
                         .tint = tint_};
}

std::string TimerPieces::status() const {
    const system::Localization& words = surroundings_.localization;
    if (done_) {
        return words.text(timer_.isBreak ? "Break’s over" : "Take a break");
    }
    switch (state_) {
        case TimerState::running:
            if (!timer_.sessionTitle.empty()) {
                return timer_.sessionTitle;
            }
            return words.text(timer_.isBreak ? "On a break" : "Focusing");
        case TimerState::paused:
            return words.text("Paused");
        case TimerState::ready:
        case TimerState::other:
            break;
    }
    return words.text(timer_.isBreak ? "Ready for a break" : "Ready to focus");
}

kit::View TimerPieces::statusLine() const {
    return kit::Text{.text = status(),
                     .font = kit::Font::system(10, FontWeight::medium),
                     .color = kit::secondary};
}

kit::View TimerPieces::button(kit::Intent intent, const char* symbol,
                              const std::string& label) const {
    kit::Children face;
    if (symbol != nullptr) {
        face.emplace_back(kit::Symbol{
            .name = symbol, .font = kit::Font::system(10, FontWeight::bold), .color = tint_});
    }
    face.emplace_back(kit::Text{
        .text = label, .font = kit::Font::system(12, FontWeight::semibold), .color = tint_});
    return kit::Button{
        .intent = std::move(intent),
        .label = label,
        .child = onCapsule(
            tint_.withOpacity(0.15),
            kit::Frame{
                .lengths = {.height = 28, .maxWidth = kit::infinity},
                .child = padded(8, 0, kit::HStack{.spacing = 4, .children = std::move(face)})})};
}

kit::View TimerPieces::runButton() const {
    const auto localized = [&](bool run, const char* symbol, const char* label) {
        return button(TimerRunIntent{.run = run}.described(), symbol,
                      surroundings_.localization.text(label));
    };
    if (done_) {
        return localized(true, "alarm", "Stop alarm");
    }
    switch (state_) {
        case TimerState::running:
            return localized(false, "pause.fill", "Pause");
        case TimerState::paused:
            return localized(true, "play.fill", "Resume");
        case TimerState::ready:
        case TimerState::other:
            break;
    }
    return localized(true, "play.fill", "Start");
}

kit::View TimerPieces::presetButton(std::int64_t minutes) const {
    return button(TimerPresetIntent{.minutes = minutes}.described(), nullptr,
                  surroundings_.localization.text("{} min", fmt::to_string(minutes)));
}

kit::View TimerPieces::buttons(Presets presets) const {
    kit::Children all{runButton()};
    const bool isWaiting = !done_ && (state_ == TimerState::ready || state_ == TimerState::other);
    if (isWaiting && presets == Presets::present) {
        for (const std::int64_t minutes : offeredPresets(timer_)) {
            all.push_back(presetButton(minutes));
        }
    }
    return kit::VStack{.spacing = 6, .children = std::move(all)};
}

}  // namespace kelmar::widget
