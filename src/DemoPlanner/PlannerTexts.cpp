#include "DemoPlanner/PlannerTexts.h"

#include <cmath>
#include <cstdint>
#include <fmt/format.h>

namespace kelmar::demo {

namespace {

std::string daysText(std::int64_t days) {
    return fmt::format("{} {}", days, days == 1 ? "day" : "days");
}

std::string clockText(system::Seconds seconds) {
    const auto whole = static_cast<std::int64_t>(std::ceil(seconds));
    return fmt::format("{}:{:02}", whole / 60, whole % 60);
}

std::string streakStatus(const shared::WidgetData::Streak& streak, system::Date now,
                         const system::Calendar& calendar) {
    if (streak.lastDate == shared::WidgetData::Streak::key(now, calendar)) {
        return "Today counts";
    }
    return streak.isAlive(now, calendar) ? "Grows when nothing due today is left"
                                         : "Begins again when nothing due today is left";
}

}  // namespace

std::string dueText(const Assignment& assignment, system::Date now,
                    const system::LocaleTexts& texts) {
    if (assignment.done) {
        return "done";
    }
    if (assignment.item.due < now) {
        return "overdue";
    }
    return assignment.item.hasTime ? "due " + texts.shortTime(assignment.item.due) : "due today";
}

TimerTexts timerTexts(const shared::WidgetData::Timer& timer, const system::LocaleTexts& texts) {
    const std::string title = timer.sessionTitle.empty() ? timer.className : timer.sessionTitle;
    if (timer.ringing) {
        return {title, "Time’s up", "Stop alarm"};
    }
    if (timer.endAt) {
        return {title, "Until " + texts.shortTime(*timer.endAt), "Pause"};
    }
    if (timer.state == "paused") {
        return {title, "Paused with " + clockText(timer.secsLeft) + " left", "Resume"};
    }
    return {title, "Ready, " + clockText(timer.total), "Start"};
}

StreakTexts streakTexts(const shared::WidgetData::Streak& streak, system::Date now,
                        const system::Calendar& calendar) {
    const std::int64_t count = streak.isAlive(now, calendar) ? streak.count : 0;
    return {daysText(count) + ", best " + std::to_string(streak.best),
            streakStatus(streak, now, calendar)};
}

}  // namespace kelmar::demo
