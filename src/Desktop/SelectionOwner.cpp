#include "Desktop/SelectionOwner.h"

#include <QGuiApplication>
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
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    xcb_xfixes_select_selection_input(x, root, selection,
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
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    if (x11::typeOf(event) != selectionNotify_) {
        return false;
    }
    const auto& notify = *static_cast<const xcb_xfixes_selection_notify_event_t*>(message);
    const bool isThereNow = notify.owner != XCB_WINDOW_NONE;
    if (notify.selection == selection_ && isThereNow != isThere_) {
        isThere_ = isThereNow;
        emit changed();
    }
    return false;
}

}  // namespace kelmar::desktop
