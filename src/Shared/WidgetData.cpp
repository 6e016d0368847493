#include "Shared/WidgetData.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

#include "System/Fatal.h"

namespace kelmar::shared {
namespace {

system::Date addDays(system::Date date, int days, const system::Calendar& calendar) {
    const std::optional<system::Date> result = calendar.addingDays(date, days);
    if (!result)
        system::fatal("the calendar cannot count back from the day of the streak");
    return *result;
}

}  // namespace

WidgetData WidgetData::without(const std::set<std::string>& ids) const {
    WidgetData result = *this;
    const auto isTicked = [&](const Item& item) { return ids.contains(item.id); };
    std::erase_if(result.today, isTicked);
    std::erase_if(result.upcoming, isTicked);
    return result;
}

WidgetData WidgetData::regrouped(system::Date now, const system::Calendar& calendar) const {
    WidgetData result = *this;
    const std::optional<system::Date> nextDay = calendar.startOfNextDay(now);
    if (!nextDay)
        return result;
    const auto firstDueToday =
        std::stable_partition(result.upcoming.begin(), result.upcoming.end(),
                              [&](const Item& item) { return item.due >= *nextDay; });
    std::move(firstDueToday, result.upcoming.end(), std::back_inserter(result.today));
    result.upcoming.erase(firstDueToday, result.upcoming.end());
    return result;
}

std::string WidgetData::Streak::key(system::Date date, const system::Calendar& calendar) {
    const system::DateComponents day = calendar.components(date);
    return fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day);
}

bool WidgetData::Streak::isAlive(system::Date now, const system::Calendar& calendar) const {
    return lastDate == key(now, calendar) || lastDate == key(addDays(now, -1, calendar), calendar);
}

std::vector<WidgetData::Streak::Day> WidgetData::Streak::recent(
    system::Date now, const system::Calendar& calendar) const {
    constexpr std::int64_t coveredByFreeze = 2;
    const system::Date lastDay = calendar.startOfDay(now);
    std::vector<Day> days;
    for (int offset = -6; offset <= 0; ++offset) {
        const system::Date date = addDays(lastDay, offset, calendar);
        const auto entry = hist.find(key(date, calendar));
        Mark mark = Mark::none;
        if (entry != hist.end())
            mark = entry->second == coveredByFreeze ? Mark::covered : Mark::streak;
        days.push_back({calendar.startOfDay(date), mark, date == lastDay});
    }
    return days;
}

}  // namespace kelmar::shared
