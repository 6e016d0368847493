#include "Desktop/ActivationToken.h"

#include <QWindow>
#include <algorithm>
#include <fmt/format.h>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

/// The server's time of the last press or key in a window, which Qt keeps in a property there.
std::uint32_t userTime(xcb_connection_t* x, xcb_window_t window, xcb_atom_t property) {
    const x11::ReplyPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x, xcb_get_property(x, 0, window, property, XCB_ATOM_CARDINAL, 0, 1), nullptr));
    const bool isThere = reply && reply->format == 32 && reply->value_len == 1;
    return isThere ? *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())) : 0;
}

}  // namespace

std::string makeActivationToken() {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return {};
    }
    const xcb_atom_t property = numberOf(x11::Atom::userTime);
    std::uint32_t latest = 0;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->handle() != nullptr) {
            latest =
                std::max(latest, userTime(x, static_cast<xcb_window_t>(window->winId()), property));
        }
    }
    static int count = 0;
    return latest == 0 ? std::string()
                       : fmt::format("kelmar-widgets-{}-{}_TIME{}",
                                     QCoreApplication::applicationPid(), ++count, latest);
}

}  // namespace kelmar::desktop
