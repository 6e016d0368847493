#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Shared/WidgetData.h"
#include "System/Date.h"

namespace kelmar::demo {

/// What a study session is for. All texts may be empty.
struct StudySubject {
    std::string className;
    std::string classColor;  ///< Hex text.
    std::string title;

    bool operator==(const StudySubject&) const = default;
};

/// The study timer: a session of study or a break, which is ready to be started, runs, is paused
/// or has run out and rings. It has no clock of its own; whoever holds it calls `advance` when
/// `endAt` comes, and before every command.
struct StudyTimer {
    enum class Phase { ready, running, paused, ringing };

    /// Sessions longer than a day are no study sessions.
    static constexpr std::int64_t longestMinutes = std::int64_t{24} * 60;

    Phase phase = Phase::ready;
    bool isBreak = false;
    system::Seconds total = 25 * 60;        ///< Of the current session.
    system::Seconds secsLeft = 25 * 60;     ///< As of the last change; frozen while paused.
    std::optional<system::Date> endAt;      ///< Of a session that runs or rings.
    system::Seconds studyLength = 25 * 60;  ///< Offered again when a break is over.
    StudySubject subject;                   ///< Fixed when a session starts.

    /// Lets a session that has run out by `now` ring.
    void advance(system::Date now);
    /// Starts what is ready, resumes what is paused, and stops an alarm: a rung study session is
    /// followed by a break, a break by study, either ready to be started. Leaves what runs alone.
    void turnOn(system::Date now, const StudySubject& nextSubject);
    /// Pauses what runs; everything else is left alone.
    void turnOff(system::Date now);
    /// Starts a study session, whatever went on before. `minutes` is from 1 to `longestMinutes`.
    void start(system::Date now, std::int64_t minutes);

    /// What the widgets are told. While a study session is ready, `nextSubject` stands for it.
    [[nodiscard]] shared::WidgetData::Timer snapshot(system::Date now,
                                                     const StudySubject& nextSubject) const;

    bool operator==(const StudyTimer&) const = default;

private:
    void run(system::Date now);
    void makeReady(bool forBreak, system::Seconds length);
};

}  // namespace kelmar::demo
