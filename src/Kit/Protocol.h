#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Kit/Descriptor.h"
#include "Kit/Environment.h"
#include "Kit/Intent.h"
#include "Kit/Timeline.h"
#include "System/JsonWriter.h"
#include "System/Result.h"

/// The messages of a host and an extension: JSON-RPC 2.0, one message a line, UTF-8. Dates are
/// seconds since 1970. A line here never carries its line feed.
namespace kelmar::kit {

inline constexpr int protocolVersion = 1;
/// A longer line is no message.
inline constexpr std::size_t maximumLineLength = std::size_t{8} << 20;

// Requests of the host -----------------------------------------------------------------------

struct InitializeRequest {
    std::string systemVersion;
    bool operator==(const InitializeRequest&) const = default;
};

enum class EntryKind { placeholder, snapshot, timeline };

/// Asks for one entry, or for a timeline.
struct EntryRequest {
    EntryKind entryKind = EntryKind::timeline;
    std::string widgetKind;
    Environment environment;
    bool isPreview = false;
    bool operator==(const EntryRequest&) const = default;
};

struct ControlRequest {
    std::string controlKind;
    bool isPreview = false;
    bool operator==(const ControlRequest&) const = default;
};

struct PerformRequest {
    Intent intent;
    bool operator==(const PerformRequest&) const = default;
};

/// Asks what is wrong with what the extension has to work with. Optional: an extension that has
/// nothing to say about itself answers that there is no such method.
struct DiagnoseRequest {
    bool operator==(const DiagnoseRequest&) const = default;
};

// Requests of the extension ------------------------------------------------------------------

/// Asks the host to open a URL; answered when the open request has completed.
struct OpenRequest {
    std::string url;
    bool activates = false;
    bool addsToRecentItems = false;
    bool operator==(const OpenRequest&) const = default;
};

using RequestBody = std::variant<InitializeRequest, EntryRequest, ControlRequest, PerformRequest,
                                 DiagnoseRequest, OpenRequest>;

/// A request is answered under the id that its sender chose.
using MessageId = std::variant<std::int64_t, std::string>;

struct Request {
    std::optional<MessageId> id;  ///< Absent in a notification, which nobody answers.
    RequestBody body;
    bool operator==(const Request&) const = default;
};

// Answers ------------------------------------------------------------------------------------

/// The error codes of JSON-RPC 2.0, and this protocol's own for an action that failed.
enum class ErrorCode {
    parseError = -32700,
    invalidRequest = -32600,
    methodNotFound = -32601,
    invalidParams = -32602,
    internalError = -32603,
    actionFailed = -32000,
};

struct ResponseError {
    ErrorCode code = ErrorCode::internalError;
    std::string message;
    bool operator==(const ResponseError&) const = default;
};

/// An answer whose result is still JSON: only who asked knows what it must hold.
struct Response {
    std::optional<MessageId> id;  ///< Absent in an answer to a line whose id could not be read.
    std::variant<std::string, ResponseError> outcome;
    bool operator==(const Response&) const = default;
};

using Message = std::variant<Request, Response>;

/// A line that is no message.
struct InvalidLine {
    std::string reason;
    std::optional<Response> answer;  ///< What its sender is told; a bad notification gets nothing.
    bool operator==(const InvalidLine&) const = default;
};

[[nodiscard]] system::Result<Message, InvalidLine> decodeMessage(std::string_view line);

[[nodiscard]] std::string encodeRequest(const Request& request);
/// `resultJson` as written by one of the encoders below.
[[nodiscard]] std::string encodeResponse(const MessageId& id, std::string_view resultJson);
[[nodiscard]] std::string encodeError(const std::optional<MessageId>& id,
                                      const ResponseError& error);

// Results --------------------------------------------------------------------------------------

[[nodiscard]] std::string encodeBundle(const Bundle& bundle);
[[nodiscard]] std::string encodeEntry(const Entry& entry);
[[nodiscard]] std::string encodeTimeline(const Timeline& timeline);
/// {"after": date} or "never", as a part of something larger.
void writePolicy(system::JsonWriter& json, const ReloadPolicy& policy);
[[nodiscard]] std::string encodeControlValue(const ControlValue& value);
/// The result of a DiagnoseRequest: one sentence for each fault, none when all is well.
[[nodiscard]] std::string encodeFindings(const std::vector<std::string>& findings);
inline constexpr std::string_view emptyResult = "{}";

[[nodiscard]] system::Result<Bundle> decodeBundle(std::string_view json);
[[nodiscard]] system::Result<Entry> decodeEntry(std::string_view json);
/// Refuses a timeline without entries.
[[nodiscard]] system::Result<Timeline> decodeTimeline(std::string_view json);
[[nodiscard]] system::Result<ControlValue> decodeControlValue(std::string_view json);
[[nodiscard]] system::Result<std::vector<std::string>> decodeFindings(std::string_view json);

}  // namespace kelmar::kit
