#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include "Desktop/X11.h"

namespace kelmar::desktop {

/// Whether some program owns an X selection, now and later: how X11 programs of which there is but
/// one, such as a compositing manager or a tray, say that they run. Nobody owns one elsewhere.
class SelectionOwner final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit SelectionOwner(x11::Atom selection);
    ~SelectionOwner() override;

    [[nodiscard]] bool isThere() const { return isThere_; }

signals:
    void changed();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    bool isThere_ = false;
    xcb_atom_t selection_ = XCB_ATOM_NONE;
    int selectionNotify_ = 0;  ///< The number of the event that tells of a new owner.
};

}  // namespace kelmar::desktop
