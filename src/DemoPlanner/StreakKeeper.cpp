#include "DemoPlanner/StreakKeeper.h"

#include <algorithm>
#include <string>

namespace kelmar::demo {

namespace {

constexpr std::int64_t counted = 1;
constexpr std::int64_t covered = 2;
/// A freeze is ready again a week after the day that it covered.
constexpr int freezeDays = 7;

std::string keyOf(system::Date day, int offset, const system::Calendar& calendar) {
    const std::optional<system::Date> date = calendar.addingDays(day, offset);
    return date ? StreakKeeper::Streak::key(*date, calendar) : std::string();
}

}  // namespace

StreakKeeper StreakKeeper::begun(system::Date now, const system::Calendar& calendar) {
    constexpr int coveredDay = -3;
    StreakKeeper keeper;
    for (int offset = -7; offset < 0; ++offset) {
        keeper.streak.hist[keyOf(now, offset, calendar)] = offset == coveredDay ? covered : counted;
    }
    keeper.streak.count = 6;
    keeper.streak.best = 11;
    keeper.streak.lastDate = keyOf(now, -1, calendar);
    keeper.streak.freezeNext = keyOf(now, coveredDay + freezeDays, calendar);
    return keeper;
}

void StreakKeeper::settleToday(bool everythingDone, system::Date now,
                               const system::Calendar& calendar) {
    const std::string today = Streak::key(now, calendar);
    const bool counts = streak.lastDate == today;
    if (everythingDone && !counts) {
        beforeToday = streak;
        streak.count = streak.isAlive(now, calendar) ? streak.count + 1 : 1;
        streak.best = std::max(streak.best, streak.count);
        streak.lastDate = today;
        streak.hist[today] = counted;
    } else if (!everythingDone && counts && beforeToday) {
        streak = *beforeToday;
        beforeToday.reset();
    }
}

void StreakKeeper::closeDays(system::Date lastSeen, system::Date now,
                             const system::Calendar& calendar) {
    beforeToday.reset();
    const system::Date today = calendar.startOfDay(now);
    system::Date day = calendar.startOfDay(lastSeen);
    while (day < today && closeDay(day, calendar)) {
        const std::optional<system::Date> next = calendar.startOfNextDay(day);
        if (!next) {
            return;
        }
        day = *next;
    }
}

bool StreakKeeper::closeDay(system::Date day, const system::Calendar& calendar) {
    const std::string key = Streak::key(day, calendar);
    if (streak.hist.contains(key)) {
        return true;
    }
    const bool freezeIsReady = streak.freezeNext.empty() || key >= streak.freezeNext;
    if (streak.count < 1 || !streak.isAlive(day, calendar) || !freezeIsReady) {
        return false;
    }
    streak.hist[key] = covered;
    streak.lastDate = key;
    streak.freezeNext = keyOf(day, freezeDays, calendar);
    return true;
}

}  // namespace kelmar::demo
