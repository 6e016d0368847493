#include "DemoPlanner/Timetable.h"

#include <array>
#include <chrono>
#include <optional>

namespace kelmar::demo {

namespace {

using shared::WidgetData;
using system::Date;
using Block = WidgetData::ScheduleDay::Block;

constexpr int daysShown = 7;

/// Hours and minutes on a day.
struct Slot {
    int startHour;
    int startMinute;
    int endHour;
    int endMinute;
};

constexpr std::array<Slot, 4> lessonSlots{
    {{8, 30, 9, 45}, {9, 55, 11, 10}, {11, 20, 12, 35}, {13, 20, 14, 35}}};
constexpr Slot lunchSlot{12, 35, 13, 20};
constexpr std::size_t lessonsBeforeLunch = 3;
constexpr std::array<Slot, 2> studySlots{{{16, 0, 16, 45}, {17, 0, 17, 45}}};
/// Which classes, by their place in the list, are held on A and on B days.
constexpr std::array<std::array<std::size_t, 4>, 2> lessons{{{0, 1, 3, 5}, {2, 4, 0, 1}}};

enum class DayKind { a, b, free };

DayKind kindOf(Date day, const system::Calendar& gregorian) {
    const system::DateComponents parts = gregorian.components(day);
    const std::chrono::sys_days date = std::chrono::year(parts.year) / parts.month / parts.day;
    const std::chrono::weekday weekday(date);
    if (weekday == std::chrono::Saturday || weekday == std::chrono::Sunday) {
        return DayKind::free;
    }
    const bool isEven = date.time_since_epoch().count() % 2 == 0;
    return isEven ? DayKind::a : DayKind::b;
}

Block blockAt(Date day, const Slot& slot, const system::Calendar& calendar) {
    Block block;
    block.start = calendar.settingTime(day, slot.startHour, slot.startMinute);
    block.end = calendar.settingTime(day, slot.endHour, slot.endMinute);
    return block;
}

Block lessonBlock(Date day, const Slot& slot, std::size_t index, const system::Calendar& calendar) {
    const SchoolClass& subject = schoolClasses()[index];
    Block block = blockAt(day, slot, calendar);
    block.kind = "period";
    block.title = subject.name;
    block.color = subject.color;
    block.classId = subject.id;
    return block;
}

Block lunchBlock(Date day, const system::Calendar& calendar) {
    Block block = blockAt(day, lunchSlot, calendar);
    block.kind = "break";
    block.title = "Lunch";
    block.color = "#94A3B8";
    return block;
}

Block studyBlock(Date day, const Slot& slot, const Assignment& assignment,
                 const system::Calendar& calendar) {
    Block block = blockAt(day, slot, calendar);
    block.kind = "study";
    block.title = assignment.item.title;
    block.color = assignment.item.classColor;
    block.done = assignment.done;
    block.assignmentId = assignment.item.id;
    block.classId = assignment.classId;
    return block;
}

void addSchool(WidgetData::ScheduleDay& day, DayKind kind, const system::Calendar& calendar) {
    const auto& held = lessons.at(kind == DayKind::a ? 0 : 1);
    day.labels = {kind == DayKind::a ? "A Day" : "B Day"};
    for (std::size_t period = 0; period < held.size(); ++period) {
        if (period == lessonsBeforeLunch) {
            day.blocks.push_back(lunchBlock(day.day, calendar));
        }
        day.blocks.push_back(
            lessonBlock(day.day, lessonSlots.at(period), held.at(period), calendar));
    }
}

void addStudy(WidgetData::ScheduleDay& day, const Coursework& coursework,
              const system::Calendar& calendar) {
    const std::optional<Date> tomorrow = calendar.startOfNextDay(day.day);
    if (!tomorrow) {
        return;
    }
    const std::vector<Assignment> due = coursework.dueOn(*tomorrow, calendar);
    for (std::size_t index = 0; index < studySlots.size() && index < due.size(); ++index) {
        day.blocks.push_back(studyBlock(day.day, studySlots.at(index), due[index], calendar));
    }
}

}  // namespace

std::vector<WidgetData::ScheduleDay> timetable(const Coursework& coursework, Date now,
                                               const Calendars& calendars) {
    std::vector<WidgetData::ScheduleDay> days;
    std::optional<Date> start = calendars.own.startOfDay(now);
    for (int count = 0; count < daysShown && start; ++count) {
        WidgetData::ScheduleDay day;
        day.day = *start;
        const DayKind kind = kindOf(*start, calendars.gregorian);
        if (kind != DayKind::free) {
            addSchool(day, kind, calendars.own);
        }
        addStudy(day, coursework, calendars.own);
        days.push_back(std::move(day));
        start = calendars.own.startOfNextDay(*start);
    }
    return days;
}

}  // namespace kelmar::demo
