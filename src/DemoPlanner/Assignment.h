#pragma once

#include <string>

#include "Shared/WidgetData.h"

namespace kelmar::demo {

/// One piece of homework as the planner keeps it: what the widgets are told of it, and what only
/// the planner knows.
struct Assignment {
    shared::WidgetData::Item item;
    std::string classId;
    bool done = false;

    bool operator==(const Assignment&) const = default;
};

}  // namespace kelmar::demo
