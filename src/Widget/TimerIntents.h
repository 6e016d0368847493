#pragma once

#include <cstdint>

#include "Kit/Intent.h"
#include "Widget/Outcome.h"
#include "Widget/Surroundings.h"

/// The actions that drive the planner's study timer. Each sends the planner one command and ends
/// when the open request has completed, always well. They look at no snapshot: what a command means
/// for the timer as it stands is for the planner to say.
namespace kelmar::widget {

/// Starts, resumes, and stops an alarm; or pauses.
struct TimerRunIntent {
    static constexpr const char* name = "TimerRunIntent";

    bool run = false;

    [[nodiscard]] kit::Intent described() const;
    void perform(const Surroundings& surroundings, Outcome ended) const;
};

/// Starts a session of some length.
struct TimerPresetIntent {
    static constexpr const char* name = "TimerPresetIntent";

    std::int64_t minutes = 0;

    [[nodiscard]] kit::Intent described() const;
    void perform(const Surroundings& surroundings, Outcome ended) const;
};

/// What the control's toggle asks for: a running timer, or one that stands still.
struct TimerControlIntent {
    static constexpr const char* name = "TimerControlIntent";

    bool value = false;

    [[nodiscard]] kit::Intent described() const;
    void perform(const Surroundings& surroundings, Outcome ended) const;
};

}  // namespace kelmar::widget
