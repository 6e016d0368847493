#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "System/Calendar.h"
#include "System/Date.h"

namespace kelmar::shared {

/// The snapshot: everything that the planner tells its widgets, as `widget.json` carries it. Plain
/// values; the JSON keys are the field names, no field has a default, and equality compares every
/// field in the order of declaration.
struct WidgetData {
    /// One assignment.
    struct Item {
        std::string id;  ///< The planner's identifier; in tick file names and URLs.
        std::string title;
        std::string className;
        std::string classColor;  ///< Hex text.
        system::Date due;
        bool hasTime = false;  ///< Whether `due` carries a meaningful time of day.

        bool operator==(const Item&) const = default;
    };

    /// One day of the timetable.
    struct ScheduleDay {
        /// A class, or a planned study session (`kind` "study").
        struct Block {
            std::string kind;
            system::Date start;
            system::Date end;
            std::string title;
            std::string color;  ///< Hex text.
            bool done = false;
            std::string assignmentId;  ///< May be empty.
            std::optional<std::string> classId;

            bool operator==(const Block&) const = default;
        };

        system::Date day;  ///< Any moment of the day.
        std::vector<std::string> labels;
        std::vector<Block> blocks;  ///< In the order of display.

        bool operator==(const ScheduleDay&) const = default;
    };

    /// The study timer as the planner runs it.
    struct Timer {
        std::string state;  ///< "running", "paused", "ready"; others may come.
        bool ringing = false;
        system::Seconds total = 0;
        system::Seconds secsLeft = 0;
        std::optional<system::Date> endAt;
        bool isBreak = false;
        std::string className;
        std::string classColor;  ///< Hex text.
        std::string sessionTitle;
        std::vector<std::int64_t> presets;  ///< In minutes.

        bool operator==(const Timer&) const = default;
    };

    struct Streak {
        /// How a day went. In `hist` the value 2 stands for a day that a freeze covered and every
        /// other value for a day that counted.
        enum class Mark { streak, covered, none };

        struct Day {
            system::Date date;  ///< The start of the day.
            Mark mark = Mark::none;
            bool isToday = false;

            bool operator==(const Day&) const = default;
        };

        std::int64_t count = 0;
        std::int64_t best = 0;
        std::string lastDate;  ///< A day key.
        std::map<std::string, std::int64_t> hist;
        std::string freezeNext;  ///< A day key, or empty when a freeze is available now.

        /// A date's year, month and day in the calendar as "2025-03-07".
        [[nodiscard]] static std::string key(system::Date date, const system::Calendar& calendar);
        /// Whether the last day that counted is the day of `now` or the one before.
        [[nodiscard]] bool isAlive(system::Date now, const system::Calendar& calendar) const;
        /// The seven days up to the one that holds `now`, oldest first.
        [[nodiscard]] std::vector<Day> recent(system::Date now,
                                              const system::Calendar& calendar) const;

        bool operator==(const Streak&) const = default;
    };

    system::Date updated;
    bool signedIn = false;
    std::vector<Item> today;
    std::vector<Item> upcoming;
    std::optional<std::vector<ScheduleDay>> schedule;
    std::optional<Timer> timer;
    std::optional<Streak> streak;

    /// A copy without the assignments of these ids in `today` and `upcoming`.
    [[nodiscard]] WidgetData without(const std::set<std::string>& ids) const;
    /// A copy in which what is due before the midnight after `now` has moved from `upcoming` to
    /// the end of `today`; unchanged when the calendar knows no such midnight.
    [[nodiscard]] WidgetData regrouped(system::Date now, const system::Calendar& calendar) const;

    bool operator==(const WidgetData&) const = default;
};

}  // namespace kelmar::shared
