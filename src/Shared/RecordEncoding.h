#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Shared/RecordFields.h"
#include "System/Date.h"
#include "System/JsonWriter.h"

/// Writes a record by its list of fields, one overload for each type that a field may have.
namespace kelmar::shared::encoding {

inline void encode(system::JsonWriter& json, const std::string& text) {
    json.string(text);
}
inline void encode(system::JsonWriter& json, std::int64_t number) {
    json.integer(number);
}
inline void encode(system::JsonWriter& json, double number) {
    json.number(number);
}
inline void encode(system::JsonWriter& json, system::Date date) {
    json.number(date.secondsSince1970());
}
/// Takes nothing but a truth value, lest a pointer or a number become one.
inline void encode(system::JsonWriter& json, std::same_as<bool> auto truth) {
    json.boolean(truth);
}

template <Recorded Record>
void encode(system::JsonWriter& json, const Record& record);

template <class Element>
void encode(system::JsonWriter& json, const std::vector<Element>& list) {
    json.beginArray();
    for (const Element& element : list)
        encode(json, element);
    json.endArray();
}

template <class Value>
void encode(system::JsonWriter& json, const std::map<std::string, Value>& map) {
    json.beginObject();
    for (const auto& [key, value] : map) {
        json.key(key);
        encode(json, value);
    }
    json.endObject();
}

template <class Value>
void encodeMember(system::JsonWriter& json, std::string_view name, const Value& value) {
    json.key(name);
    encode(json, value);
}

template <class Value>
void encodeMember(system::JsonWriter& json, std::string_view name,
                  const std::optional<Value>& value) {
    if (value)
        encodeMember(json, name, *value);
}

template <Recorded Record>
void encode(system::JsonWriter& json, const Record& record) {
    json.beginObject();
    std::apply(
        [&](const auto&... field) { (encodeMember(json, field.name, record.*field.member), ...); },
        Fields<Record>::all);
    json.endObject();
}

}  // namespace kelmar::shared::encoding

namespace kelmar::shared {

template <Recorded Record>
[[nodiscard]] std::string encodeRecord(const Record& record) {
    system::JsonWriter json;
    encoding::encode(json, record);
    return json.text();
}

}  // namespace kelmar::shared
