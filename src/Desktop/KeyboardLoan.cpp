#include "Desktop/KeyboardLoan.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

std::optional<std::uint32_t> keyboardOwner(xcb_connection_t* x) {
    const x11::ReplyPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
    return reply ? std::optional(reply->focus) : std::nullopt;
}

bool isOurs(std::uint32_t window) {
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::ranges::any_of(windows, [window](QWindow* ours) {
        return ours->handle() != nullptr && ours->winId() == window;
    });
}

/// A window that has gone or is hidden by now cannot have it; the server's complaint is of no use.
void giveKeyboard(xcb_connection_t* x, std::uint32_t window) {
    const xcb_void_cookie_t request =
        xcb_set_input_focus_checked(x, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    const x11::ReplyPointer<xcb_generic_error_t> refusal(xcb_request_check(x, request));
}

}  // namespace

void KeyboardLoan::takeFor(QWindow& window) {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return;
    }
    const std::optional<std::uint32_t> owner = keyboardOwner(x);
    if (owner && !isOurs(*owner)) {
        formerOwner_ = owner;
    }
    giveKeyboard(x, static_cast<std::uint32_t>(window.winId()));
}

void KeyboardLoan::giveBack() {
    xcb_connection_t* x = x11::connection();
    if (x != nullptr && formerOwner_) {
        giveKeyboard(x, *formerOwner_);
        formerOwner_.reset();
    }
}

}  // namespace kelmar::desktop
