#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "System/Result.h"

namespace kelmar::demo {

/// Something in the planner that can be brought into view.
struct ShowDashboard {
    bool operator==(const ShowDashboard&) const = default;
};
struct ShowAssignment {
    std::string id;
    bool operator==(const ShowAssignment&) const = default;
};
struct ShowClass {
    std::string id;
    bool operator==(const ShowClass&) const = default;
};
struct ShowSchedule {
    bool operator==(const ShowSchedule&) const = default;
};
struct ShowStatistics {
    bool operator==(const ShowStatistics&) const = default;
};
struct ShowTimer {
    bool operator==(const ShowTimer&) const = default;
};
using DeepLink =
    std::variant<ShowDashboard, ShowAssignment, ShowClass, ShowSchedule, ShowStatistics, ShowTimer>;

/// Something that the widgets ask for in the background.
struct TakeTicks {
    bool operator==(const TakeTicks&) const = default;
};
struct Untick {
    std::string id;
    bool operator==(const Untick&) const = default;
};
struct TurnTimerOn {
    bool operator==(const TurnTimerOn&) const = default;
};
struct TurnTimerOff {
    bool operator==(const TurnTimerOff&) const = default;
};
struct StartTimer {
    std::int64_t minutes = 0;  ///< From 1 to StudyTimer::longestMinutes.
    bool operator==(const StartTimer&) const = default;
};
using Command = std::variant<TakeTicks, Untick, TurnTimerOn, TurnTimerOff, StartTimer>;

using Request = std::variant<DeepLink, Command>;

/// The scheme whose URLs the planner takes, and the type under which desktops know its handler.
inline constexpr const char* plannerScheme = "kelmarplanner";
inline constexpr const char* plannerSchemeType = "x-scheme-handler/kelmarplanner";

/// What a `kelmarplanner:` URL (RFC 3986) asks for, or why it asks for nothing. Ids are
/// percent-decoded and may hold slashes; one slash at the end of an URL without an id is let pass,
/// since some dispatchers add it.
[[nodiscard]] system::Result<Request> parsePlannerUrl(std::string_view url);

}  // namespace kelmar::demo
