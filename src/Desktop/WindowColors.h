#pragma once

#include <QPalette>

#include "Layout/Layout.h"
#include "Paint/Appearance.h"

namespace kelmar::desktop {

/// The colours of this program's own windows and menus, which go with its widgets in the same
/// scheme. `PlaceholderText` is for secondary texts, `Highlight` the accent, readable on `Base`.
[[nodiscard]] QPalette windowColors(const paint::Appearance& appearance);

/// The same for menus, whose frames and boxes the style derives from `Window`.
[[nodiscard]] QPalette menuColors(const paint::Appearance& appearance);

[[nodiscard]] Qt::LayoutDirection qtDirection(layout::Direction direction);

}  // namespace kelmar::desktop
