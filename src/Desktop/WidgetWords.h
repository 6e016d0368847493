#pragma once

#include <string_view>

#include "Kit/Environment.h"

namespace kelmar::desktop {

/// What menus and the gallery call a size, in English, which is the key of its translation.
[[nodiscard]] std::string_view wordFor(kit::Family family);
/// What menus call a way of colouring widgets.
[[nodiscard]] std::string_view wordFor(kit::RenderingMode mode);

}  // namespace kelmar::desktop
