#pragma once

#include <optional>
#include <tuple>
#include <variant>
#include <vector>

#include "Kit/ArchiveValues.h"
#include "Kit/Fields.h"
#include "Kit/LookValues.h"
#include "System/JsonWriter.h"

/// Writes structs by their lists of fields.
namespace kelmar::kit {

template <Described Struct>
void writeMembers(system::JsonWriter& json, const Struct& whole);

template <Described Struct>
void writeValue(system::JsonWriter& json, const Struct& object) {
    json.beginObject();
    writeMembers(json, object);
    json.endObject();
}

template <class Item>
void writeValue(system::JsonWriter& json, const std::vector<Item>& items) {
    json.beginArray();
    for (const Item& item : items) {
        writeValue(json, item);
    }
    json.endArray();
}

template <class Struct, class Value>
void writeField(system::JsonWriter& json, const Struct& whole, const Field<Struct, Value>& field) {
    json.key(field.key);
    writeValue(json, whole.*field.member);
}

template <class Struct, class Value>
void writeField(system::JsonWriter& json, const Struct& whole,
                const Field<Struct, std::optional<Value>>& field) {
    if (const std::optional<Value>& value = whole.*field.member) {
        json.key(field.key);
        writeValue(json, *value);
    }
}

template <class Struct, class Value>
void writeField(system::JsonWriter& json, const Struct& whole,
                const DefaultedField<Struct, Value>& field) {
    if (!(whole.*field.member == field.usual)) {
        json.key(field.key);
        writeValue(json, whole.*field.member);
    }
}

template <class Struct, class Value>
void writeField(system::JsonWriter& json, const Struct& whole,
                const ForgivenField<Struct, Value>& field) {
    json.key(field.key);
    writeValue(json, whole.*field.member);
}

template <class Struct, class Part>
void writeField(system::JsonWriter& json, const Struct& whole,
                const InlinedFields<Struct, Part>& field) {
    writeMembers(json, whole.*field.part);
}

template <class Struct, class... Parts>
void writeField(system::JsonWriter& json, const Struct& whole,
                const InlinedFields<Struct, std::variant<Parts...>>& field) {
    std::visit([&](const auto& part) { writeMembers(json, part); }, whole.*field.part);
}

template <class Struct, class... Field>
void writeFields(system::JsonWriter& json, const Struct& whole,
                 const std::tuple<Field...>& fields) {
    std::apply([&](const auto&... field) { (writeField(json, whole, field), ...); }, fields);
}

template <Described Struct>
void writeMembers(system::JsonWriter& json, const Struct& whole) {
    writeFields(json, whole, Fields<Struct>::all);
}

}  // namespace kelmar::kit
