#include "Widget/StreakMood.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "Kit/View.h"

namespace kelmar::widget {

namespace {

using kit::Match;
using shared::WidgetData;

/// The last hour of the day that is not late yet.
constexpr int lastEasyHour = 20;

constexpr std::array<std::int64_t, 8> milestones{3, 7, 14, 30, 50, 100, 180, 365};

Mood moodOf(const WidgetData::Streak& streak, bool isAlive, system::Date at,
            const std::string& today, const system::Calendar& calendar) {
    if (streak.lastDate == today) {
        if (std::ranges::find(milestones, streak.count) != milestones.end()) {
            return mood::Milestone{streak.count};
        }
        return mood::Done{};
    }
    if (isAlive && streak.count >= 1) {
        return mood::AtRisk{.late = calendar.components(at).hour > lastEasyHour};
    }
    return mood::Start{};
}

/// Also of the greatest count, which has no successor of its type.
std::string successor(std::int64_t count) {
    return fmt::to_string(static_cast<std::uint64_t>(count) + 1);
}

}  // namespace

bool todayCounts(const Mood& mood) {
    return std::visit(
        Match{[](const mood::Milestone&) { return true; }, [](const mood::Done&) { return true; },
              [](const mood::AtRisk&) { return false; }, [](const mood::Start&) { return false; }},
        mood);
}

StreakStanding standing(const WidgetData::Streak& streak, system::Date at,
                        const system::Calendar& calendar) {
    const std::string today = WidgetData::Streak::key(at, calendar);
    const bool isAlive = streak.isAlive(at, calendar);
    return {.mood = moodOf(streak, isAlive, at, today, calendar),
            .shownCount = isAlive ? streak.count : 0,
            .hasFreeze = streak.freezeNext.empty() || today >= streak.freezeNext};
}

std::string headline(const Mood& mood, HeadlineLength length,
                     const system::Localization& localization) {
    const auto unlessShort = [&](const char* words) {
        return localization.text(length == HeadlineLength::shortForm ? "day streak" : words);
    };
    return std::visit(Match{[&](const mood::Milestone& milestone) {
                                return localization.text("{}-day streak!",
                                                         fmt::to_string(milestone.count));
                            },
                            [&](const mood::Done&) { return unlessShort("Today counts!"); },
                            [&](const mood::AtRisk& risk) {
                                return risk.late ? localization.text("Ends at midnight")
                                                 : unlessShort("Keep it going");
                            },
                            [&](const mood::Start&) { return unlessShort("Start a streak"); }},
                      mood);
}

std::string subline(const StreakStanding& standing, const system::Localization& localization) {
    return std::visit(
        Match{[&](const mood::Milestone& milestone) {
                  const auto* const next = std::ranges::upper_bound(milestones, milestone.count);
                  return next == milestones.end()
                             ? localization.text("That’s a whole year.")
                             : localization.text("Next up: {} days.", fmt::to_string(*next));
              },
              [&](const mood::Done&) {
                  return localization.text("Everything due today is done. See you tomorrow.");
              },
              [&](const mood::AtRisk& risk) {
                  if (!risk.late) {
                      return localization.text("Finish what’s due today to make it {}.",
                                               successor(standing.shownCount));
                  }
                  if (standing.hasFreeze) {
                      return localization.text(
                          "Finish what’s due today. If you can’t, your streak freeze covers it.");
                  }
                  return localization.text("Finish what’s due today, or your {}-day streak ends.",
                                           fmt::to_string(standing.shownCount));
              },
              [&](const mood::Start&) {
                  return localization.text("Finish everything due today and it starts at 1.");
              }},
        standing.mood);
}

}  // namespace kelmar::widget
