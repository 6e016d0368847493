#include "Desktop/X11Hints.h"

#include <QWindow>
#include <algorithm>
#include <array>
#include <span>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

/// A property of the root window, with which window managers speak to everybody.
x11::ReplyPointer<xcb_get_property_reply_t> rootProperty(xcb_connection_t* x, x11::Atom property,
                                                         xcb_atom_t type) {
    constexpr std::uint32_t longest = 1024;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    return x11::ReplyPointer<xcb_get_property_reply_t>(xcb_get_property_reply(
        x, xcb_get_property(x, 0, root, numberOf(property), type, 0, longest), nullptr));
}

bool understands(xcb_connection_t* x, x11::Atom hint) {
    const auto supported = rootProperty(x, x11::Atom::supportedHints, XCB_ATOM_ATOM);
    if (!supported || supported->format != 32) {
        return false;
    }
    const std::span hints(static_cast<const xcb_atom_t*>(xcb_get_property_value(supported.get())),
                          supported->value_len);
    return std::ranges::find(hints, numberOf(hint)) != hints.end();
}

/// Where there is no window manager yet, the one that comes may keep windows below.
bool keepsNoneBelow() {
    xcb_connection_t* x = x11::connection();
    return x != nullptr && hasWindowManager() && !understands(x, x11::Atom::windowStateBelow);
}

bool isLeftAlone(const QWindow& window) {
    return window.flags().testFlag(Qt::BypassWindowManagerHint);
}

}  // namespace

Qt::WindowFlags desktopWindowFlags() {
    // Not asked again for each: who changes the window manager begins a new session as a rule.
    static const bool isUnmanaged = keepsNoneBelow();
    const Qt::WindowFlags flags =
        Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint;
    return isUnmanaged ? flags | Qt::BypassWindowManagerHint : flags;
}

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
    if (isLeftAlone(window)) {
        window.lower();
    }
}

bool hasWindowManager() {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return true;
    }
    const auto check = rootProperty(x, x11::Atom::supportingWindowManager, XCB_ATOM_WINDOW);
    return check && check->type == XCB_ATOM_WINDOW;
}

bool canReachXServer() {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    const bool isReachable = xcb_connection_has_error(x) == 0;
    xcb_disconnect(x);
    return isReachable;
}

}  // namespace kelmar::desktop
