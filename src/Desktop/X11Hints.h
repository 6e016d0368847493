#pragma once

#include <Qt>

#include "Desktop/Stacking.h"

class QWindow;

namespace kelmar::desktop {

/// Of a window that lies on the desktop.
[[nodiscard]] Qt::WindowFlags desktopWindowFlags(Stacking stacking);

/// Asks the window manager (Extended Window Manager Hints) to treat the window as part of the
/// desktop: below all others, on every workspace, neither in the taskbar nor in the pager. To be
/// called before every show, because hiding a window drops its states. Does nothing off X11.
void applyDesktopHints(QWindow& window, Stacking stacking);

/// Whether a window manager runs that understands those hints. True off X11, where there is no
/// desktop without one.
[[nodiscard]] bool hasWindowManager();

/// Whether an X server answers. Qt would end the process with a core dump where none does.
[[nodiscard]] bool canReachXServer();

}  // namespace kelmar::desktop
