#include "Kit/Protocol.h"

#include "Kit/Archive.h"
#include "Kit/ProtocolNames.h"

namespace kelmar::kit {

namespace {

using system::JsonWriter;

void textMember(JsonWriter& json, std::string_view key, std::string_view value) {
    json.key(key);
    json.string(value);
}

void flagMember(JsonWriter& json, std::string_view key, bool value) {
    json.key(key);
    json.boolean(value);
}

void numberMember(JsonWriter& json, std::string_view key, double value) {
    json.key(key);
    json.number(value);
}

void beginMessage(JsonWriter& json) {
    json.beginObject();
    textMember(json, "jsonrpc", "2.0");
}

void idMember(JsonWriter& json, const std::optional<MessageId>& id) {
    json.key("id");
    if (!id) {
        json.null();
        return;
    }
    std::visit(Match{[&](std::int64_t number) { json.integer(number); },
                     [&](const std::string& text) { json.string(text); }},
               *id);
}

std::string_view methodOf(const RequestBody& body) {
    return std::visit(
        Match{[](const InitializeRequest&) { return initializeMethod; },
              [](const EntryRequest& request) { return nameIn(entryMethods, request.entryKind); },
              [](const ControlRequest&) { return controlMethod; },
              [](const PerformRequest&) { return performMethod; },
              [](const DiagnoseRequest&) { return diagnoseMethod; },
              [](const OpenRequest&) { return openMethod; }},
        body);
}

void writeEnvironment(JsonWriter& json, const Environment& environment) {
    json.beginObject();
    textMember(json, "family", descriptorNameOf(environment.family));
    json.key("contentSize");
    json.beginObject();
    numberMember(json, "width", environment.contentSize.width);
    numberMember(json, "height", environment.contentSize.height);
    json.endObject();
    textMember(json, "renderingMode", nameOf(environment.renderingMode));
    json.endObject();
}

void params(JsonWriter& json, const InitializeRequest& request) {
    json.key("protocol");
    json.integer(protocolVersion);
    textMember(json, "systemVersion", request.systemVersion);
}

void params(JsonWriter& json, const EntryRequest& request) {
    textMember(json, "kind", request.widgetKind);
    json.key("environment");
    writeEnvironment(json, request.environment);
    flagMember(json, "isPreview", request.isPreview);
}

void params(JsonWriter& json, const ControlRequest& request) {
    textMember(json, "kind", request.controlKind);
    flagMember(json, "isPreview", request.isPreview);
}

void params(JsonWriter& json, const PerformRequest& request) {
    json.key("intent");
    writeIntent(json, request.intent);
}

void params(JsonWriter& /*json*/, const DiagnoseRequest& /*request*/) {}

void params(JsonWriter& json, const OpenRequest& request) {
    textMember(json, "url", request.url);
    flagMember(json, "activates", request.activates);
    flagMember(json, "addsToRecentItems", request.addsToRecentItems);
}

void writeEntry(JsonWriter& json, const Entry& entry) {
    json.beginObject();
    numberMember(json, "date", entry.date.secondsSince1970());
    json.key("view");
    writeDrawnEntry(json, entry.view);
    json.endObject();
}

/// What every descriptor says of itself.
template <class Descriptor>
void writeIdentity(JsonWriter& json, const Descriptor& descriptor) {
    textMember(json, "kind", descriptor.kind);
    textMember(json, "displayName", descriptor.displayName);
    textMember(json, "description", descriptor.description);
}

void writeWidget(JsonWriter& json, const WidgetDescriptor& widget) {
    json.beginObject();
    writeIdentity(json, widget);
    json.key("families");
    json.beginArray();
    for (const Family family : widget.families) {
        json.string(descriptorNameOf(family));
    }
    json.endArray();
    json.endObject();
}

}  // namespace

std::string encodeRequest(const Request& request) {
    JsonWriter json;
    beginMessage(json);
    if (request.id) {
        idMember(json, request.id);
    }
    textMember(json, "method", methodOf(request.body));
    json.key("params");
    json.beginObject();
    std::visit([&](const auto& body) { params(json, body); }, request.body);
    json.endObject();
    json.endObject();
    return json.text();
}

std::string encodeResponse(const MessageId& id, std::string_view resultJson) {
    JsonWriter json;
    beginMessage(json);
    idMember(json, id);
    json.key("result");
    json.raw(resultJson);
    json.endObject();
    return json.text();
}

std::string encodeError(const std::optional<MessageId>& id, const ResponseError& error) {
    JsonWriter json;
    beginMessage(json);
    idMember(json, id);
    json.key("error");
    json.beginObject();
    json.key("code");
    json.integer(static_cast<int>(error.code));
    textMember(json, "message", error.message);
    json.endObject();
    json.endObject();
    return json.text();
}

std::string encodeBundle(const Bundle& bundle) {
    JsonWriter json;
    json.beginObject();
    json.key("widgets");
    json.beginArray();
    for (const WidgetDescriptor& widget : bundle.widgets) {
        writeWidget(json, widget);
    }
    json.endArray();
    json.key("controls");
    json.beginArray();
    for (const ControlDescriptor& control : bundle.controls) {
        json.beginObject();
        writeIdentity(json, control);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

std::string encodeEntry(const Entry& entry) {
    JsonWriter json;
    writeEntry(json, entry);
    return json.text();
}

std::string encodeTimeline(const Timeline& timeline) {
    JsonWriter json;
    json.beginObject();
    json.key("entries");
    json.beginArray();
    for (const Entry& entry : timeline.entries) {
        writeEntry(json, entry);
    }
    json.endArray();
    json.key("policy");
    writePolicy(json, timeline.policy);
    json.endObject();
    return json.text();
}

void writePolicy(JsonWriter& json, const ReloadPolicy& policy) {
    std::visit(Match{[&](const ReloadAfter& after) {
                         json.beginObject();
                         numberMember(json, "after", after.date.secondsSince1970());
                         json.endObject();
                     },
                     [&](ReloadNever) { json.string(neverPolicy); }},
               policy);
}

std::string encodeControlValue(const ControlValue& value) {
    JsonWriter json;
    json.beginObject();
    flagMember(json, "running", value.running);
    textMember(json, "text", value.text);
    textMember(json, "symbol", value.symbol);
    json.key("intent");
    writeIntent(json, value.intent);
    json.endObject();
    return json.text();
}

std::string encodeFindings(const std::vector<std::string>& findings) {
    JsonWriter json;
    json.beginObject();
    json.key("findings");
    json.beginArray();
    for (const std::string& finding : findings) {
        json.string(finding);
    }
    json.endArray();
    json.endObject();
    return json.text();
}

}  // namespace kelmar::kit
