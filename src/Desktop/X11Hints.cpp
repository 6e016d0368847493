#include "Desktop/X11Hints.h"

#include <QWindow>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

}  // namespace

void applyDesktopHints(QWindow& window) {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto [stateProperty, desktopProperty] =
        x11::atoms<2>(x, {"_NET_WM_STATE", "_NET_WM_DESKTOP"});
    const auto states =
        x11::atoms<4>(x, {"_NET_WM_STATE_BELOW", "_NET_WM_STATE_STICKY",
                          "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, stateProperty, XCB_ATOM_ATOM, 32,
                        states.size(), states.data());
    // "Sticky" is about the viewports of one large desktop, this about separate workspaces.
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, desktopProperty, XCB_ATOM_CARDINAL, 32, 1,
                        &everyDesktop);
    xcb_flush(x);
}

bool hasWindowManager() {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return true;
    }
    const auto property = x11::atoms<1>(x, {"_NET_SUPPORTING_WM_CHECK"})[0];
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    const x11::ReplyPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x, xcb_get_property(x, 0, root, property, XCB_ATOM_WINDOW, 0, 1), nullptr));
    return reply && reply->type == XCB_ATOM_WINDOW;
}

bool canReachXServer() {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    const bool isReachable = xcb_connection_has_error(x) == 0;
    xcb_disconnect(x);
    return isReachable;
}

}  // namespace kelmar::desktop
