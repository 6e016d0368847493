#include "Desktop/ActivationToken.h"

#include <QWindow>
#include <algorithm>
#include <fmt/format.h>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

/// A property of one number; 0 where there is none.
std::uint32_t numberIn(xcb_connection_t* x, xcb_window_t window, x11::Atom property,
                       xcb_atom_t type) {
    const x11::ReplyPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x, xcb_get_property(x, 0, window, numberOf(property), type, 0, 1), nullptr));
    const bool isThere = reply && reply->format == 32 && reply->value_len == 1;
    return isThere ? *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())) : 0;
}

/// The server's time of the last press or key in a window, which Qt keeps in a property (Extended
/// Window Manager Hints, "_NET_WM_USER_TIME"): there, or in a window of its own for those window
/// managers that understand it, most of them, whom not every key shall wake.
std::uint32_t userTime(xcb_connection_t* x, xcb_window_t window) {
    const xcb_window_t ofItsOwn = numberIn(x, window, x11::Atom::userTimeWindow, XCB_ATOM_WINDOW);
    return numberIn(x, ofItsOwn != XCB_WINDOW_NONE ? ofItsOwn : window, x11::Atom::userTime,
                    XCB_ATOM_CARDINAL);
}

}  // namespace

std::string makeActivationToken() {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return {};
    }
    std::uint32_t latest = 0;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->handle() != nullptr) {
            latest = std::max(latest, userTime(x, static_cast<xcb_window_t>(window->winId())));
        }
    }
    static int count = 0;
    return latest == 0 ? std::string()
                       : fmt::format("kelmar-widgets-{}-{}_TIME{}",
                                     QCoreApplication::applicationPid(), ++count, latest);
}

}  // namespace kelmar::desktop
