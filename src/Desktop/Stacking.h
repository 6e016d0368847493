#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace kelmar::desktop {

/// How a window that lies on the desktop comes to be below the others.
enum class Stacking {
    managed,  ///< The window manager keeps it there.
    asDock,   ///< The window manager keeps it there, and takes it for a dock that lies below.
    bottom,   ///< It is out of the window manager's hands, below all.
    top,      ///< It is out of the window manager's hands, above what else is left to be seen.
};

/// How it is to be done under the window manager that runs, now and later.
///
/// Those that know no "below", as tiling ones do, would put a widget among the other windows and
/// give it the keyboard. And while people have all windows put aside to see their desktop (Extended
/// Window Manager Hints, "_NET_SHOWING_DESKTOP"), most put the widgets aside as well: then they are
/// taken out of its hands. Those of GNOME's family would end that view when a window comes, but
/// leave docks where they are; others keep no dock below.
class StackingRule final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    StackingRule();
    ~StackingRule() override;

    [[nodiscard]] Stacking current() const;

signals:
    void changed();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void look();

    Stacking usual_ = Stacking::managed;
    bool isDesktopShown_ = false;
};

}  // namespace kelmar::desktop
