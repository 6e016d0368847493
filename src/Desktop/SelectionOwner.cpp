#include "Desktop/SelectionOwner.h"

#include <QGuiApplication>
#include <utility>
#include <xcb/xfixes.h>

namespace kelmar::desktop {

namespace {

bool hasOwner(xcb_connection_t* x, xcb_atom_t selection) {
    const x11::ReplyPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(x, xcb_get_selection_owner(x, selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

/// Gives back the number of the event that tells of a new owner, or 0 without the extension.
int followOwner(xcb_connection_t* x, xcb_atom_t selection) {
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(x, &xcb_xfixes_id);
    if (fixes == nullptr || fixes->present == 0) {
        return 0;
    }
    // The server sends nothing before it has been told which version is spoken.
    xcb_discard_reply(x, xcb_xfixes_query_version(x, 5, 0).sequence);
    xcb_xfixes_select_selection_input(x, x11::root(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    return fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
}

}  // namespace

SelectionOwner::SelectionOwner(x11::Atom selection) {
    xcb_connection_t* x = x11::connection();
    if (x == nullptr) {
        return;
    }
    selection_ = numberOf(selection);
    selectionNotify_ = followOwner(x, selection_);
    isThere_ = hasOwner(x, selection_);
    if (selectionNotify_ != 0) {
        qGuiApp->installNativeEventFilter(this);
    }
}

SelectionOwner::~SelectionOwner() {
    if (selectionNotify_ != 0) {
        qGuiApp->removeNativeEventFilter(this);
    }
}

bool SelectionOwner::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                       qintptr* /*result*/) {
    const auto* notify =
        x11::eventOf<xcb_xfixes_selection_notify_event_t>(selectionNotify_, message);
    if (notify != nullptr && notify->selection == selection_) {
        const bool wasThere = std::exchange(isThere_, notify->owner != XCB_WINDOW_NONE);
        if (isThere_ != wasThere) {
            emit changed();
        }
    }
    return false;
}

}  // namespace kelmar::desktop
