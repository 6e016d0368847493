#include "Desktop/PortalSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QStringList>
#include <algorithm>
#include <array>
#include <utility>

#include "Desktop/SessionBus.h"
#include "Layout/TextScale.h"

namespace kelmar::desktop {

namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto objectPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");

const auto appearance = QStringLiteral("org.freedesktop.appearance");
const auto gnomeInterface = QStringLiteral("org.gnome.desktop.interface");
const auto kdeGeneral = QStringLiteral("org.kde.kdeglobals.General");
const auto kdeAll = QStringLiteral("org.kde.kdeglobals.KDE");

std::optional<paint::Scheme> schemeOf(const QVariant& value) {
    switch (value.toUInt()) {
        case 1:
            return paint::Scheme::dark;
        case 2:
            return paint::Scheme::light;
        default:
            return std::nullopt;  // The desktop has no preference.
    }
}

/// Components outside 0 to 1 are how the portal says that there is no accent colour.
QColor accentOf(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<QDBusArgument>()) {
        return {};
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)") {
        return {};
    }
    std::array<double, 3> components{};
    argument.beginStructure();
    for (double& component : components) {
        argument >> component;
    }
    argument.endStructure();
    const bool isColor = std::all_of(components.begin(), components.end(), [](double component) {
        return component >= 0 && component <= 1;
    });
    return isColor ? QColor::fromRgbF(static_cast<float>(components[0]),
                                      static_cast<float>(components[1]),
                                      static_cast<float>(components[2]))
                   : QColor();
}

Motion motionIf(bool mayMove) {
    return mayMove ? Motion::full : Motion::reduced;
}

/// Widgets' texts are small as they are: they only grow.
double textScaleOf(const QVariant& value) {
    bool isNumber = false;
    const double scale = value.toDouble(&isNumber);
    return isNumber && scale > 1 ? std::min(scale, layout::greatestTextScale) : 1;
}

/// The family in "Noto Sans Bold 11", as Pango writes font descriptions.
std::optional<QString> familyOfPangoFont(const QString& description) {
    static const QStringList styleWords{"Thin",     "Ultra-Light", "Extra-Light", "Light",
                                        "Regular",  "Medium",      "Semi-Bold",   "Bold",
                                        "Black",    "Heavy",       "Italic",      "Oblique",
                                        "Semibold", "SemiBold",    "Condensed",   "Book"};
    QStringList words = description.split(' ', Qt::SkipEmptyParts);
    bool isSize = false;
    if (!words.isEmpty() && (words.last().toDouble(&isSize), isSize)) {
        words.removeLast();
    }
    while (words.size() > 1 && styleWords.contains(words.last().remove(','))) {
        words.removeLast();
    }
    const QString family = words.join(' ').remove(',');
    return family.isEmpty() ? std::nullopt : std::optional(family);
}

/// The family in "Noto Sans,10,-1,5,50,0,0,0,0,0", as Qt writes fonts.
std::optional<QString> familyOfQtFont(const QString& description) {
    const QString family = description.section(',', 0, 0).trimmed();
    return family.isEmpty() ? std::nullopt : std::optional(family);
}

}  // namespace

Preferences withSetting(Preferences preferences, const QString& settingNamespace,
                        const QString& key, const QVariant& value) {
    if (settingNamespace == appearance && key == "color-scheme") {
        preferences.scheme = schemeOf(value);
    } else if (settingNamespace == appearance && key == "accent-color") {
        preferences.accent = accentOf(value);
    } else if (settingNamespace == appearance && key == "reduced-motion") {
        preferences.motion = motionIf(value.toUInt() != 1);
    } else if (settingNamespace == gnomeInterface && key == "enable-animations") {
        preferences.toolkitMotion = motionIf(value.toBool());
    } else if (settingNamespace == kdeAll && key == "AnimationDurationFactor") {
        preferences.toolkitMotion = motionIf(value.toString() != "0");
    } else if (settingNamespace == gnomeInterface && key == "text-scaling-factor") {
        preferences.textScale = textScaleOf(value);
    } else if (settingNamespace == gnomeInterface && key == "font-name") {
        preferences.fontFamily = familyOfPangoFont(value.toString());
    } else if (settingNamespace == kdeGeneral && key == "font") {
        preferences.fontFamily = familyOfQtFont(value.toString());
    }
    return preferences;
}

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
    call << QStringList{appearance, gnomeInterface, kdeGeneral, kdeAll};
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
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a{sa{sv}}") {
        log_.write(
            host::LogLevel::notice,
            "There is no settings portal: the desktop's colours and font are not followed (" +
                answer.errorName().toStdString() + ").");
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
            preferences = withSetting(std::move(preferences), settingNamespace, key, value);
        }
    }
    namespaces.endMap();
    replace(std::move(preferences));
}

void PortalSettings::readSetting(const QString& settingNamespace, const QString& key,
                                 const QDBusVariant& value) {
    replace(withSetting(preferences_, settingNamespace, key, value.variant()));
}

void PortalSettings::replace(Preferences preferences) {
    if (preferences != preferences_) {
        preferences_ = std::move(preferences);
        emit changed();
    }
}

}  // namespace kelmar::desktop
