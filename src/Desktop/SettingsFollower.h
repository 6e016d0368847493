#pragma once

#include <QObject>

#include "Host/HostLimits.h"
#include "Host/InotifyFileWatch.h"
#include "Host/SettingsWatch.h"
#include "Host/Timers.h"
#include "Host/WidgetHost.h"
#include "Layout/Layout.h"

namespace kelmar::desktop {

/// The direction in which the environment's locale writes.
[[nodiscard]] layout::Direction writingDirection();

/// Has everything that the widgets say follow the machine's time zone and locale while they are on
/// the desktop: the extension's texts, and the host's own.
class SettingsFollower final : public QObject {
    Q_OBJECT

public:
    /// `session` is what the process was started with. The others outlive the follower.
    SettingsFollower(host::WidgetHost& host, host::LocaleVariables session, host::Log& log);

signals:
    /// The host's own texts are in another language now, be the direction another or not.
    void localeChanged(kelmar::layout::Direction direction);

private:
    void take(host::ReloadCause cause);

    host::WidgetHost& host_;
    host::QtTimers timers_;
    host::InotifyFileWatch fileWatch_;
    host::SettingsWatch watch_;
};

}  // namespace kelmar::desktop
