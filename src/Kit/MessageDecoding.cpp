#include <fmt/format.h>

#include "Kit/MessageReading.h"
#include "Kit/Protocol.h"
#include "Kit/ProtocolNames.h"

namespace kelmar::kit {

namespace {

InitializeRequest readInitialize(const JsonValue& params) {
    const JsonValue protocol = params["protocol"];
    if (protocol.integer() != protocolVersion) {
        protocol.refuse(fmt::format("{}, the one protocol spoken here", protocolVersion));
    }
    return readAs<InitializeRequest>(params);
}

EntryRequest readEntryRequest(EntryKind entryKind, const JsonValue& params) {
    EntryRequest request{.entryKind = entryKind, .widgetKind = {}, .environment = {}};
    MessageReader reader;
    readMembersInto(request, params, reader);
    return request;
}

/// Nothing for a method that does not exist.
std::optional<RequestBody> readBody(std::string_view method, const JsonValue& message) {
    if (const auto entryKind = valueIn(entryMethods, method)) {
        return readEntryRequest(*entryKind, message["params"]);
    }
    if (method == initializeMethod) {
        return readInitialize(message["params"]);
    }
    if (method == controlMethod) {
        return readAs<ControlRequest>(message["params"]);
    }
    if (method == performMethod) {
        return readAs<PerformRequest>(message["params"]);
    }
    if (method == diagnoseMethod) {
        return DiagnoseRequest{};
    }
    if (method == openMethod) {
        return readAs<OpenRequest>(message["params"]);
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
        return {.id = readAnswerId(message), .outcome = readAs<ResponseError>(*error)};
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

}  // namespace kelmar::kit
