#include "DemoPlanner/Coursework.h"

#include <algorithm>
#include <array>
#include <optional>

namespace kelmar::demo {

namespace {

using system::Calendar;
using system::Date;

enum ClassIndex : std::size_t { calculus, biology, history, english, spanish, informatics };

constexpr std::array<SchoolClass, 6> classes{{
    {"calculus", "Calculus", "#6366F1"},
    {"biology", "Biology", "#10B981"},
    {"history", "World History", "#F59E0B"},
    {"english", "English Literature", "#EC4899"},
    {"spanish", "Spanish II", "#EF4444"},
    {"informatics", "Computer Science", "#0EA5E9"},
}};

/// A time of day, or none where only the day counts.
struct DueTime {
    int hour;
    int minute;
};

struct Homework {
    ClassIndex subject;
    const char* title;
    std::optional<DueTime> time;
};

constexpr DueTime lastMinute{23, 59};
constexpr DueTime evening{21, 0};

/// One round of two weeks; each class at most once a day.
const std::vector<std::vector<Homework>>& round() {
    static const std::vector<std::vector<Homework>> days{
        {{biology, "Lab report: Yeast and temperature", evening},
         {calculus, "Problem set 6: Chain rule", lastMinute},
         {spanish, "Vocabulario: En la ciudad", std::nullopt}},
        {{english, "Read “Persuasion”, ch. 4–6", std::nullopt},
         {informatics, "Sorting visualizer, part 1", lastMinute}},
        {{history, "Source analysis: The Silk Roads", DueTime{8, 30}},
         {calculus, "Quiz: Derivatives", DueTime{10, 0}}},
        {{biology, "Reading notes: Cell membranes", std::nullopt}},
        {{spanish, "Diálogo: Pedir en un restaurante", DueTime{12, 15}},
         {english, "Essay outline: Anne Elliot’s silence", lastMinute}},
        {{informatics, "Unit test exercises", lastMinute}},
        {{history, "Map quiz: Trade routes", std::nullopt},
         {calculus, "Problem set 7: Implicit differentiation", lastMinute}},
        {{biology, "Unit test: Cells", DueTime{9, 0}},
         {spanish, "Workbook pp. 48–49", std::nullopt}},
        {{english, "Essay draft: Anne Elliot’s silence", lastMinute}},
        {{history, "Group slides: Samarkand", DueTime{17, 0}},
         {informatics, "Sorting visualizer, part 2", lastMinute}},
        {{calculus, "Related rates worksheet", evening}},
        {{spanish, "Presentación: Mi barrio", DueTime{11, 0}},
         {biology, "Poster: Photosynthesis", std::nullopt}},
        {{english, "Peer review: two drafts", lastMinute}},
        {{history, "Chapter 9 questions", evening}, {calculus, "Practice exam", std::nullopt}},
    };
    return days;
}

bool isDueEarlier(const Assignment& first, const Assignment& second) {
    return first.item.due < second.item.due;
}

/// Work that has no time may be handed in until the last second of its day.
Date dueDate(Date day, const Homework& homework, const Calendar& calendar) {
    if (homework.time) {
        return calendar.settingTime(day, homework.time->hour, homework.time->minute);
    }
    return calendar.startOfNextDay(day).value_or(day) + -1;
}

Assignment assignmentOf(Date day, const Homework& homework, const Calendar& calendar) {
    const SchoolClass& subject = classes.at(homework.subject);
    Assignment assignment;
    assignment.item.id =
        std::string(subject.id) + "/" + shared::WidgetData::Streak::key(day, calendar);
    assignment.item.title = homework.title;
    assignment.item.className = subject.name;
    assignment.item.classColor = subject.color;
    assignment.item.due = dueDate(day, homework, calendar);
    assignment.item.hasTime = homework.time.has_value();
    assignment.classId = subject.id;
    return assignment;
}

}  // namespace

std::span<const SchoolClass> schoolClasses() {
    return classes;
}

Coursework Coursework::begun(Date now, const Calendar& calendar) {
    Coursework coursework;
    if (const std::optional<Date> yesterday = calendar.addingDays(now, -1)) {
        const Homework late{history, "Essay: The fall of Constantinople", lastMinute};
        coursework.assignments_.push_back(assignmentOf(*yesterday, late, calendar));
    }
    coursework.advance(now, calendar);
    return coursework;
}

void Coursework::advance(Date now, const Calendar& calendar) {
    const Date today = calendar.startOfDay(now);
    if (const std::optional<Date> oldest = calendar.addingDays(today, -daysOfGrace)) {
        std::erase_if(assignments_,
                      [&](const Assignment& assignment) { return assignment.item.due < *oldest; });
    }
    std::optional<Date> day = today;
    for (int ahead = 0; ahead <= daysAhead && day; ++ahead) {
        if (dueOn(*day, calendar).empty()) {
            handOut(*day, calendar);
        }
        day = calendar.startOfNextDay(*day);
    }
    std::stable_sort(assignments_.begin(), assignments_.end(), isDueEarlier);
}

void Coursework::handOut(Date day, const Calendar& calendar) {
    const auto& days = round();
    for (const Homework& homework : days.at(static_cast<std::size_t>(lesson_) % days.size())) {
        assignments_.push_back(assignmentOf(day, homework, calendar));
    }
    ++lesson_;
}

bool Coursework::setDone(const std::string& id, bool done) {
    const auto found = std::find_if(assignments_.begin(), assignments_.end(),
                                    [&](const Assignment& each) { return each.item.id == id; });
    if (found == assignments_.end()) {
        return false;
    }
    found->done = done;
    return true;
}

std::vector<Assignment> Coursework::openToday(Date now, const Calendar& calendar) const {
    const Date tomorrow = calendar.startOfNextDay(now).value_or(now);
    std::vector<Assignment> open;
    std::copy_if(assignments_.begin(), assignments_.end(), std::back_inserter(open),
                 [&](const Assignment& each) { return !each.done && each.item.due < tomorrow; });
    return open;
}

std::vector<Assignment> Coursework::openLater(Date now, const Calendar& calendar) const {
    const Date tomorrow = calendar.startOfNextDay(now).value_or(now);
    std::vector<Assignment> open;
    std::copy_if(assignments_.begin(), assignments_.end(), std::back_inserter(open),
                 [&](const Assignment& each) { return !each.done && each.item.due >= tomorrow; });
    return open;
}

std::vector<Assignment> Coursework::dueOn(Date date, const Calendar& calendar) const {
    std::vector<Assignment> due;
    std::copy_if(assignments_.begin(), assignments_.end(), std::back_inserter(due),
                 [&](const Assignment& each) { return calendar.isSameDay(each.item.due, date); });
    return due;
}

const Assignment* Coursework::find(const std::string& id) const {
    const auto found = std::find_if(assignments_.begin(), assignments_.end(),
                                    [&](const Assignment& each) { return each.item.id == id; });
    return found == assignments_.end() ? nullptr : &*found;
}

}  // namespace kelmar::demo
