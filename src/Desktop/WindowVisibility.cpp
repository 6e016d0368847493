#include "Desktop/WindowVisibility.h"

#include <QEvent>
#include <QWindow>
#include <utility>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

/// The events that Qt wants from a window; none if the server does not say.
std::uint32_t eventsOf(xcb_connection_t* x, xcb_window_t window) {
    const x11::ReplyPointer<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr));
    return attributes ? attributes->your_event_mask : std::uint32_t{XCB_EVENT_MASK_NO_EVENT};
}

/// Qt has no use for visibility events, so it does not ask the server for them.
void requestVisibilityEvents(xcb_connection_t* x, xcb_window_t window) {
    // Qt wants the same from each of the widgets' windows: only the first is waited for.
    static const std::uint32_t qtEvents = eventsOf(x, window);
    if (qtEvents != XCB_EVENT_MASK_NO_EVENT) {
        const std::uint32_t events = qtEvents | XCB_EVENT_MASK_VISIBILITY_CHANGE;
        xcb_change_window_attributes(x, window, XCB_CW_EVENT_MASK, &events);
    }
}

}  // namespace

WindowVisibility::WindowVisibility(QWindow& window) : window_(window) {
    window.installEventFilter(this);
    if (xcb_connection_t* x = x11::connection()) {
        requestVisibilityEvents(x, static_cast<xcb_window_t>(window.winId()));
        qGuiApp->installNativeEventFilter(this);
    }
}

WindowVisibility::~WindowVisibility() {
    qGuiApp->removeNativeEventFilter(this);
}

bool WindowVisibility::canBeSeen() const {
    return window_.isExposed() && !isCovered_;
}

bool WindowVisibility::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::Expose) {
        emit changed();
    }
    return false;
}

bool WindowVisibility::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                         qintptr* /*result*/) {
    const auto* notify =
        x11::eventOf<xcb_visibility_notify_event_t>(XCB_VISIBILITY_NOTIFY, message);
    if (notify != nullptr && notify->window == window_.winId()) {
        const bool wasCovered =
            std::exchange(isCovered_, notify->state == XCB_VISIBILITY_FULLY_OBSCURED);
        if (isCovered_ != wasCovered) {
            emit changed();
        }
    }
    return false;
}

}  // namespace kelmar::desktop
