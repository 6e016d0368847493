#include "DemoPlanner/Activation.h"

#include <QGuiApplication>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace kelmar::demo {

namespace {

constexpr const char* waylandVariable = "XDG_ACTIVATION_TOKEN";
constexpr const char* x11Variable = "DESKTOP_STARTUP_ID";

xcb_connection_t* x11Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* x, std::string_view name) {
    struct Free {
        void operator()(void* reply) const { std::free(reply); }  // NOLINT: xcb uses malloc
    };
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(
        x, xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t rootOf(xcb_connection_t* x) {
    return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

/// Extended Window Manager Hints, _NET_ACTIVE_WINDOW. Qt knows only the time of the last event that
/// it has seen itself, which the press on somebody else's window never was.
void requestActivation(xcb_connection_t* x, xcb_window_t window, std::uint32_t time) {
    constexpr std::uint32_t fromApplication = 1;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(x, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromApplication;
    message.data.data32[1] = time;
    std::array<char, 32> event{};
    static_assert(sizeof message == sizeof event);
    std::memcpy(event.data(), &message, sizeof message);
    xcb_send_event(x, 0, rootOf(x),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   event.data());
    xcb_flush(x);
}

}  // namespace

std::string givenActivationToken() {
    const QByteArray wayland = qgetenv(waylandVariable);
    return (wayland.isEmpty() ? qgetenv(x11Variable) : wayland).toStdString();
}

std::optional<std::uint32_t> timeOf(std::string_view startupId) {
    constexpr std::string_view mark = "_TIME";
    const std::size_t place = startupId.rfind(mark);
    if (place == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view digits = startupId.substr(place + mark.size());
    std::uint32_t time = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, time);
    return read.ec == std::errc() && read.ptr == end ? std::optional(time) : std::nullopt;
}

void bringForward(QWidget& window, const std::string& token) {
    window.show();
    xcb_connection_t* const x = x11Connection();
    if (const std::optional<std::uint32_t> time = timeOf(token); x != nullptr && time) {
        requestActivation(x, static_cast<xcb_window_t>(window.winId()), *time);
        return;
    }
    // Where Qt's platform for Wayland looks for it.
    qputenv(waylandVariable, QByteArray::fromStdString(token));
    window.raise();
    window.activateWindow();
    qunsetenv(waylandVariable);
}

}  // namespace kelmar::demo
