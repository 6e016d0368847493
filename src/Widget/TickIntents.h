#pragma once

#include <string>

#include "Kit/Intent.h"
#include "Widget/Outcome.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// Ticks an assignment off: records it in the tick journal, then tells the planner. Fails, without
/// a word to the planner, when the tick cannot be written.
struct TickOffIntent {
    static constexpr const char* name = "TickOffIntent";

    std::string id;
    std::string title;  ///< As the row shows it; travels as the parameter "name".

    [[nodiscard]] kit::Intent described() const;
    void perform(const Surroundings& surroundings, Outcome ended) const;
};

/// Takes a tick back: removes its files, whether or not there are any, then tells the planner.
struct UndoTickIntent {
    static constexpr const char* name = "UndoTickIntent";

    std::string id;

    [[nodiscard]] kit::Intent described() const;
    void perform(const Surroundings& surroundings, Outcome ended) const;
};

}  // namespace kelmar::widget
