#pragma once

#include <string>
#include <string_view>

/// Every URL of the planner application that the widgets know, but for the timer's commands
/// (AppLink.h).
namespace kelmar::widget {

inline constexpr const char* dashboardUrl = "kelmarplanner://dashboard";
inline constexpr const char* scheduleUrl = "kelmarplanner://schedule";
inline constexpr const char* statsUrl = "kelmarplanner://stats";
inline constexpr const char* tickedUrl = "kelmarplanner://ticked";
inline constexpr const char* timerOpenUrl = "kelmarplanner://timer-open";

/// Opens an assignment. A "/" in the id adds a path level. May be no valid URL where the id is no
/// valid text.
[[nodiscard]] std::string assignmentUrl(std::string_view assignmentId);
/// Opens a class, its id treated alike.
[[nodiscard]] std::string classUrl(std::string_view classId);
/// Takes the tick of an assignment back. A "/" in the id is encoded.
[[nodiscard]] std::string untickUrl(std::string_view assignmentId);

}  // namespace kelmar::widget
