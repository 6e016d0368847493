#include "Widget/ScheduleDays.h"

#include <algorithm>

#include "Widget/Snapshots.h"

namespace kelmar::widget {

namespace {

bool hasBlockToEnd(const ScheduleDay& day, system::Date now) {
    return std::ranges::any_of(day.blocks,
                               [now](const ScheduleBlock& block) { return !hasEnded(block, now); });
}

}  // namespace

const ScheduleDay* shownDay(const std::vector<ScheduleDay>& schedule, system::Date now,
                            const system::Calendar& calendar) {
    // The day's ends once, not the calendar for every day: a list may reach years back.
    const system::Date dayStart = calendar.startOfDay(now);
    const system::Date dayEnd = nextMidnight(now, calendar);
    const auto today = std::ranges::find_if(
        schedule, [&](const ScheduleDay& day) { return dayStart <= day.day && day.day < dayEnd; });
    if (today != schedule.end() && hasBlockToEnd(*today, now)) {
        return &*today;
    }
    const auto next = std::ranges::find_if(
        schedule, [&](const ScheduleDay& day) { return day.day > now && !day.blocks.empty(); });
    return next == schedule.end() ? nullptr : &*next;
}

std::string dayTitle(system::Date day, system::Date now, const Surroundings& surroundings) {
    const system::Calendar& calendar = surroundings.calendar;
    if (calendar.isSameDay(day, now)) {
        return surroundings.localization.text("Today");
    }
    const system::Date clock = surroundings.clock.now();
    if (calendar.isSameDay(now, clock) && calendar.isSameDay(day, nextMidnight(clock, calendar))) {
        return surroundings.localization.text("Tomorrow");
    }
    return surroundings.localeTexts.weekday(day);
}

DayProgress dayProgress(const ScheduleDay& day, system::Date now) {
    DayProgress progress;
    const auto running = std::ranges::find_if(day.blocks, [now](const ScheduleBlock& block) {
        return block.start <= now && now < block.end;
    });
    if (running != day.blocks.end()) {
        progress.current = &*running;
    }
    for (const ScheduleBlock& block : day.blocks) {
        const bool isToCome = block.start > now;
        if (isToCome || (!hasEnded(block, now) && !progress.isCurrent(block))) {
            progress.rest.push_back(&block);
        }
    }
    return progress;
}

}  // namespace kelmar::widget
