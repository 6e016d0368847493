#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QProcess>
#include <QVariantMap>

namespace kelmar::desktop::test {

/// Settings by namespace and key, as the portal's ReadAll gives them.
using Settings = QMap<QString, QVariantMap>;

/// A settings portal that says what a test wants, over a real bus.
class FakePortal final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(const QString& busAddress);
    ~FakePortal() override;

    Settings settings;
    QVariant wrongAnswer;  ///< Given instead of the settings if it is valid.
    QStringList askedFor;  ///< The namespaces of the last question.

public slots:
    kelmar::desktop::test::Settings ReadAll(const QStringList& namespaces);

signals:
    void SettingChanged(const QString& settingNamespace, const QString& key,
                        const QDBusVariant& value);

private:
    QDBusConnection connection_;
};

/// A session bus of a test's own. It is this process's session bus if it is made before anything
/// has asked for one.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    [[nodiscard]] const QString& address() const { return address_; }

private:
    QProcess daemon_;
    QString address_;
};

}  // namespace kelmar::desktop::test

Q_DECLARE_METATYPE(kelmar::desktop::test::Settings)
