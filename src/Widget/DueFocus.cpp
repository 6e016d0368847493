#include "Widget/DueFocus.h"

#include "Widget/Snapshots.h"

namespace kelmar::widget {

namespace {

using Item = shared::WidgetData::Item;

/// Further ahead than this many days a weekday's name would be ambiguous.
constexpr int daysNamedByWeekday = 7;

std::string label(system::Date due, system::Date at, const Surroundings& surroundings) {
    const system::Calendar& calendar = surroundings.calendar;
    const system::Date startOfToday = calendar.startOfDay(at);
    if (calendar.isSameDay(due, nextMidnight(at, calendar))) {
        return surroundings.localization.text("due tomorrow");
    }
    if (due < addingDays(startOfToday, daysNamedByWeekday, calendar)) {
        return surroundings.localization.text("due {}", surroundings.localeTexts.weekday(due));
    }
    return surroundings.localization.text("due {}", surroundings.localeTexts.monthAndDay(due));
}

Focus::Items pointers(const std::vector<Item>& items) {
    Focus::Items all;
    all.reserve(items.size());
    for (const Item& item : items) {
        all.push_back(&item);
    }
    return all;
}

}  // namespace

Focus focus(const shared::WidgetData& data, system::Date at, const Surroundings& surroundings) {
    if (!data.today.empty() || data.upcoming.empty()) {
        return {.items = pointers(data.today),
                .rest = pointers(data.upcoming),
                .label = surroundings.localization.text("due today"),
                .isToday = true};
    }
    const system::Date firstDue = data.upcoming.front().due;
    Focus focus{
        .items = {}, .rest = {}, .label = label(firstDue, at, surroundings), .isToday = false};
    // The day's ends once, not the calendar for every item: a list may hold thousands.
    const system::Date dayStart = surroundings.calendar.startOfDay(firstDue);
    const system::Date dayEnd = nextMidnight(firstDue, surroundings.calendar);
    for (const Item& item : data.upcoming) {
        const bool isFeatured = dayStart <= item.due && item.due < dayEnd;
        (isFeatured ? focus.items : focus.rest).push_back(&item);
    }
    return focus;
}

}  // namespace kelmar::widget
