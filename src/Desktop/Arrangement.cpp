#include "Desktop/Arrangement.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <utility>

namespace kelmar::desktop {

namespace {

constexpr int formatVersion = 1;
/// Beyond these nobody has placed anything: more would only hold the start up, and longer names go
/// to the X server and into the log.
constexpr qsizetype mostWidgets = 1'000;
constexpr std::size_t longestKind = 200;

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonObject encodeScreen(const ScreenIdentity& identity) {
    const QRect& geometry = identity.geometry;
    QJsonObject screen{{"name", toQString(identity.name)},
                       {"x", geometry.x()},
                       {"y", geometry.y()},
                       {"width", geometry.width()},
                       {"height", geometry.height()}};
    if (!identity.model.empty()) {
        screen.insert("model", toQString(identity.model));
    }
    if (!identity.serialNumber.empty()) {
        screen.insert("serialNumber", toQString(identity.serialNumber));
    }
    return screen;
}

QJsonObject encodeWidget(const WidgetPlace& widget) {
    QJsonObject json = widget.unknown;
    json.insert("kind", toQString(widget.kind));
    json.insert("family", toQString(kit::nameOf(widget.family)));
    json.insert("screen", encodeScreen(widget.screen));
    json.insert("x", widget.position.x());
    json.insert("y", widget.position.y());
    return json;
}

/// Reads the members of one object and remembers the first that is not what it must be.
class Reader {
public:
    Reader(QJsonObject object, std::string& problem)
        : object_(std::move(object)), problem_(problem) {}

    std::string text(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        if (!value.isString()) {
            complain(key, "is not a text");
        }
        return value.toString().toStdString();
    }

    std::string name(const char* key) {
        std::string name = text(key);
        if (name.size() > longestKind) {
            complain(key, "is too long to be a name");
        }
        return name;
    }

    std::string textOrNone(const char* key) {
        return object_.contains(QLatin1String(key)) ? text(key) : std::string();
    }

    bool flagOrFalse(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        if (!value.isBool() && !value.isUndefined()) {
            complain(key, "is neither true nor false");
        }
        return value.toBool();
    }

    int integer(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        const double number = value.toDouble();
        // Far beyond any screen, and well inside what sums of two of them may reach.
        if (!value.isDouble() || number != std::floor(number) || std::abs(number) > 1e6) {
            complain(key, "is not a reasonable integer");
            return 0;
        }
        return static_cast<int>(number);
    }

    template <class Value>
    Value named(const char* key, std::optional<Value> (*valueNamed)(std::string_view)) {
        const std::optional<Value> value = valueNamed(text(key));
        if (!value) {
            complain(key, "has an unknown value");
        }
        return value.value_or(Value{});
    }

    QJsonObject object(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        if (!value.isObject()) {
            complain(key, "is not an object");
        }
        return value.toObject();
    }

    QJsonArray array(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        if (!value.isArray()) {
            complain(key, "is not an array");
        }
        return value.toArray();
    }

    /// The members but for those of these keys.
    [[nodiscard]] QJsonObject without(std::initializer_list<const char*> keys) const {
        QJsonObject rest = object_;
        for (const char* key : keys) {
            rest.remove(QLatin1String(key));
        }
        return rest;
    }

    void complain(std::string_view key, std::string_view what) {
        if (problem_.empty()) {
            problem_ = std::string("\"").append(key).append("\" ").append(what);
        }
    }

private:
    const QJsonObject object_;
    std::string& problem_;
};

ScreenIdentity decodeScreen(const QJsonObject& json, std::string& problem) {
    Reader reader(json, problem);
    return {.name = reader.text("name"),
            .geometry = {reader.integer("x"), reader.integer("y"), reader.integer("width"),
                         reader.integer("height")},
            .model = reader.textOrNone("model"),
            .serialNumber = reader.textOrNone("serialNumber")};
}

WidgetPlace decodeWidget(const QJsonObject& json, std::string& problem) {
    Reader reader(json, problem);
    return {.kind = reader.name("kind"),
            .family = reader.named("family", kit::familyNamed),
            .screen = decodeScreen(reader.object("screen"), problem),
            .position = {reader.integer("x"), reader.integer("y")},
            .unknown = reader.without({"kind", "family", "screen", "x", "y"})};
}

}  // namespace

QByteArray encodeArrangement(const Arrangement& arrangement) {
    QJsonArray widgets;
    for (const WidgetPlace& widget : arrangement.widgets) {
        widgets.append(encodeWidget(widget));
    }
    QJsonObject json = arrangement.unknown;
    json.insert("version", formatVersion);
    json.insert("renderingMode", toQString(kit::nameOf(arrangement.renderingMode)));
    json.insert("locked", arrangement.lock == ArrangementLock::locked);
    json.insert("widgets", widgets);
    return QJsonDocument(json).toJson(QJsonDocument::Indented);
}

system::Result<Arrangement> decodeArrangement(const QByteArray& json) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (!document.isObject()) {
        return system::Failure{error.error == QJsonParseError::NoError
                                   ? "not a JSON object"
                                   : error.errorString().toStdString()};
    }
    std::string problem;
    Reader reader(document.object(), problem);
    if (const int version = reader.integer("version"); version != formatVersion) {
        reader.complain("version", version > formatVersion ? "is that of a later program"
                                                           : "is not one that this program knows");
    }
    Arrangement arrangement{
        .renderingMode = reader.named("renderingMode", kit::renderingModeNamed),
        .lock = reader.flagOrFalse("locked") ? ArrangementLock::locked : ArrangementLock::open,
        .unknown = reader.without({"version", "renderingMode", "locked", "widgets"})};
    const QJsonArray widgets = reader.array("widgets");
    if (widgets.size() > mostWidgets) {
        reader.complain("widgets", "has more of them than any desktop");
    }
    for (const QJsonValue widget : widgets) {
        arrangement.widgets.push_back(decodeWidget(widget.toObject(), problem));
    }
    if (!problem.empty()) {
        return system::Failure{problem};
    }
    return arrangement;
}

}  // namespace kelmar::desktop
