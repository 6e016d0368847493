#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <vector>

#include "Desktop/BusReports.h"
#include "Desktop/DesktopItem.h"
#include "Host/WidgetHost.h"

namespace kelmar::desktop {

/// The running host as other programs of the session see it: answers the interfaces
/// com.kelmarplanner.Widgets (packaging/com.kelmarplanner.Widgets.xml) and
/// org.freedesktop.Application (freedesktop.org's Desktop Entry, D-Bus Activation) at one object.
class BusService final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        host::WidgetHost& host;  ///< Outlives the service.
        std::function<std::vector<DesktopItem>()> items;
    };

    BusService(Parts parts, QDBusConnection bus);
    ~BusService() override;

    void reload(const QString& kind, const QDBusMessage& call);
    void reloadAll();
    [[nodiscard]] BusReports listWidgets() const;
    /// Answers later: the extension is asked.
    void explain(const QString& kind, const QDBusMessage& call);
    void showGallery() { emit galleryRequested(); }
    void refuse(const QDBusMessage& call, const QString& error, const QString& reason);

signals:
    void galleryRequested();

private:
    [[nodiscard]] bool refuseUnknown(const QString& kind, const QDBusMessage& call);
    [[nodiscard]] QString displayNameOf(const std::string& kind) const;
    [[nodiscard]] QVariantMap explanationOf(const std::string& kind) const;
    void answerWaiting(const system::Result<std::vector<std::string>>& findings);

    Parts parts_;
    QDBusConnection bus_;
    /// Explanations that wait for the extension, which is asked once for all of them.
    std::vector<QDBusMessage> waiting_;
};

/// Puts com.kelmarplanner.Widgets on the service's object.
class WidgetsInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.kelmarplanner.Widgets")

public:
    explicit WidgetsInterface(BusService& service)
        : QDBusAbstractAdaptor(&service), service_(service) {}

public slots:
    // NOLINTBEGIN(readability-identifier-naming): names of D-Bus
    void ReloadTimelines(const QString& kind, const QDBusMessage& call);
    void ReloadAllTimelines();
    kelmar::desktop::BusReports ListWidgets();
    QVariantMap Explain(const QString& kind, const QDBusMessage& call);
    void ShowGallery();
    // NOLINTEND(readability-identifier-naming)

private:
    BusService& service_;
};

/// Puts org.freedesktop.Application on it: whoever starts the program again sees the gallery.
class ApplicationInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationInterface(BusService& service)
        : QDBusAbstractAdaptor(&service), service_(service) {}

public slots:
    // NOLINTBEGIN(readability-identifier-naming): names of D-Bus
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& urls, const QVariantMap& platformData, const QDBusMessage& call);
    void ActivateAction(const QString& name, const QVariantList& parameter,
                        const QVariantMap& platformData, const QDBusMessage& call);
    // NOLINTEND(readability-identifier-naming)

private:
    BusService& service_;
};

}  // namespace kelmar::desktop
