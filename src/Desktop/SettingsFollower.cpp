#include "Desktop/SettingsFollower.h"

#include <QLocale>
#include <utility>

#include "System/EnvironmentLocale.h"
#include "System/Localization.h"

namespace kelmar::desktop {

layout::Direction writingDirection() {
    // Qt's answer, not ICU's: of that the host needs nothing else as a rule, and it takes half a
    // megabyte to ask.
    const auto localeId = system::environmentLocaleId("LC_TIME");
    const QLocale locale(QString::fromStdString(localeId.value_or("en_US")));
    return locale.textDirection() == Qt::RightToLeft ? layout::Direction::rightToLeft
                                                     : layout::Direction::leftToRight;
}

SettingsFollower::SettingsFollower(host::WidgetHost& host, host::LocaleVariables session,
                                   host::Log& log)
    : host_(host),
      fileWatch_(host::HostLimits{}, timers_, log),
      watch_(fileWatch_, {}, std::move(session), [this](host::ReloadCause cause) { take(cause); }) {
}

void SettingsFollower::take(host::ReloadCause cause) {
    if (cause == host::ReloadCause::localeChanged) {
        // The latest choice of a language counts for the whole process.
        const system::GettextLocalization choice("", system::catalogueFolder());
        emit localeChanged(writingDirection());
    }
    host_.renew(cause);
}

}  // namespace kelmar::desktop
