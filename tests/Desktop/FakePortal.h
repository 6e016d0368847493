#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
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

/// A session bus for tests, which is this process's while there is one of these and not afterwards.
/// It is the same bus each time: Qt connects a process to its session bus once and for all.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const QString& address() const;
};

/// Has this process do as where there is no session bus, such as that of whoever runs the tests.
void leaveSessionBus();

}  // namespace kelmar::desktop::test

Q_DECLARE_METATYPE(kelmar::desktop::test::Settings)
