#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include "Desktop/Preferences.h"
#include "Host/Log.h"

class QDBusPendingCallWatcher;
class QDBusVariant;
class QVariant;

namespace kelmar::desktop {

/// Reads the desktop's preferences from the settings portal (org.freedesktop.portal.Settings) and
/// follows their changes. Nothing here waits for an answer: until one comes, and where no portal or
/// no session bus is, the preferences are empty.
class PortalSettings final : public QObject {
    Q_OBJECT

public:
    /// `log` must outlive the settings.
    explicit PortalSettings(host::Log& log, QObject* parent = nullptr);

    [[nodiscard]] const Preferences& preferences() const { return preferences_; }

signals:
    void changed();

private slots:
    void readSetting(const QString& settingNamespace, const QString& key,
                     const QDBusVariant& value);

private:
    void readAll();
    void readAnswer(QDBusPendingCallWatcher& call);
    void take(Preferences& preferences, const QString& settingNamespace, const QString& key,
              const QVariant& value);
    void replace(Preferences preferences);

    host::Log& log_;
    Preferences preferences_;
    QHash<QString, std::string> faults_;  ///< Of each setting, as the log has been told of it.
};

}  // namespace kelmar::desktop
