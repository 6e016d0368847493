#pragma once

#include <optional>
#include <string>
#include <vector>

#include "DemoPlanner/Coursework.h"
#include "DemoPlanner/PlannerUrl.h"
#include "DemoPlanner/StreakKeeper.h"
#include "DemoPlanner/StudyTimer.h"
#include "DemoPlanner/Timetable.h"
#include "Shared/WidgetData.h"
#include "System/Date.h"

namespace kelmar::demo {

/// Everything that the planner remembers, across restarts too.
struct PlannerState {
    system::Date lastSeen;  ///< When the days were last brought up to date.
    bool signedIn = true;
    bool schoolCalendarConnected = true;
    Coursework coursework;
    StreakKeeper streak;
    StudyTimer timer;

    bool operator==(const PlannerState&) const = default;

    /// What somebody finds who starts for the first time at `now`.
    [[nodiscard]] static PlannerState begun(system::Date now, const system::Calendar& calendar);
};

/// The planner's own rules, without files, windows or a clock of its own: every change is told
/// the moment at which it happens.
class Planner {
public:
    Planner(PlannerState state, const Calendars& calendars)
        : state_(std::move(state)), calendars_(calendars) {}

    /// Takes in what has happened by itself since the last change: the session that ran out, the
    /// days that passed. To be called at `nextChange` and before anything else is done.
    void advance(system::Date now);
    /// When something happens by itself again.
    [[nodiscard]] std::optional<system::Date> nextChange(system::Date now) const;

    /// Marks an assignment done or not; false when there is none of this id.
    bool setDone(const std::string& id, bool done, system::Date now);
    void turnTimerOn(system::Date now);
    void turnTimerOff(system::Date now);
    void startTimer(system::Date now, std::int64_t minutes);
    void setSignedIn(bool signedIn) { state_.signedIn = signedIn; }
    void setSchoolCalendarConnected(bool connected) { state_.schoolCalendarConnected = connected; }

    /// What the widgets are told at `now`.
    [[nodiscard]] shared::WidgetData snapshot(system::Date now) const;
    [[nodiscard]] shared::WidgetData::Timer timer(system::Date now) const;
    /// What is still to do on the day of `now` and what is done of its work already.
    [[nodiscard]] std::vector<Assignment> today(system::Date now) const;
    [[nodiscard]] const PlannerState& state() const { return state_; }

private:
    void passDays(system::Date now);
    void settleStreak(system::Date now);
    [[nodiscard]] StudySubject nextSubject(system::Date now) const;

    PlannerState state_;
    Calendars calendars_;
};

}  // namespace kelmar::demo
