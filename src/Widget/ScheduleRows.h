#pragma once

#include <string>

#include "Kit/Environment.h"
#include "Kit/View.h"
#include "Widget/ScheduleDays.h"
#include "Widget/Surroundings.h"

/// The pieces of the Schedule widget that show one block.
namespace kelmar::widget {

/// Whether a block's turn has come.
enum class Turn { now, other };

class ScheduleRows {
public:
    ScheduleRows(kit::Color accent, kit::RenderingMode renderingMode,
                 const Surroundings& surroundings);

    /// From when to when a block goes: "9:00 AM – 9:50 AM".
    [[nodiscard]] std::string range(const ScheduleBlock& block) const;

    /// The row of the medium and the large family, without its link.
    [[nodiscard]] kit::View row(const ScheduleBlock& block, Turn turn) const;
    /// What the small family shows of the block that is running or of the one that comes next.
    [[nodiscard]] kit::View smallLabel(const ScheduleBlock& block, Turn turn) const;

private:
    [[nodiscard]] kit::Color color(const ScheduleBlock& block) const;
    [[nodiscard]] kit::View titleAndRange(const ScheduleBlock& block) const;
    [[nodiscard]] kit::View nowBadge() const;

    kit::Color accent_;
    kit::RenderingMode renderingMode_;
    const Surroundings& surroundings_;
};

/// What a press on a block opens: the assignment of a study session, else the class, else the
/// schedule. An id that makes no URL is passed over.
[[nodiscard]] std::string url(const ScheduleBlock& block);

}  // namespace kelmar::widget
