#include "Desktop/BusService.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QPointer>
#include <algorithm>
#include <iterator>
#include <utility>

#include "Desktop/BusNames.h"

namespace kelmar::desktop {

namespace {

template <class Descriptor>
const Descriptor* find(const std::vector<Descriptor>& descriptors, const std::string& kind) {
    const auto found =
        std::find_if(descriptors.begin(), descriptors.end(),
                     [&](const Descriptor& descriptor) { return descriptor.kind == kind; });
    return found != descriptors.end() ? &*found : nullptr;
}

}  // namespace

BusService::BusService(Parts parts, QDBusConnection bus)
    : parts_(std::move(parts)), bus_(std::move(bus)) {
    qDBusRegisterMetaType<BusReports>();
    new WidgetsInterface(*this);
    new ApplicationInterface(*this);
    bus_.registerObject(bus::objectPath, this);
}

BusService::~BusService() {
    bus_.unregisterObject(bus::objectPath);
}

void BusService::reload(const QString& kind, const QDBusMessage& call) {
    if (!refuseUnknown(kind, call)) {
        parts_.host.reload(kind.toStdString());
    }
}

void BusService::reloadAll() {
    parts_.host.reloadAll();
}

BusReports BusService::listWidgets() const {
    BusReports list;
    for (const DesktopItem& item : parts_.items()) {
        list << describeItem(item, displayNameOf(item.place.kind),
                             item.id ? parts_.host.report(*item.id) : std::nullopt);
    }
    return list;
}

void BusService::explain(const QString& kind, const QDBusMessage& call) {
    if (refuseUnknown(kind, call)) {
        return;
    }
    call.setDelayedReply(true);
    waiting_.push_back(call);
    if (waiting_.size() > 1) {
        return;
    }
    parts_.host.diagnose([this, alive = QPointer<BusService>(this)](const auto& findings) {
        if (alive) {
            answerWaiting(findings);
        }
    });
}

void BusService::answerWaiting(const system::Result<std::vector<std::string>>& findings) {
    for (const QDBusMessage& call : std::exchange(waiting_, {})) {
        QVariantMap explanation =
            explanationOf(call.arguments().constFirst().toString().toStdString());
        addFindings(explanation, findings);
        bus_.send(call.createReply(explanation));
    }
}

QVariantMap BusService::explanationOf(const std::string& kind) const {
    BusReports widgets;
    for (const DesktopItem& item : parts_.items()) {
        const auto report =
            item.id && item.place.kind == kind ? parts_.host.report(*item.id) : std::nullopt;
        if (report) {
            widgets << describeReport(*report);
        }
    }
    return {{"kind", QString::fromStdString(kind)},
            {"displayName", displayNameOf(kind)},
            {"widgets", QVariant::fromValue(widgets)}};
}

void BusService::refuse(const QDBusMessage& call, const QString& error, const QString& reason) {
    call.setDelayedReply(true);  // Else an empty answer would follow this one.
    bus_.send(call.createErrorReply(error, reason));
}

/// Known is what the extension offers and what has a place on the desktop.
bool BusService::refuseUnknown(const QString& kind, const QDBusMessage& call) {
    const kit::Bundle offered = parts_.host.bundle().value_or(kit::Bundle{});
    const std::vector<DesktopItem> items = parts_.items();
    const std::string name = kind.toStdString();
    const bool isKnown =
        find(offered.widgets, name) != nullptr || find(offered.controls, name) != nullptr ||
        std::any_of(items.begin(), items.end(),
                    [&](const DesktopItem& item) { return item.place.kind == name; });
    if (isKnown) {
        return false;
    }
    QStringList known;
    for (const auto& widget : offered.widgets) {
        known << QString::fromStdString(widget.kind);
    }
    const QString rest = parts_.host.bundle()
                             ? "there are " + known.join(", ")
                             : QStringLiteral("the extension has not said yet what it offers");
    refuse(call, bus::unknownKindError,
           QString("There is no widget \"%1\"; %2.").arg(kind.left(100), rest));
    return true;
}

QString BusService::displayNameOf(const std::string& kind) const {
    const kit::Bundle offered = parts_.host.bundle().value_or(kit::Bundle{});
    if (const auto* widget = find(offered.widgets, kind)) {
        return QString::fromStdString(widget->displayName);
    }
    const auto* control = find(offered.controls, kind);
    return QString::fromStdString(control != nullptr ? control->displayName : kind);
}

void WidgetsInterface::ReloadTimelines(const QString& kind, const QDBusMessage& call) {
    service_.reload(kind, call);
}

void WidgetsInterface::ReloadAllTimelines() {
    service_.reloadAll();
}

BusReports WidgetsInterface::ListWidgets() {
    return service_.listWidgets();
}

QVariantMap WidgetsInterface::Explain(const QString& kind, const QDBusMessage& call) {
    service_.explain(kind, call);
    return {};
}

void WidgetsInterface::ShowGallery() {
    service_.showGallery();
}

void ApplicationInterface::Activate(const QVariantMap& /*platformData*/) {
    service_.showGallery();
}

void ApplicationInterface::Open(const QStringList& /*urls*/, const QVariantMap& /*platformData*/,
                                const QDBusMessage& call) {
    service_.refuse(call, QDBusError::errorString(QDBusError::NotSupported),
                    "The widgets open no files.");
}

void ApplicationInterface::ActivateAction(const QString& name, const QVariantList& /*parameter*/,
                                          const QVariantMap& /*platformData*/,
                                          const QDBusMessage& call) {
    service_.refuse(call, QDBusError::errorString(QDBusError::InvalidArgs),
                    QString("There is no action \"%1\".").arg(name.left(100)));
}

}  // namespace kelmar::desktop
