#include "DemoPlanner/Opening.h"

#include <algorithm>

#include "DemoPlanner/Match.h"

namespace kelmar::demo {

namespace {

Opening ofAssignment(const std::string& id, const Planner& planner) {
    const Assignment* const assignment = planner.state().coursework.find(id);
    if (assignment == nullptr) {
        return {"Assignment", "An assignment that the planner does not have", id};
    }
    return {"Assignment", assignment->item.title,
            assignment->item.className + (assignment->done ? ", done" : "")};
}

Opening ofClass(const std::string& id) {
    const auto classes = schoolClasses();
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [&](const SchoolClass& each) { return id == each.id; });
    if (found == classes.end()) {
        return {"Class", "A class that the planner does not have", id};
    }
    return {"Class", found->name, ""};
}

}  // namespace

Opening openingOf(const DeepLink& link, const Planner& planner) {
    return std::visit(
        Match{[](const ShowDashboard&) {
                  return Opening{"Dashboard", "The main view", "Everything that is due"};
              },
              [&](const ShowAssignment& show) { return ofAssignment(show.id, planner); },
              [](const ShowClass& show) { return ofClass(show.id); },
              [](const ShowSchedule&) {
                  return Opening{"Schedule", "The timetable", "Classes and study sessions"};
              },
              [](const ShowStatistics&) {
                  return Opening{"Streak & Stats", "The statistics",
                                 "The day streak and its history"};
              },
              [](const ShowTimer&) {
                  return Opening{"Study Timer", "The study timer", "The session and its settings"};
              }},
        link);
}

}  // namespace kelmar::demo
