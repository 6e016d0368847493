#pragma once

#include <functional>
#include <string>

#include "Kit/Descriptor.h"
#include "System/Localization.h"

class QMenu;

namespace kelmar::desktop {

/// What a widget's context menu offers to do.
struct MenuActions {
    std::function<void(kit::Family)> resize;
    std::function<void()> remove;
    std::function<void(const std::string& kind, kit::Family)> add;
    std::function<void(kit::RenderingMode)> setRenderingMode;
    std::function<void()> quit;
};

/// What is true when the menu opens.
struct MenuState {
    const kit::Bundle& bundle;  ///< Empty while the extension has not answered.
    std::string kind;
    kit::Family family = kit::Family::medium;
    kit::RenderingMode renderingMode = kit::RenderingMode::fullColor;
};

/// Fills a context menu: size, remove, add widget, rendering mode, quit.
void fillWidgetMenu(QMenu& menu, const MenuState& state, const MenuActions& actions,
                    const system::Localization& texts);

}  // namespace kelmar::desktop
