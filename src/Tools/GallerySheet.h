#pragma once

#include <QImage>

#include "Layout/Layout.h"
#include "Paint/PaintResources.h"
#include "Tools/Stage.h"

namespace kelmar::tools {

/// Every widget in every family from its preview snapshot, once for each scheme and rendering mode:
/// a panel for each pair, modes side by side, schemes below each other.
[[nodiscard]] QImage gallerySheet(const Stage& stage, layout::Direction direction,
                                  const paint::PaintResources& resources, double scale);

}  // namespace kelmar::tools
