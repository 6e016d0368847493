#include <QJsonDocument>
#include <QStringList>
#include <QVariantMap>
#include <iostream>
#include <string>
#include <string_view>

#include "Desktop/BusNames.h"
#include "Host/Glib.h"
#include "Host/SessionBus.h"
#include "Tools/Commands.h"
#include "Tools/Explanation.h"
#include "Tools/Printing.h"

namespace kelmar::tools {

namespace {

using host::GlibErrorSlot;
using host::GlibOwned;
using Value = GlibOwned<GVariant>;

QVariant plain(GVariant* value);

QVariant plainMap(GVariant* dictionary) {
    QVariantMap map;
    for (gsize index = 0; index < g_variant_n_children(dictionary); ++index) {
        const Value entry(g_variant_get_child_value(dictionary, index));
        const Value key(g_variant_get_child_value(entry.get(), 0));
        const Value value(g_variant_get_child_value(entry.get(), 1));
        map.insert(g_variant_get_string(key.get(), nullptr), plain(value.get()));
    }
    return map;
}

QVariant plainList(GVariant* array) {
    QVariantList list;
    for (gsize index = 0; index < g_variant_n_children(array); ++index) {
        list << plain(Value(g_variant_get_child_value(array, index)).get());
    }
    return list;
}

/// What came over the bus as the program's own values, whichever of the host's types it is.
QVariant plain(GVariant* value) {
    switch (g_variant_classify(value)) {
        case G_VARIANT_CLASS_VARIANT:
            return plain(Value(g_variant_get_variant(value)).get());
        case G_VARIANT_CLASS_ARRAY:
            return g_variant_is_of_type(value, G_VARIANT_TYPE_DICTIONARY) ? plainMap(value)
                                                                          : plainList(value);
        case G_VARIANT_CLASS_BOOLEAN:
            return g_variant_get_boolean(value) != 0;
        case G_VARIANT_CLASS_INT32:
            return g_variant_get_int32(value);
        case G_VARIANT_CLASS_UINT32:
            return g_variant_get_uint32(value);
        case G_VARIANT_CLASS_DOUBLE:
            return g_variant_get_double(value);
        case G_VARIANT_CLASS_STRING:
            return g_variant_get_string(value, nullptr);
        default:
            return {};
    }
}

/// Why a call failed, as what it means to whoever runs the tool.
[[noreturn]] void refuse(GError* error) {
    const GlibOwned<char> name(g_dbus_error_get_remote_error(error));
    g_dbus_error_strip_remote_error(error);
    if (name && std::string_view(name.get()) == desktop::bus::unknownKindError) {
        throw UsageError(error->message);
    }
    if (g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) != 0 ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) != 0) {
        throw CommandError("kelmar-widgets does not run in this session; start it first");
    }
    throw CommandError(std::string("kelmar-widgets does not answer: ") + error->message);
}

/// The kelmar-widgets that runs in this session.
class RunningHost {
public:
    RunningHost() {
        if (const std::string address = host::leaveSilentSessionBus(); !address.empty()) {
            throw CommandError("the session bus at " + address + " does not answer");
        }
        GlibErrorSlot error;
        if (host::mayHaveSessionBus()) {
            bus_.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.place()));
        }
        if (!bus_) {
            throw CommandError("there is no session bus here; run this inside the desktop session");
        }
    }

    /// Waits for the answer, which is empty for a method without one.
    QVariant call(const char* method, const QStringList& arguments = {}) {
        GVariantBuilder builder;
        g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
        for (const QString& argument : arguments) {
            g_variant_builder_add(&builder, "s", argument.toUtf8().constData());
        }
        constexpr int usualTimeout = -1;
        GError* error = nullptr;
        // A host that was started for this would have nothing to tell.
        const Value answer(g_dbus_connection_call_sync(
            bus_.get(), desktop::bus::serviceName, desktop::bus::objectPath,
            desktop::bus::interfaceName, method, g_variant_builder_end(&builder), nullptr,
            G_DBUS_CALL_FLAGS_NO_AUTO_START, usualTimeout, nullptr, &error));
        if (!answer) {
            const GlibOwned<GError> owned(error);
            refuse(owned.get());
        }
        return g_variant_n_children(answer.get()) == 0
                   ? QVariant()
                   : plain(Value(g_variant_get_child_value(answer.get(), 0)).get());
    }

private:
    GlibOwned<GDBusConnection> bus_;
};

/// The kinds on the desktop, each once, in their order.
QStringList kindsOnDesktop(RunningHost& host) {
    QStringList kinds;
    for (const QVariant& widget : host.call("ListWidgets").toList()) {
        kinds << widget.toMap().value("kind").toString();
    }
    kinds.removeDuplicates();
    return kinds;
}

std::string jsonOf(const QVariant& value) {
    return QJsonDocument::fromVariant(value).toJson(QJsonDocument::Compact).toStdString();
}

}  // namespace

int reloadOnDesktop(const Options& options) {
    RunningHost host;
    if (options.kind.empty()) {
        host.call("ReloadAllTimelines");
    } else {
        host.call("ReloadTimelines", {QString::fromStdString(options.kind)});
    }
    return 0;
}

int explainDesktop(const Options& options) {
    RunningHost host;
    const QStringList kinds = options.kind.empty()
                                  ? kindsOnDesktop(host)
                                  : QStringList{QString::fromStdString(options.kind)};
    QVariantList explanations;
    for (const QString& kind : kinds) {
        explanations << host.call("Explain", {kind});
    }
    if (options.json) {
        printJson(jsonOf(explanations));
        return 0;
    }
    for (const QVariant& explanation : explanations) {
        std::cout << explained(explanation.toMap());
    }
    if (kinds.isEmpty()) {
        std::cout << "There is no widget on the desktop.\n";
    }
    return 0;
}

}  // namespace kelmar::tools
