#pragma once

#include "Desktop/ArrangementFile.h"
#include "Desktop/Compositor.h"
#include "Desktop/Look.h"
#include "Desktop/Stacking.h"
#include "Host/Log.h"
#include "Host/WidgetHost.h"
#include "Layout/Layout.h"
#include "System/Clock.h"
#include "System/Localization.h"

namespace kelmar::desktop {

/// What the desktop works with; all of it outlives the desktop.
struct DesktopParts {
    host::WidgetHost& host;
    ArrangementFile& arrangementFile;
    Look& look;
    const Compositor& compositor;
    const StackingRule& stacking;
    const system::Clock& clock;
    const system::Localization& texts;
    host::Log& log;
    layout::Direction direction = layout::Direction::leftToRight;
};

}  // namespace kelmar::desktop
