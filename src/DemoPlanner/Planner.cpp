#include "DemoPlanner/Planner.h"

#include <algorithm>
#include <iterator>

namespace kelmar::demo {

using system::Date;

namespace {

std::vector<shared::WidgetData::Item> itemsOf(const std::vector<Assignment>& assignments) {
    std::vector<shared::WidgetData::Item> items;
    items.reserve(assignments.size());
    std::transform(assignments.begin(), assignments.end(), std::back_inserter(items),
                   [](const Assignment& assignment) { return assignment.item; });
    return items;
}

}  // namespace

PlannerState PlannerState::begun(Date now, const system::Calendar& calendar) {
    PlannerState state;
    state.lastSeen = now;
    state.coursework = Coursework::begun(now, calendar);
    state.streak = StreakKeeper::begun(now, calendar);
    return state;
}

void Planner::advance(Date now) {
    state_.timer.advance(now);
    if (!calendars_.own.isSameDay(state_.lastSeen, now)) {
        passDays(now);
    }
    settleStreak(now);
}

void Planner::passDays(Date now) {
    state_.streak.closeDays(state_.lastSeen, now, calendars_.own);
    state_.coursework.advance(now, calendars_.own);
    state_.lastSeen = now;
}

void Planner::settleStreak(Date now) {
    const bool everythingDone = state_.coursework.openToday(now, calendars_.own).empty();
    state_.streak.settleToday(everythingDone, now, calendars_.own);
}

std::optional<Date> Planner::nextChange(Date now) const {
    const std::optional<Date> midnight = calendars_.own.startOfNextDay(now);
    if (state_.timer.phase != StudyTimer::Phase::running || !state_.timer.endAt) {
        return midnight;
    }
    return midnight ? std::min(*midnight, *state_.timer.endAt) : state_.timer.endAt;
}

bool Planner::setDone(const std::string& id, bool done, Date now) {
    if (!state_.coursework.setDone(id, done)) {
        return false;
    }
    settleStreak(now);
    return true;
}

void Planner::turnTimerOn(Date now) {
    state_.timer.turnOn(now, nextSubject(now));
}

void Planner::turnTimerOff(Date now) {
    state_.timer.turnOff(now);
}

void Planner::startTimer(Date now, std::int64_t minutes) {
    state_.timer.start(now, minutes);
}

StudySubject Planner::nextSubject(Date now) const {
    std::vector<Assignment> open = state_.coursework.openToday(now, calendars_.own);
    if (open.empty()) {
        open = state_.coursework.openLater(now, calendars_.own);
    }
    if (open.empty()) {
        return {};
    }
    const shared::WidgetData::Item& next = open.front().item;
    return {next.className, next.classColor, next.title};
}

shared::WidgetData::Timer Planner::timer(Date now) const {
    return state_.timer.snapshot(now, nextSubject(now));
}

std::vector<Assignment> Planner::today(Date now) const {
    std::vector<Assignment> today = state_.coursework.openToday(now, calendars_.own);
    for (Assignment& assignment : state_.coursework.dueOn(now, calendars_.own)) {
        if (assignment.done) {
            today.push_back(std::move(assignment));
        }
    }
    return today;
}

shared::WidgetData Planner::snapshot(Date now) const {
    shared::WidgetData data;
    data.updated = now;
    data.signedIn = state_.signedIn;
    if (!state_.signedIn) {
        return data;
    }
    data.today = itemsOf(state_.coursework.openToday(now, calendars_.own));
    data.upcoming = itemsOf(state_.coursework.openLater(now, calendars_.own));
    data.schedule.emplace();
    if (state_.schoolCalendarConnected) {
        data.schedule = timetable(state_.coursework, now, calendars_);
    }
    data.timer = timer(now);
    data.streak = state_.streak.streak;
    return data;
}

}  // namespace kelmar::demo
