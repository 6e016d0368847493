#pragma once

class QWindow;

/// What Qt does not say to an X11 window manager by itself. Everything here does nothing, and
/// answers no, on any other platform.
namespace kelmar::desktop {

/// Asks the window manager (Extended Window Manager Hints) to treat the window as part of the
/// desktop: below all others, on every workspace, neither in the taskbar nor in the pager. To be
/// called before every show: hiding a window drops its states.
void applyDesktopHints(QWindow& window);

/// Whether a compositing manager runs, without which translucent corners would be black.
[[nodiscard]] bool hasCompositor();

}  // namespace kelmar::desktop
