#include "Desktop/X11Hints.h"

#include <QWindow>
#include <array>

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
    const std::array states{
        numberOf(x11::Atom::windowStateBelow), numberOf(x11::Atom::windowStateSticky),
        numberOf(x11::Atom::windowStateSkipTaskbar), numberOf(x11::Atom::windowStateSkipPager)};
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, numberOf(x11::Atom::windowState),
                        XCB_ATOM_ATOM, 32, states.size(), states.data());
    // "Sticky" is about the viewports of one large desktop, this about separate workspaces.
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, numberOf(x11::Atom::windowDesktop),
                        XCB_ATOM_CARDINAL, 32, 1, &everyDesktop);
    xcb_flush(x);
}

bool hasWindowManager() {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return true;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    const x11::ReplyPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x,
        xcb_get_property(x, 0, root, numberOf(x11::Atom::supportingWindowManager), XCB_ATOM_WINDOW,
                         0, 1),
        nullptr));
    return reply && reply->type == XCB_ATOM_WINDOW;
}

bool canReachXServer() {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    const bool isReachable = xcb_connection_has_error(x) == 0;
    xcb_disconnect(x);
    return isReachable;
}

}  // namespace kelmar::desktop
