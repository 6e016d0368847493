#include "Kit/FieldWriting.h"
#include "Kit/Protocol.h"
#include "Kit/ProtocolFields.h"
#include "Kit/ProtocolNames.h"

namespace kelmar::kit {

namespace {

using system::JsonWriter;

void beginMessage(JsonWriter& json) {
    json.beginObject();
    json.key("jsonrpc");
    json.string("2.0");
}

void writeId(JsonWriter& json, const std::optional<MessageId>& id) {
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

void writeParams(JsonWriter& json, const RequestBody& body) {
    json.beginObject();
    if (std::holds_alternative<InitializeRequest>(body)) {
        json.key("protocol");
        json.integer(protocolVersion);
    }
    std::visit([&](const auto& params) { writeMembers(json, params); }, body);
    json.endObject();
}

template <Described Result>
std::string encode(const Result& result) {
    JsonWriter json;
    writeValue(json, result);
    return json.text();
}

}  // namespace

std::string encodeRequest(const Request& request) {
    JsonWriter json;
    beginMessage(json);
    if (request.id) {
        writeId(json, request.id);
    }
    json.key("method");
    json.string(methodOf(request.body));
    json.key("params");
    writeParams(json, request.body);
    json.endObject();
    return json.text();
}

std::string encodeResponse(const MessageId& id, std::string_view resultJson) {
    JsonWriter json;
    beginMessage(json);
    writeId(json, id);
    json.key("result");
    json.raw(resultJson);
    json.endObject();
    return json.text();
}

std::string encodeError(const std::optional<MessageId>& id, const ResponseError& error) {
    JsonWriter json;
    beginMessage(json);
    writeId(json, id);
    json.key("error");
    writeValue(json, error);
    json.endObject();
    return json.text();
}

std::string encodeBundle(const Bundle& bundle) {
    return encode(bundle);
}

std::string encodeEntry(const Entry& entry) {
    return encode(entry);
}

std::string encodeTimeline(const Timeline& timeline) {
    return encode(timeline);
}

void writePolicy(JsonWriter& json, const ReloadPolicy& policy) {
    writeValue(json, policy);
}

std::string encodeControlValue(const ControlValue& value) {
    return encode(value);
}

std::string encodeFindings(const std::vector<std::string>& findings) {
    return encode(Findings{findings});
}

}  // namespace kelmar::kit
