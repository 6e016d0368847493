#include "Desktop/PortalSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QStringList>
#include <fmt/format.h>
#include <utility>

#include "Desktop/SessionBus.h"

namespace kelmar::desktop {

namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto objectPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
constexpr const char* settingsSignature = "a{sa{sv}}";  // By namespace and key.

}  // namespace

PortalSettings::PortalSettings(host::Log& log, QObject* parent) : QObject(parent), log_(log) {
    QDBusConnection bus = sessionBus();
    if (!bus.isConnected()) {
        return;  // Who looked for the bus first has said what is lost without it.
    }
    // The connection looks the slot's types up by name, and nobody may have named this one yet.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    bus.connect(service, objectPath, interface, QStringLiteral("SettingChanged"), this,
                SLOT(readSetting(QString, QString, QDBusVariant)));
    // A portal that starts later, or starts anew, is asked again.
    auto* watcher =
        new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalSettings::readAll);
    readAll();
}

void PortalSettings::readAll() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, objectPath, interface, QStringLiteral("ReadAll"));
    call << QStringList{setting::appearance, setting::gnomeInterface, setting::kdeGeneral,
                        setting::kdeAll};
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                readAnswer(*finished);
                finished->deleteLater();
            });
}

void PortalSettings::readAnswer(QDBusPendingCallWatcher& call) {
    const QDBusMessage answer = call.reply();
    if (answer.type() != QDBusMessage::ReplyMessage) {
        log_.write(
            host::LogLevel::notice,
            "There is no settings portal: the desktop's colours and font are not followed (" +
                answer.errorName().toStdString() + ").");
        return;
    }
    if (answer.signature() != settingsSignature) {
        log_.write(host::LogLevel::warning,
                   fmt::format("The settings portal answers in the type \"{}\" where \"{}\" is "
                               "expected: the desktop's colours and font are not followed.",
                               answer.signature().toStdString(), settingsSignature));
        return;
    }
    Preferences preferences = preferences_;
    const auto namespaces = answer.arguments().constFirst().value<QDBusArgument>();
    namespaces.beginMap();
    while (!namespaces.atEnd()) {
        QString settingNamespace;
        QVariantMap settings;
        namespaces.beginMapEntry();
        namespaces >> settingNamespace >> settings;
        namespaces.endMapEntry();
        for (const auto& [key, value] : std::as_const(settings).asKeyValueRange()) {
            take(preferences, settingNamespace, key, value);
        }
    }
    namespaces.endMap();
    replace(std::move(preferences));
}

void PortalSettings::readSetting(const QString& settingNamespace, const QString& key,
                                 const QDBusVariant& value) {
    Preferences preferences = preferences_;
    take(preferences, settingNamespace, key, value.variant());
    replace(std::move(preferences));
}

/// A fault that lasts is told once.
void PortalSettings::take(Preferences& preferences, const QString& settingNamespace,
                          const QString& key, const QVariant& value) {
    auto changed = withSetting(preferences, settingNamespace, key, value);
    const QString setting = settingNamespace + ' ' + key;
    if (changed) {
        preferences = *std::move(changed);
        faults_.remove(setting);
        return;
    }
    const std::string& fault = changed.failure().reason;
    if (faults_.value(setting) != fault) {
        faults_.insert(setting, fault);
        log_.write(host::LogLevel::warning,
                   fmt::format("The settings portal is not understood: {}; the last good value is "
                               "kept, or the default.",
                               fault));
    }
}

void PortalSettings::replace(Preferences preferences) {
    if (preferences != preferences_) {
        preferences_ = std::move(preferences);
        emit changed();
    }
}

}  // namespace kelmar::desktop
