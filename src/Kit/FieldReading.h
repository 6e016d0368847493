#pragma once

#include <optional>
#include <tuple>
#include <variant>

#include "Kit/ArchiveValues.h"
#include "Kit/Fields.h"
#include "Kit/JsonValue.h"
#include "Kit/LookValues.h"

/// Reads structs by their lists of fields. All of it throws MalformedJson. The values of the fields
/// come from a `reader`, which knows every type that they have: `reader.read<Value>(json)`.
namespace kelmar::kit {

template <Described Struct>
[[nodiscard]] Struct readMembers(const JsonValue& json, auto& reader);

/// Reads whatever is no view and holds none.
struct ValueReader {
    template <class Value>
    [[nodiscard]] Value read(const JsonValue& json) {
        if constexpr (Described<Value>) {
            return readMembers<Value>(json, *this);
        } else {
            return readValue<Value>(json);
        }
    }
};

template <class Struct, class Value>
[[nodiscard]] Value readField(const JsonValue& json, const Field<Struct, Value>& field,
                              auto& reader) {
    return reader.template read<Value>(json[field.key]);
}

template <class Struct, class Value>
[[nodiscard]] std::optional<Value> readField(const JsonValue& json,
                                             const Field<Struct, std::optional<Value>>& field,
                                             auto& reader) {
    const auto value = json.member(field.key);
    return value ? std::optional(reader.template read<Value>(*value)) : std::nullopt;
}

template <class Struct, class Value>
[[nodiscard]] Value readField(const JsonValue& json, const DefaultedField<Struct, Value>& field,
                              auto& reader) {
    const auto value = json.member(field.key);
    return value ? reader.template read<Value>(*value) : field.usual;
}

template <class Struct, class Value>
[[nodiscard]] Value readField(const JsonValue& json, const ForgivenField<Struct, Value>& field,
                              auto& reader) {
    const auto value = json.member(field.key);
    return value ? reader.template read<Value>(*value) : field.usual;
}

template <class Struct, class Part>
[[nodiscard]] Part readField(const JsonValue& json, const InlinedFields<Struct, Part>& /*field*/,
                             auto& reader) {
    return readMembers<Part>(json, reader);
}

/// The first alternative is known by its first field, so that this may be required as well.
template <class Struct, class First, class Second>
[[nodiscard]] std::variant<First, Second> readField(
    const JsonValue& json, const InlinedFields<Struct, std::variant<First, Second>>& /*field*/,
    auto& reader) {
    if (json.member(std::get<0>(Fields<First>::all).key)) {
        return readMembers<First>(json, reader);
    }
    return readMembers<Second>(json, reader);
}

template <class Struct, class... Field>
[[nodiscard]] Struct readFields(const JsonValue& json, const std::tuple<Field...>& fields,
                                auto& reader) {
    // In the order of the fields, for so the parts of a braced list are evaluated.
    return std::apply(
        [&](const auto&... field) { return Struct{readField(json, field, reader)...}; }, fields);
}

template <Described Struct>
Struct readMembers(const JsonValue& json, auto& reader) {
    return readFields<Struct>(json, Fields<Struct>::all, reader);
}

/// Reads into a struct that has other members besides its fields.
template <Described Struct>
void readMembersInto(Struct& whole, const JsonValue& json, auto& reader) {
    std::apply(
        [&](const auto&... field) {
            ((whole.*field.member = readField(json, field, reader)), ...);
        },
        Fields<Struct>::all);
}

}  // namespace kelmar::kit
