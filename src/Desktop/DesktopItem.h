#pragma once

#include <optional>

#include "Desktop/Arrangement.h"
#include "Host/WidgetId.h"

namespace kelmar::desktop {

/// A widget that belongs on the desktop.
struct DesktopItem {
    WidgetPlace place;
    /// Absent while the extension does not offer the widget, so that nothing of it is to be seen.
    std::optional<host::WidgetId> id;
};

}  // namespace kelmar::desktop
