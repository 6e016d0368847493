#include "Desktop/X11Hints.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace kelmar::desktop {

namespace {

struct Free {
    void operator()(void* memory) const {
        std::free(memory);
    }  // NOLINT: xcb's replies are malloc'd
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

xcb_connection_t* connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

/// The server's numbers for names; all are asked for before the first is waited for.
template <std::size_t count>
std::array<xcb_atom_t, count> atoms(xcb_connection_t* x,
                                    const std::array<std::string_view, count>& names) {
    std::array<xcb_intern_atom_cookie_t, count> cookies{};
    std::transform(names.begin(), names.end(), cookies.begin(), [x](std::string_view name) {
        return xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
    });
    std::array<xcb_atom_t, count> numbers{};
    std::transform(cookies.begin(), cookies.end(), numbers.begin(), [x](auto cookie) {
        const ReplyPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(x, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    });
    return numbers;
}

}  // namespace

void applyDesktopHints(QWindow& window) {
    xcb_connection_t* x = connection();
    if (x == nullptr) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto [stateProperty, desktopProperty] = atoms<2>(x, {"_NET_WM_STATE", "_NET_WM_DESKTOP"});
    const auto states = atoms<4>(x, {"_NET_WM_STATE_BELOW", "_NET_WM_STATE_STICKY",
                                     "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, stateProperty, XCB_ATOM_ATOM, 32,
                        states.size(), states.data());
    // "Sticky" is about the viewports of one large desktop, this about separate workspaces.
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, desktopProperty, XCB_ATOM_CARDINAL, 32, 1,
                        &everyDesktop);
    xcb_flush(x);
}

bool hasCompositor() {
    xcb_connection_t* x = connection();
    if (x == nullptr) {
        return false;
    }
    // Qt works on one X screen only, and every present server has but screen 0.
    const auto cookie = xcb_get_selection_owner(x, atoms<1>(x, {"_NET_WM_CM_S0"})[0]);
    const ReplyPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(x, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

}  // namespace kelmar::desktop
