#include "Desktop/ActivationToken.h"

#include <QWindow>
#include <algorithm>
#include <fmt/format.h>
#include <span>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

/// A property of one number; 0 where there is none.
std::uint32_t numberIn(xcb_window_t window, x11::Atom property, xcb_atom_t type) {
    const auto reply = x11::property(window, property, type);
    const std::span numbers = x11::numbersIn(reply);
    return numbers.empty() ? 0 : numbers.front();
}

/// The server's time of the last press or key in a window, which Qt keeps in a property (Extended
/// Window Manager Hints, "_NET_WM_USER_TIME"): there, or in a window of its own for those window
/// managers that understand it, most of them, whom not every key shall wake.
std::uint32_t userTime(xcb_window_t window) {
    const xcb_window_t ofItsOwn = numberIn(window, x11::Atom::userTimeWindow, XCB_ATOM_WINDOW);
    return numberIn(ofItsOwn != XCB_WINDOW_NONE ? ofItsOwn : window, x11::Atom::userTime,
                    XCB_ATOM_CARDINAL);
}

}  // namespace

std::string makeActivationToken() {
    if (x11::connection() == nullptr) {
        return {};
    }
    std::uint32_t latest = 0;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->handle() != nullptr) {
            latest = std::max(latest, userTime(static_cast<xcb_window_t>(window->winId())));
        }
    }
    static int count = 0;
    return latest == 0 ? std::string()
                       : fmt::format("kelmar-widgets-{}-{}_TIME{}",
                                     QCoreApplication::applicationPid(), ++count, latest);
}

}  // namespace kelmar::desktop
