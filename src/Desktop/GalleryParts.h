#pragma once

#include "Desktop/Compositor.h"
#include "Desktop/Dragging.h"
#include "Desktop/Look.h"
#include "Host/WidgetHost.h"
#include "Layout/Layout.h"
#include "System/Clock.h"
#include "System/Localization.h"

namespace kelmar::desktop {

/// What the gallery works with; all of it outlives the gallery.
struct GalleryParts {
    host::WidgetHost& host;
    const Look& look;
    const Compositor& compositor;
    const system::Clock& clock;
    const system::Localization& texts;
    layout::Direction direction = layout::Direction::leftToRight;
    DragRule dragRule = {};  ///< Where widgets that are dragged out of the gallery come to rest.
};

}  // namespace kelmar::desktop
