#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "DemoPlanner/PlannerStorage.h"
#include "DemoPlanner/Timetable.h"
#include "System/Calendar.h"
#include "System/Clock.h"

namespace kelmar::demo {

/// Berlin on a Wednesday in March, at three in the afternoon.
struct Surroundings {
    std::unique_ptr<system::Calendar> calendar = system::makeCalendar("en_US", "Europe/Berlin");
    Calendars calendars{*calendar, *calendar};
    /// 2025-03-05 15:00:00, an hour ahead of UTC.
    static constexpr system::Date wednesday = system::Date::since1970(1'741'183'200);
    system::ManualClock clock{wednesday};

    /// `hour`:`minute` on the day `days` after that Wednesday.
    [[nodiscard]] system::Date at(int days, int hour, int minute = 0) const {
        return calendar->settingTime(calendar->addingDays(wednesday, days).value(), hour, minute);
    }
};

/// A planner folder in memory that writes down what is done to it, in order.
class RecordingStorage final : public PlannerStorage {
public:
    [[nodiscard]] system::Result<std::optional<std::string>> loadState() const override {
        return state;
    }
    system::Result<system::Done> saveState(std::string_view json) override {
        events.emplace_back("save");
        if (isFull) {
            return system::Failure{"no space left"};
        }
        state = std::string(json);
        return system::Done{};
    }
    system::Result<system::Done> publish(std::string_view snapshot) override {
        events.emplace_back("publish");
        if (isFull) {
            return system::Failure{"no space left"};
        }
        published = std::string(snapshot);
        return system::Done{};
    }
    [[nodiscard]] std::vector<std::string> tickFiles() const override {
        std::vector<std::string> names;
        for (const auto& [name, text] : ticks) {
            names.push_back(name);
        }
        return names;
    }
    [[nodiscard]] std::optional<std::string> readTickFile(const std::string& name) const override {
        const auto found = ticks.find(name);
        return found == ticks.end() ? std::nullopt : std::optional(found->second);
    }
    void renameTickFile(const std::string& from, const std::string& to) override {
        events.push_back("rename " + from + " " + to);
        if (auto file = ticks.extract(from)) {
            ticks[to] = file.mapped();
        }
    }
    void removeTickFile(const std::string& name) override {
        events.push_back("remove " + name);
        ticks.erase(name);
    }

    std::optional<std::string> state;
    std::string published;
    std::map<std::string, std::string> ticks;
    std::vector<std::string> events;
    bool isFull = false;
};

}  // namespace kelmar::demo
