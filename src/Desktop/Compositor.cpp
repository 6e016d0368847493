#include "Desktop/Compositor.h"

#include "Desktop/X11.h"

namespace kelmar::desktop {

Compositor::Compositor() : manager_(x11::Atom::compositingManager) {
    connect(&manager_, &SelectionOwner::changed, this, &Compositor::changed);
}

bool Compositor::isRunning() const {
    // Elsewhere than on X11 composing is no choice: windows are always composed.
    return x11::connection() == nullptr || manager_.isThere();
}

}  // namespace kelmar::desktop
