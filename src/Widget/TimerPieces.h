#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Kit/View.h"
#include "Shared/WidgetData.h"
#include "Widget/Surroundings.h"
#include "Widget/TimerState.h"

/// The pieces of the Study Timer widget.
namespace kelmar::widget {

/// Whether sessions of other lengths are offered beside the one that stands ready.
enum class Presets { absent, present };

/// The lengths in minutes that are offered beside the one that stands ready: the first two of the
/// timer's presets that differ from it, in their order.
[[nodiscard]] std::vector<std::int64_t> offeredPresets(const shared::WidgetData::Timer& timer);

/// Builds the pieces for one timer at one moment, the entry's date. A session is over when it rings
/// or has run out by then, whether or not the planner has noticed.
class TimerPieces {
public:
    TimerPieces(const shared::WidgetData::Timer& timer, system::Date at, kit::Color tint,
                const Surroundings& surroundings);

    [[nodiscard]] kit::View classRow() const;
    /// Fatal for a remaining time that no clock can show.
    [[nodiscard]] kit::View clock() const;
    [[nodiscard]] kit::View progress() const;
    [[nodiscard]] kit::View statusLine() const;
    /// As wide as the room that they are offered.
    [[nodiscard]] kit::View buttons(Presets presets) const;

    /// What the status line says.
    [[nodiscard]] std::string status() const;

private:
    [[nodiscard]] kit::View runButton() const;
    [[nodiscard]] kit::View presetButton(std::int64_t minutes) const;
    [[nodiscard]] kit::View button(kit::Intent intent, const char* symbol,
                                   const std::string& label) const;

    const shared::WidgetData::Timer& timer_;
    system::Date at_;
    kit::Color tint_;
    const Surroundings& surroundings_;
    TimerState state_;
    bool done_;
};

}  // namespace kelmar::widget
