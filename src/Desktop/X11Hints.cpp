#include "Desktop/X11Hints.h"

#include <QWindow>
#include <array>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

}  // namespace

Qt::WindowFlags desktopWindowFlags(Stacking stacking) {
    const Qt::WindowFlags flags =
        Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint;
    const bool isManaged = stacking == Stacking::managed || stacking == Stacking::asDock;
    return isManaged ? flags : flags | Qt::BypassWindowManagerHint;
}

void applyDesktopHints(QWindow& window, Stacking stacking) {
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
    if (stacking == Stacking::asDock) {
        const xcb_atom_t dock = numberOf(x11::Atom::windowTypeDock);
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, numberOf(x11::Atom::windowType),
                            XCB_ATOM_ATOM, 32, 1, &dock);
    }
    xcb_flush(x);
    if (stacking == Stacking::bottom) {
        window.lower();
    }
}

bool hasWindowManager() {
    const auto check =
        x11::property(x11::root(), x11::Atom::supportingWindowManager, XCB_ATOM_WINDOW);
    return x11::connection() == nullptr || !x11::numbersIn(check).empty();
}

bool canReachXServer() {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    const bool isReachable = xcb_connection_has_error(x) == 0;
    xcb_disconnect(x);
    return isReachable;
}

}  // namespace kelmar::desktop
