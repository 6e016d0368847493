#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DemoPlanner/Planner.h"
#include "DemoPlanner/PlannerStorage.h"
#include "System/Clock.h"

namespace kelmar::demo {

/// Takes one line for the person who looks at what the planner does.
using LogLine = std::function<void(std::string_view)>;

/// The planner at work: takes URLs and ticks in, and lets the widgets know. After every change the
/// state is saved first and the snapshot published next.
class PlannerService {
public:
    /// For how long a tick that was taken over is kept, so that it can be undone.
    static constexpr system::Seconds doneAge = 60;

    /// Goes on where the last run ended, or begins; takes over the ticks of the meantime.
    PlannerService(PlannerStorage& storage, const system::Clock& clock, const Calendars& calendars,
                   LogLine log);

    /// Does what a URL asks for. A deep link is given back for whoever has a window; what is no
    /// URL of the planner's changes nothing and is logged.
    std::optional<DeepLink> open(std::string_view url);

    /// Lets what happens by itself happen; to be called at `nextChange`, when the clock was set
    /// and when the machine woke up.
    void wake();
    [[nodiscard]] std::optional<system::Date> nextChange() const;

    /// The planner's own window at work.
    void perform(const Command& command);
    void setDone(const std::string& id, bool done);
    void setSignedIn(bool signedIn);
    void setSchoolCalendarConnected(bool connected);

    [[nodiscard]] const Planner& planner() const { return planner_; }
    [[nodiscard]] system::Date now() const { return clock_.now(); }
    /// What the planner's own window lists: today's work, what is done of it included.
    [[nodiscard]] std::vector<Assignment> today() const { return planner_.today(clock_.now()); }

private:
    [[nodiscard]] PlannerState stateAtStart() const;
    void takeTicks();
    [[nodiscard]] std::vector<std::string> markTicked();
    void clearDoneFiles();
    /// Saves and publishes when something has changed or could not be written before.
    bool publish();

    PlannerStorage& storage_;
    const system::Clock& clock_;
    const Calendars calendars_;
    LogLine log_;
    Planner planner_;
    /// What the snapshot on disk shows; nothing when it may be out of date.
    std::optional<PlannerState> published_;
};

}  // namespace kelmar::demo
