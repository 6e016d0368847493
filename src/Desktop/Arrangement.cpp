#include "Desktop/Arrangement.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <optional>

namespace kelmar::desktop {

namespace {

constexpr int formatVersion = 1;

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonObject encodeWidget(const WidgetPlace& widget) {
    const QRect& geometry = widget.screen.geometry;
    const QJsonObject screen{{"name", toQString(widget.screen.name)},
                             {"x", geometry.x()},
                             {"y", geometry.y()},
                             {"width", geometry.width()},
                             {"height", geometry.height()}};
    return {{"kind", toQString(widget.kind)},
            {"family", toQString(kit::nameOf(widget.family))},
            {"screen", screen},
            {"x", widget.position.x()},
            {"y", widget.position.y()}};
}

/// Reads the members of one object and remembers the first that is not what it must be.
class Reader {
public:
    Reader(const QJsonObject& object, std::string& problem) : object_(object), problem_(problem) {}

    std::string text(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        if (!value.isString()) {
            complain(key, "is not a text");
        }
        return value.toString().toStdString();
    }

    int integer(const char* key) {
        const QJsonValue value = object_.value(QLatin1String(key));
        const double number = value.toDouble();
        // Far beyond any screen, and well inside what sums of two of them may reach.
        if (!value.isDouble() || number != std::floor(number) || std::abs(number) > 1e6) {
            complain(key, "is not an integer that a screen could have");
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
                         reader.integer("height")}};
}

WidgetPlace decodeWidget(const QJsonObject& json, std::string& problem) {
    Reader reader(json, problem);
    return {.kind = reader.text("kind"),
            .family = reader.named("family", kit::familyNamed),
            .screen = decodeScreen(reader.object("screen"), problem),
            .position = {reader.integer("x"), reader.integer("y")}};
}

}  // namespace

QByteArray encodeArrangement(const Arrangement& arrangement) {
    QJsonArray widgets;
    for (const WidgetPlace& widget : arrangement.widgets) {
        widgets.append(encodeWidget(widget));
    }
    return QJsonDocument(
               QJsonObject{{"version", formatVersion},
                           {"renderingMode", toQString(kit::nameOf(arrangement.renderingMode))},
                           {"widgets", widgets}})
        .toJson(QJsonDocument::Indented);
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
    if (reader.integer("version") != formatVersion) {
        reader.complain("version", "is not one that this program knows");
    }
    Arrangement arrangement{.renderingMode = reader.named("renderingMode", kit::renderingModeNamed),
                            .widgets = {}};
    for (const QJsonValue widget : reader.array("widgets")) {
        arrangement.widgets.push_back(decodeWidget(widget.toObject(), problem));
    }
    if (!problem.empty()) {
        return system::Failure{problem};
    }
    return arrangement;
}

}  // namespace kelmar::desktop
