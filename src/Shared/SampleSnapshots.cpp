#include "Shared/SampleSnapshots.h"

#include <algorithm>
#include <cmath>

namespace kelmar::shared {
namespace {

using Item = WidgetData::Item;

constexpr system::Seconds minute = 60;
constexpr system::Seconds hour = 60 * minute;
constexpr system::Seconds day = 24 * hour;

constexpr const char* indigo = "#6366F1";
constexpr const char* green = "#10B981";
constexpr const char* pink = "#EC4899";
constexpr const char* amber = "#F59E0B";
constexpr const char* blue = "#3B82F6";

/// The last minute of today; `now` itself once that has begun, so that nothing reads "Overdue".
system::Date endOfToday(system::Date now, const system::Calendar& calendar) {
    return std::max(now, calendar.startOfNextDay(now).value_or(now + day) + -minute);
}

/// A full hour later today, or the end of today where the night leaves no such hour.
system::Date laterToday(system::Date now, const system::Calendar& calendar) {
    const system::Date nextDay = calendar.startOfNextDay(now).value_or(now + day);
    const double fullHours = std::ceil((nextDay - now) / hour) - 3;
    return fullHours > 0 ? nextDay + -fullHours * hour : endOfToday(now, calendar);
}

std::vector<Item> itemsOfToday(system::Date now, const system::Calendar& calendar) {
    return {
        {"sample-1", "Reading check: Gatsby ch. 7–9", "Honors English 11", pink,
         laterToday(now, calendar), true},
        {"sample-2", "Problem Set 4.1", "AP Calculus BC", indigo, endOfToday(now, calendar), false},
    };
}

std::vector<Item> upcomingItems(system::Date now) {
    return {
        {"sample-3", "Lab report: Osmosis", "AP Biology", green, now + 1 * day, true},
        {"sample-4", "Ch. 7 reading + questions", "AP US History", amber, now + 1 * day, false},
        {"sample-5", "Unit 3 Test: Cell energy", "AP Biology", green, now + 2 * day, true},
        {"sample-6", "Presentación: Mi ciudad", "Spanish III", "#EF4444", now + 3 * day, true},
        {"sample-7", "Problem set 5: Momentum", "AP Physics 1", blue, now + 4 * day, false},
    };
}

WidgetData::ScheduleDay scheduleDay(system::Date now, const system::Calendar& calendar) {
    const auto at = [&](int clockHour, int clockMinute) {
        return calendar.settingTime(now, clockHour, clockMinute);
    };
    return {
        calendar.startOfDay(now),
        {"A Day"},
        {
            {"period", at(8, 0), at(8, 50), "AP Calculus BC", indigo, false, "", "class-1"},
            {"period", at(9, 0), at(9, 50), "AP Biology", green, false, "", "class-2"},
            {"period", at(10, 0), at(10, 50), "Honors English 11", pink, false, "", "class-3"},
            {"study", at(16, 0), at(16, 45), "Problem Set 4.1", indigo, false, "sample-2",
             "class-1"},
        },
    };
}

WidgetData::Timer runningTimer(system::Date now) {
    constexpr system::Seconds left = 18 * minute + 42;
    return {"running", false,           25 * minute,     left, now + left, false, "AP Chemistry",
            green,     "Unit 2 review", {15, 25, 45, 60}};
}

/// Days before today by key: a freeze has covered the third of them, all others counted.
WidgetData::Streak runningStreak(system::Date now, const system::Calendar& calendar) {
    constexpr int length = 12;
    constexpr int frozenDay = 3;
    constexpr std::int64_t counted = 1;
    constexpr std::int64_t covered = 2;
    constexpr int daysUntilFreeze = 4;
    const auto key = [&](int offset) {
        const std::optional<system::Date> date = calendar.addingDays(now, offset);
        return WidgetData::Streak::key(date.value_or(now), calendar);
    };
    WidgetData::Streak streak;
    streak.count = length;
    streak.best = 21;
    streak.lastDate = key(-1);
    for (int daysBack = 1; daysBack <= length; ++daysBack)
        streak.hist[key(-daysBack)] = daysBack == frozenDay ? covered : counted;
    streak.freezeNext = key(daysUntilFreeze);
    return streak;
}

}  // namespace

WidgetData sample(system::Date now, const system::Calendar& calendar) {
    return {
        .updated = now,
        .signedIn = true,
        .today = itemsOfToday(now, calendar),
        .upcoming = upcomingItems(now),
        .schedule = std::vector{scheduleDay(now, calendar)},
        .timer = runningTimer(now),
        .streak = runningStreak(now, calendar),
    };
}

WidgetData scheduleSample(system::Date now, const system::Calendar& calendar) {
    return sample(now, calendar);
}

WidgetData streakSample(system::Date now, const system::Calendar& calendar) {
    return sample(now, calendar);
}

WidgetData timerSample(system::Date now, const system::Calendar& calendar) {
    return sample(now, calendar);
}

}  // namespace kelmar::shared
