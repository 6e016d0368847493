#pragma once

#include "Kit/View.h"
#include "Layout/Proposal.h"
#include "Layout/TextMeasurer.h"

namespace kelmar::layout {

/// The room of a countdown, which must hold every text that it will show.
struct CountdownFace {
    Size size = {};
    kit::Font font = {};  ///< Shrunk where the texts had to shrink.
    double baseline = 0;
};

/// A countdown is never cut off: half a time would tell a wrong one. Where it cannot shrink far
/// enough it is wider than its room.
[[nodiscard]] CountdownFace countdownFace(const kit::Countdown& countdown, const Length& room,
                                          const TextMeasurer& measurer);

}  // namespace kelmar::layout
