#pragma once

#include <memory>

#include "DemoPlanner/PlannerService.h"
#include "DemoPlanner/PlannerStorage.h"
#include "DemoPlanner/PlannerWindow.h"
#include "DemoPlanner/SingleInstance.h"
#include "DemoPlanner/WallClockTimer.h"
#include "System/Calendar.h"
#include "System/Clock.h"

namespace kelmar::demo {

/// The planner at its desk: it answers starts of the program, shows its window when it is asked
/// to, and wakes when the planner has something to do. Between these it sleeps.
class Application {
public:
    /// Needs the Qt application object. `storage` outlives it.
    Application(PlannerStorage& storage, LogLine log);

    void handle(const StartRequest& request);

private:
    PlannerWindow& window();
    void wake();
    /// Brings the window and the next awakening in line with the planner.
    void settle();

    system::SystemClock clock_;
    std::unique_ptr<system::Calendar> own_;
    std::unique_ptr<system::Calendar> gregorian_;
    PlannerService service_;
    WallClockTimer timer_;
    std::unique_ptr<PlannerWindow> window_;
};

}  // namespace kelmar::demo
