#include "Desktop/X11.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kelmar::desktop::x11 {

namespace {

constexpr std::size_t atomCount = 12;

using Atoms = std::array<xcb_atom_t, atomCount>;

/// In the order of Atom. Qt works on one X screen only, and today's servers have but screen 0, so
/// the selections that each screen has are those of screen 0.
constexpr std::array<std::string_view, atomCount> names{
    "_NET_WM_CM_S0",
    "_NET_SYSTEM_TRAY_S0",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_USER_TIME",
    "_NET_WM_USER_TIME_WINDOW",
    "_NET_WM_DESKTOP",
    "_NET_WM_STATE",
    "_NET_WM_STATE_BELOW",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_STICKY",
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

}  // namespace kelmar::desktop::x11
