#pragma once

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

/// The few words of xcb that the desktop's X11 parts share.
namespace kelmar::desktop::x11 {

struct Free {
    void operator()(void* memory) const {
        std::free(memory);
    }  // NOLINT: xcb's answers are malloc'd
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

/// Qt's connection to the X server; null on any other platform.
[[nodiscard]] inline xcb_connection_t* connection() {
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

/// What kind of event a native event filter was given, without the mark of events that another
/// client sent.
[[nodiscard]] inline int typeOf(const xcb_generic_event_t& event) {
    constexpr int sentMark = 0x80;
    return event.response_type & ~sentMark;
}

}  // namespace kelmar::desktop::x11
