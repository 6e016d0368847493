#pragma once

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
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

/// The names that this program uses of those which the server knows by numbers.
enum class Atom {
    compositingManager,
    showingDesktop,
    systemTray,
    supportedHints,
    supportingWindowManager,
    userTime,
    userTimeWindow,
    utf8Text,
    windowDesktop,
    windowName,
    windowState,
    windowStateBelow,
    windowStateSkipPager,
    windowStateSkipTaskbar,
    windowStateSticky,
    windowType,
    windowTypeDock,
};

/// The server's number for a name. All are asked for when the first is wanted: waiting for an
/// answer takes longer than everything else about it.
[[nodiscard]] xcb_atom_t numberOf(Atom atom);

/// The window behind all others, through whose properties a window manager speaks to everybody;
/// none where there is no X server.
[[nodiscard]] xcb_window_t root();

/// A property of a window; null where there is no X server. Read by the functions that follow.
[[nodiscard]] ReplyPointer<xcb_get_property_reply_t> property(xcb_window_t window, Atom name,
                                                              xcb_atom_t type);

/// What a property holds, if it is there and holds numbers of 32 bits. Valid as long as the reply.
[[nodiscard]] std::span<const std::uint32_t> numbersIn(
    const ReplyPointer<xcb_get_property_reply_t>& reply);

/// What a property holds, if it is there and holds text. Valid as long as the reply.
[[nodiscard]] std::string_view textIn(const ReplyPointer<xcb_get_property_reply_t>& reply);

/// What a native event filter was given, if it is an event of that type, whoever sent it; else
/// null.
template <class Event>
[[nodiscard]] const Event* eventOf(int type, const void* message) {
    constexpr int sentMark = 0x80;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    return (event.response_type & ~sentMark) == type ? static_cast<const Event*>(message) : nullptr;
}

}  // namespace kelmar::desktop::x11
