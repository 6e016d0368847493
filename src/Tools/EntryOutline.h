#pragma once

#include <string>

#include "Kit/Timeline.h"

namespace kelmar::tools {

/// What a drawn entry says, for people: its texts, symbols, bars and what a press does, one a line,
/// indented by the links and buttons that hold them. Stacks and frames are left out.
[[nodiscard]] std::string outline(const kit::DrawnEntry& entry);

}  // namespace kelmar::tools
