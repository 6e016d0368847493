#include "Kit/ProtocolValues.h"

#include "Kit/Metrics.h"
#include "Kit/ProtocolNames.h"

namespace kelmar::kit {

using system::JsonWriter;

namespace {

RenderingMode readRenderingMode(const JsonValue& json) {
    const auto named = renderingModeNamed(json.text());
    if (!named) {
        json.refuse(R"("fullColor", "accented" or "vibrant")");
    }
    return *named;
}

}  // namespace

void writeValue(JsonWriter& json, Family family) {
    json.string(descriptorNameOf(family));
}
template <>
Family readValue(const JsonValue& json) {
    const std::string name = json.text();
    const auto described = familyWithDescriptorName(name);
    const auto family = described ? described : familyNamed(name);
    if (!family) {
        json.refuse(R"("systemSmall", "systemMedium" or "systemLarge")");
    }
    return *family;
}

void writeValue(JsonWriter& json, const Environment& environment) {
    json.beginObject();
    json.key("family");
    writeValue(json, environment.family);
    json.key("contentSize");
    json.beginObject();
    json.key("width");
    json.number(environment.contentSize.width);
    json.key("height");
    json.number(environment.contentSize.height);
    json.endObject();
    json.key("renderingMode");
    json.string(nameOf(environment.renderingMode));
    json.endObject();
}
template <>
Environment readValue(const JsonValue& json) {
    Environment environment;
    environment.family = readValue<Family>(json["family"]);
    environment.contentSize = contentSize(environment.family);
    if (const auto size = json.member("contentSize")) {
        environment.contentSize = {(*size)["width"].number(), (*size)["height"].number()};
    }
    if (const auto mode = json.member("renderingMode")) {
        environment.renderingMode = readRenderingMode(*mode);
    }
    return environment;
}

void writeValue(JsonWriter& json, const ReloadPolicy& policy) {
    std::visit(Match{[&](const ReloadAfter& after) {
                         json.beginObject();
                         json.key("after");
                         writeValue(json, after.date);
                         json.endObject();
                     },
                     [&](ReloadNever) { json.string(neverPolicy); }},
               policy);
}
template <>
ReloadPolicy readValue(const JsonValue& json) {
    if (!json.isText()) {
        return ReloadAfter{readValue<system::Date>(json["after"])};
    }
    if (json.text() != neverPolicy) {
        json.refuse(R"("never" or an object with "after")");
    }
    return ReloadNever{};
}

void writeValue(JsonWriter& json, ErrorCode code) {
    json.integer(static_cast<int>(code));
}
template <>
ErrorCode readValue(const JsonValue& json) {
    return static_cast<ErrorCode>(json.integer());
}

}  // namespace kelmar::kit
