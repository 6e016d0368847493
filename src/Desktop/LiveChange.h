#pragma once

#include <optional>

#include "Layout/PlacedBox.h"
#include "System/Date.h"

namespace kelmar::desktop {

/// When a widget's picture next changes by itself: a countdown on its whole seconds, a live bar
/// when its end moves by a pixel (`scale` pixels a point). Nothing when it never will. Later than
/// `now` always, so that waking at that moment makes progress.
[[nodiscard]] std::optional<system::Date> nextLiveChange(const layout::PlacedBoxes& boxes,
                                                         system::Date now, double scale);

}  // namespace kelmar::desktop
