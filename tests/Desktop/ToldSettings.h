#pragma once

#include <QDBusVariant>
#include <QMetaObject>

#include "Desktop/PortalSettings.h"

namespace kelmar::desktop {

/// Lets the settings hear of a change as the portal tells it.
inline void tell(PortalSettings& settings, const QString& settingNamespace, const QString& key,
                 const QVariant& value) {
    QMetaObject::invokeMethod(&settings, "readSetting", Q_ARG(QString, settingNamespace),
                              Q_ARG(QString, key), Q_ARG(QDBusVariant, QDBusVariant(value)));
}

}  // namespace kelmar::desktop
