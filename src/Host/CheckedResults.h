#pragma once

#include <string_view>

#include "Kit/Timeline.h"
#include "System/Result.h"

/// What an extension gives as content, if the host can draw it without harm to anybody: well
/// formed and with no URL but of the extension's own scheme.
namespace kelmar::host {

[[nodiscard]] system::Result<kit::Entry> checkedEntry(std::string_view json,
                                                      std::string_view urlScheme);
[[nodiscard]] system::Result<kit::Timeline> checkedTimeline(std::string_view json,
                                                            std::string_view urlScheme);

}  // namespace kelmar::host
