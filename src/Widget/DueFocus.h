#pragma once

#include <string>
#include <vector>

#include "Shared/WidgetData.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The assignments that the Due Today widget features, and the others. They refer to the snapshot
/// that they were chosen from.
struct Focus {
    using Items = std::vector<const shared::WidgetData::Item*>;

    Items items;
    Items rest;         ///< Shown behind the featured ones as room allows.
    std::string label;  ///< The words beside the count of the featured ones.
    bool isToday = false;
};

/// Today's assignments; on a day without any, those of the first day that has some.
[[nodiscard]] Focus focus(const shared::WidgetData& data, system::Date at,
                          const Surroundings& surroundings);

}  // namespace kelmar::widget
