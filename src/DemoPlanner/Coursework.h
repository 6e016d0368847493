#pragma once

#include <span>
#include <string>
#include <vector>

#include "DemoPlanner/Assignment.h"
#include "System/Calendar.h"
#include "System/Date.h"

namespace kelmar::demo {

/// One of the student's classes.
struct SchoolClass {
    const char* id;
    const char* name;
    const char* color;  ///< Hex text.
};

/// The classes in the order of a school day.
[[nodiscard]] std::span<const SchoolClass> schoolClasses();

/// What the teachers have set so far. Homework is handed out day by day from a fixed round of two
/// weeks, so that a stand-in that runs for a term never falls dry, and every day has something due.
class Coursework {
public:
    /// How far ahead homework is known: a little over a week.
    static constexpr int daysAhead = 10;
    /// For how long unfinished work is still taken, and finished work remembered.
    static constexpr int daysOfGrace = 2;

    Coursework() = default;
    /// `lesson` counts the days handed out so far.
    Coursework(std::vector<Assignment> assignments, int lesson)
        : assignments_(std::move(assignments)), lesson_(lesson) {}

    /// A first week's work, with something left over from the day before.
    [[nodiscard]] static Coursework begun(system::Date now, const system::Calendar& calendar);

    /// Drops what is past and hands out what has come into sight at `now`.
    void advance(system::Date now, const system::Calendar& calendar);
    /// Marks an assignment; false when there is none of this id.
    bool setDone(const std::string& id, bool done);

    /// What is still to do and due before the day after `now`, what is overdue included; and what
    /// is due later. Both in the order in which they are due.
    [[nodiscard]] std::vector<Assignment> openToday(system::Date now,
                                                    const system::Calendar& calendar) const;
    [[nodiscard]] std::vector<Assignment> openLater(system::Date now,
                                                    const system::Calendar& calendar) const;
    /// Everything due on the day of `date`, finished or not.
    [[nodiscard]] std::vector<Assignment> dueOn(system::Date date,
                                                const system::Calendar& calendar) const;
    [[nodiscard]] const Assignment* find(const std::string& id) const;

    [[nodiscard]] const std::vector<Assignment>& assignments() const { return assignments_; }
    [[nodiscard]] int lesson() const { return lesson_; }

    bool operator==(const Coursework&) const = default;

private:
    void handOut(system::Date day, const system::Calendar& calendar);

    std::vector<Assignment> assignments_;  ///< In the order in which they are due.
    int lesson_ = 0;
};

}  // namespace kelmar::demo
