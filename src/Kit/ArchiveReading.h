#pragma once

#include "Kit/JsonValue.h"
#include "Kit/Timeline.h"
#include "System/Result.h"

/// Reading of the archive's pieces out of larger JSON. All of these throw MalformedJson.
namespace kelmar::kit {

[[nodiscard]] View readView(const JsonValue& json);
[[nodiscard]] DrawnEntry readDrawnEntry(const JsonValue& json);
[[nodiscard]] Intent readIntent(const JsonValue& json);

/// Parses text and reads a value out of it: the one place where malformed JSON becomes a Failure.
template <class Value, class Reader>
[[nodiscard]] system::Result<Value> parseAndRead(std::string_view text, Reader read) {
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    if (const auto error = parser.parse(text.data(), text.size()).get(root)) {
        return system::Failure{simdjson::error_message(error)};
    }
    try {
        return Value(read(JsonValue(root)));
    } catch (const MalformedJson& malformed) {
        return system::Failure{malformed.reason};
    }
}

}  // namespace kelmar::kit
