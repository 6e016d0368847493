#include <fmt/format.h>

#include "Kit/ArchiveReading.h"
#include "Kit/Metrics.h"
#include "Kit/Protocol.h"
#include "Kit/ProtocolNames.h"

namespace kelmar::kit {

namespace {

bool optionalFlag(const JsonValue& json, std::string_view key) {
    const auto value = json.member(key);
    return value && value->boolean();
}

Family readFamily(const JsonValue& json) {
    const std::string name = json.text();
    if (const auto family = familyWithDescriptorName(name)) {
        return *family;
    }
    // The short names of the command line are understood as well.
    if (const auto family = familyNamed(name)) {
        return *family;
    }
    json.refuse(R"("systemSmall", "systemMedium" or "systemLarge")");
}

/// Only the family must be said: the rest has a usual value.
Environment readEnvironment(const JsonValue& json) {
    Environment environment;
    environment.family = readFamily(json["family"]);
    environment.contentSize = contentSize(environment.family);
    if (const auto size = json.member("contentSize")) {
        environment.contentSize = {(*size)["width"].number(), (*size)["height"].number()};
    }
    if (const auto mode = json.member("renderingMode")) {
        const auto named = renderingModeNamed(mode->text());
        if (!named) {
            mode->refuse(R"("fullColor", "accented" or "vibrant")");
        }
        environment.renderingMode = *named;
    }
    return environment;
}

InitializeRequest readInitialize(const JsonValue& params) {
    const JsonValue protocol = params["protocol"];
    if (protocol.integer() != protocolVersion) {
        protocol.refuse(fmt::format("{}, the one protocol spoken here", protocolVersion));
    }
    return {.systemVersion = params["systemVersion"].text()};
}

OpenRequest readOpen(const JsonValue& params) {
    return {.url = params["url"].text(),
            .activates = optionalFlag(params, "activates"),
            .addsToRecentItems = optionalFlag(params, "addsToRecentItems")};
}

/// Nothing for a method that does not exist.
std::optional<RequestBody> readBody(std::string_view method, const JsonValue& message) {
    if (const auto entryKind = valueIn(entryMethods, method)) {
        const JsonValue params = message["params"];
        return EntryRequest{.entryKind = *entryKind,
                            .widgetKind = params["kind"].text(),
                            .environment = readEnvironment(params["environment"]),
                            .isPreview = optionalFlag(params, "isPreview")};
    }
    if (method == initializeMethod) {
        return readInitialize(message["params"]);
    }
    if (method == controlMethod) {
        const JsonValue params = message["params"];
        return ControlRequest{.controlKind = params["kind"].text(),
                              .isPreview = optionalFlag(params, "isPreview")};
    }
    if (method == performMethod) {
        const JsonValue params = message["params"];
        return PerformRequest{readIntent(params["intent"])};
    }
    if (method == diagnoseMethod) {
        return DiagnoseRequest{};
    }
    if (method == openMethod) {
        return readOpen(message["params"]);
    }
    return std::nullopt;
}

std::optional<MessageId> readId(const JsonValue& message) {
    const auto id = message.member("id");
    if (!id) {
        return std::nullopt;
    }
    if (id->isText()) {
        return id->text();
    }
    return id->integer();
}

/// Errors are named by code; one that this protocol does not know still is an error.
ResponseError readError(const JsonValue& json) {
    return {.code = static_cast<ErrorCode>(json["code"].integer()),
            .message = json["message"].text()};
}

/// An answer without a readable id answers nothing that was asked: its id is null or missing.
std::optional<MessageId> readAnswerId(const JsonValue& message) {
    const auto id = message.member("id");
    if (!id || id->isNull()) {
        return std::nullopt;
    }
    return readId(message);
}

Response readResponse(const JsonValue& message) {
    const auto result = message.member("result");
    const auto error = message.member("error");
    if (result.has_value() == error.has_value()) {
        message.refuse("a request, or an answer with either a result or an error");
    }
    if (error) {
        return {.id = readAnswerId(message), .outcome = readError(*error)};
    }
    return {.id = readAnswerId(message), .outcome = result->json()};
}

InvalidLine invalid(ErrorCode code, const std::optional<MessageId>& id, const std::string& reason) {
    return {
        .reason = reason,
        .answer = Response{.id = id, .outcome = ResponseError{.code = code, .message = reason}}};
}

system::Result<Message, InvalidLine> readRequest(const JsonValue& message,
                                                 const std::string& method) {
    std::optional<MessageId> id;
    try {
        id = readId(message);
    } catch (const MalformedJson& malformed) {
        return invalid(ErrorCode::invalidRequest, std::nullopt, malformed.reason);
    }
    InvalidLine line;
    try {
        if (auto body = readBody(method, message)) {
            return Message(Request{.id = std::move(id), .body = std::move(*body)});
        }
        line = invalid(ErrorCode::methodNotFound, id,
                       fmt::format("There is no method \"{}\".", method));
    } catch (const MalformedJson& malformed) {
        line = invalid(ErrorCode::invalidParams, id, malformed.reason);
    }
    if (!id) {
        line.answer.reset();
    }
    return line;
}

system::Result<Message, InvalidLine> readMessage(const JsonValue& message) {
    try {
        const auto version = message.member("jsonrpc");
        if (!version || !version->isText() || version->text() != "2.0") {
            message.refuse("a JSON-RPC 2.0 message");
        }
        if (const auto method = message.member("method")) {
            return readRequest(message, method->text());
        }
        return Message(readResponse(message));
    } catch (const MalformedJson& malformed) {
        return invalid(ErrorCode::invalidRequest, std::nullopt, malformed.reason);
    }
}

Entry readEntry(const JsonValue& json) {
    return {.date = system::Date::since1970(json["date"].number()),
            .view = readDrawnEntry(json["view"])};
}

ReloadPolicy readPolicy(const JsonValue& json) {
    if (!json.isText()) {
        return ReloadAfter{system::Date::since1970(json["after"].number())};
    }
    if (json.text() != neverPolicy) {
        json.refuse(R"("never" or an object with "after")");
    }
    return ReloadNever{};
}

Timeline readTimeline(const JsonValue& json) {
    Timeline timeline{.entries = {}, .policy = readPolicy(json["policy"])};
    const JsonValue entries = json["entries"];
    for (const JsonValue& entry : entries.elements()) {
        timeline.entries.push_back(readEntry(entry));
    }
    if (timeline.entries.empty()) {
        entries.refuse("at least one entry");
    }
    return timeline;
}

WidgetDescriptor readWidget(const JsonValue& json) {
    WidgetDescriptor widget{.kind = json["kind"].text(),
                            .displayName = json["displayName"].text(),
                            .description = json["description"].text(),
                            .families = {}};
    const JsonValue families = json["families"];
    for (const JsonValue& family : families.elements()) {
        widget.families.push_back(readFamily(family));
    }
    return widget;
}

Bundle readBundle(const JsonValue& json) {
    Bundle bundle;
    const JsonValue widgets = json["widgets"];
    for (const JsonValue& widget : widgets.elements()) {
        bundle.widgets.push_back(readWidget(widget));
    }
    const JsonValue controls = json["controls"];
    for (const JsonValue& control : controls.elements()) {
        bundle.controls.push_back({.kind = control["kind"].text(),
                                   .displayName = control["displayName"].text(),
                                   .description = control["description"].text()});
    }
    return bundle;
}

ControlValue readControlValue(const JsonValue& json) {
    return {.running = json["running"].boolean(),
            .text = json["text"].text(),
            .symbol = json["symbol"].text(),
            .intent = readIntent(json["intent"])};
}

std::vector<std::string> readFindings(const JsonValue& json) {
    std::vector<std::string> findings;
    const JsonValue list = json["findings"];
    for (const JsonValue& finding : list.elements()) {
        findings.push_back(finding.text());
    }
    return findings;
}

}  // namespace

system::Result<Message, InvalidLine> decodeMessage(std::string_view line) {
    if (line.size() > maximumLineLength) {
        return invalid(ErrorCode::invalidRequest, std::nullopt,
                       fmt::format("A message has at most {} bytes.", maximumLineLength));
    }
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    if (const auto error = parser.parse(line.data(), line.size()).get(root)) {
        return invalid(ErrorCode::parseError, std::nullopt, simdjson::error_message(error));
    }
    return readMessage(JsonValue(root));
}

system::Result<Bundle> decodeBundle(std::string_view json) {
    return parseAndRead<Bundle>(json, readBundle);
}

system::Result<Entry> decodeEntry(std::string_view json) {
    return parseAndRead<Entry>(json, readEntry);
}

system::Result<Timeline> decodeTimeline(std::string_view json) {
    return parseAndRead<Timeline>(json, readTimeline);
}

system::Result<ControlValue> decodeControlValue(std::string_view json) {
    return parseAndRead<ControlValue>(json, readControlValue);
}

system::Result<std::vector<std::string>> decodeFindings(std::string_view json) {
    return parseAndRead<std::vector<std::string>>(json, readFindings);
}

}  // namespace kelmar::kit
