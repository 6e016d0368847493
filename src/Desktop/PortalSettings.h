#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QVariant>
#include <optional>

#include "Desktop/Motion.h"
#include "Host/Log.h"
#include "Paint/Appearance.h"

class QDBusPendingCallWatcher;
class QDBusVariant;

namespace kelmar::desktop {

/// What the desktop prefers, as far as it says so.
struct Preferences {
    std::optional<paint::Scheme> scheme;
    QColor accent;  ///< Invalid for none.
    std::optional<QString> fontFamily;
    double textScale = 1;  ///< How much larger than usual texts are wanted.
    /// Said in two places: for all programs, and by the desktop for its own toolkit.
    Motion motion = Motion::full;
    Motion toolkitMotion = Motion::full;

    [[nodiscard]] Motion leastMotion() const {
        return motion == Motion::full ? toolkitMotion : motion;
    }

    friend bool operator==(const Preferences&, const Preferences&) = default;
};

/// The preferences after a setting has got a value; settings that mean nothing here and values
/// that make no sense leave them as they are.
[[nodiscard]] Preferences withSetting(Preferences preferences, const QString& settingNamespace,
                                      const QString& key, const QVariant& value);

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
    void replace(Preferences preferences);

    host::Log& log_;
    Preferences preferences_;
};

}  // namespace kelmar::desktop
