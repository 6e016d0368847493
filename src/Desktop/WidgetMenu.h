#pragma once

#include <functional>
#include <string>

#include "Desktop/Arrangement.h"
#include "Kit/Descriptor.h"
#include "System/Localization.h"

class QMenu;

namespace kelmar::desktop {

/// What a widget's context menu offers to do.
struct MenuActions {
    std::function<void(kit::Family)> resize;
    std::function<void()> remove;
    std::function<void()> undoRemoval;  ///< Empty while there is nothing to bring back.
    std::function<void()> showGallery;
    std::function<void(ArrangementLock)> setLock;
    std::function<void(kit::RenderingMode)> setRenderingMode;
    std::function<void()> quit;
};

/// What is true when the menu opens.
struct MenuState {
    const kit::Bundle& bundle;  ///< Empty while the extension has not answered.
    std::string kind;
    kit::Family family = kit::Family::medium;
    ArrangementLock lock = ArrangementLock::open;
    kit::RenderingMode renderingMode = kit::RenderingMode::fullColor;
};

/// Fills a context menu: size, remove, add widgets, lock, rendering mode, quit. What the lock
/// forbids is there but cannot be chosen.
void fillWidgetMenu(QMenu& menu, const MenuState& state, const MenuActions& actions,
                    const system::Localization& texts);

}  // namespace kelmar::desktop
