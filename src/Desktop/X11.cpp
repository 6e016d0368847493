#include "Desktop/X11.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kelmar::desktop::x11 {

namespace {

constexpr std::size_t atomCount = 17;

using Atoms = std::array<xcb_atom_t, atomCount>;

/// In the order of Atom. Qt works on one X screen only, and today's servers have but screen 0, so
/// the selections that each screen has are those of screen 0.
constexpr std::array<std::string_view, atomCount> names{
    "_NET_WM_CM_S0",
    "_NET_SHOWING_DESKTOP",
    "_NET_SYSTEM_TRAY_S0",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_USER_TIME",
    "_NET_WM_USER_TIME_WINDOW",
    "UTF8_STRING",
    "_NET_WM_DESKTOP",
    "_NET_WM_NAME",
    "_NET_WM_STATE",
    "_NET_WM_STATE_BELOW",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_STICKY",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DOCK",
};

Atoms readAtoms() {
    xcb_connection_t* x = connection();
    std::array<xcb_intern_atom_cookie_t, atomCount> cookies{};
    std::ranges::transform(names, cookies.begin(), [x](std::string_view name) {
        return xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
    });
    Atoms atoms{};
    std::ranges::transform(cookies, atoms.begin(), [x](xcb_intern_atom_cookie_t cookie) {
        const ReplyPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(x, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    });
    return atoms;
}

}  // namespace

xcb_atom_t numberOf(Atom atom) {
    static const Atoms atoms = readAtoms();
    return atoms.at(static_cast<std::size_t>(atom));
}

xcb_window_t root() {
    xcb_connection_t* x = connection();
    return x != nullptr ? xcb_setup_roots_iterator(xcb_get_setup(x)).data->root
                        : xcb_window_t{XCB_WINDOW_NONE};
}

ReplyPointer<xcb_get_property_reply_t> property(xcb_window_t window, Atom name, xcb_atom_t type) {
    constexpr std::uint32_t longest = 1024;
    xcb_connection_t* x = connection();
    return x != nullptr
               ? ReplyPointer<xcb_get_property_reply_t>(xcb_get_property_reply(
                     x, xcb_get_property(x, 0, window, numberOf(name), type, 0, longest), nullptr))
               : nullptr;
}

std::span<const std::uint32_t> numbersIn(const ReplyPointer<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 32) {
        return {};
    }
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())),
            reply->value_len};
}

std::string_view textIn(const ReplyPointer<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 8) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

}  // namespace kelmar::desktop::x11
