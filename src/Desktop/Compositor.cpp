#include "Desktop/Compositor.h"

#include "Desktop/X11.h"

namespace kelmar::desktop {

// Qt works on one X screen only, and today's servers have but screen 0.
Compositor::Compositor() : manager_("_NET_WM_CM_S0") {
    connect(&manager_, &SelectionOwner::changed, this, &Compositor::changed);
}

bool Compositor::isRunning() const {
    // Elsewhere than on X11 composing is no choice: windows are always composed.
    return x11::connection() == nullptr || manager_.isThere();
}

}  // namespace kelmar::desktop
