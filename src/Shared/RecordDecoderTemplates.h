#pragma once

// The part of RecordDecoder that depends on the record; included by RecordDecoder.h only.

#include "Shared/RecordDecoder.h"

namespace kelmar::shared {

/// How a fault names the types.
template <class T>
inline constexpr std::string_view typeName = "an object";
template <>
inline constexpr std::string_view typeName<std::string> = "a text";
template <>
inline constexpr std::string_view typeName<bool> = "true or false";
template <>
inline constexpr std::string_view typeName<double> = "a number";
template <>
inline constexpr std::string_view typeName<std::int64_t> = "an integer of 64 bits";
template <>
inline constexpr std::string_view typeName<system::Date> = "a number of seconds";
template <class Element>
inline constexpr std::string_view typeName<std::vector<Element>> = "a list";

template <class T>
inline constexpr bool isOptional = false;
template <class Content>
inline constexpr bool isOptional<std::optional<Content>> = true;

/// The place of a key in the record's list, or nothing. Documents nearly always have their keys in
/// the list's order, so the search begins at the field that should come next.
template <Recorded Record, class Matches>
std::optional<std::size_t> findField(std::size_t expected, Matches matches) {
    for (std::size_t step = 0; step < fieldCount<Record>; ++step) {
        const std::size_t place = (expected + step) % fieldCount<Record>;
        if (matches(fieldNames<Record>[place]))
            return place;
    }
    return std::nullopt;
}

template <Recorded Record>
bool RecordDecoder::decode(Object object, Record& record) {
    KeyFaults faults;
    std::array<bool, fieldCount<Record>> seen = {};
    std::size_t expected = 0;
    for (auto entry : object) {
        simdjson::ondemand::field field;
        if (std::move(entry).get(field) != simdjson::SUCCESS)
            return broken();
        std::optional<std::size_t> place = findField<Record>(
            expected, [&](std::string_view name) { return field.key().unsafe_is_equal(name); });
        if (!place) {
            // Unknown, or written with escapes.
            std::string_view key;
            if (field.unescaped_key().get(key) != simdjson::SUCCESS)
                return broken();
            place = findField<Record>(0, [&](std::string_view name) { return key == name; });
        }
        if (!place) {
            if (!ignore(field.value()))
                return false;
            continue;
        }
        if (!decodeField(field.value(), *place, record, faults))
            return false;
        seen[*place] = true;
        expected = *place + 1;
    }
    return settle(faults) && hasAllFields<Record>(seen);
}

template <Recorded Record>
bool RecordDecoder::decodeField(Value value, std::size_t place, Record& record, KeyFaults& faults) {
    const std::string_view name = fieldNames<Record>[place];
    const bool isDecoded = withField<Record>(
        place, [&](const auto& field) { return decode(value, record.*field.member); });
    if (!isDecoded)
        return postpone(name, "." + std::string(name), faults);
    faults.forget(name);
    return true;
}

template <Recorded Record>
bool RecordDecoder::hasAllFields(const std::array<bool, fieldCount<Record>>& seen) {
    for (std::size_t place = 0; place < fieldCount<Record>; ++place) {
        if (seen[place])
            continue;
        const bool mayBeMissing = withField<Record>(place, [&]<class Field>(const Field& field) {
            using Content = typename Field::Value;
            return isOptional<Content> || missing(field.name, typeName<Content>);
        });
        if (!mayBeMissing)
            return false;
    }
    return true;
}

template <Recorded Record>
bool RecordDecoder::decode(Value value, Record& record) {
    Object object;
    const simdjson::error_code error = value.get_object().get(object);
    if (error == simdjson::INCORRECT_TYPE)
        return mismatch(value, typeName<Record>);
    return error == simdjson::SUCCESS ? decode(object, record) : broken();
}

template <class Element>
bool RecordDecoder::decode(Value value, std::vector<Element>& list) {
    simdjson::ondemand::array array;
    const simdjson::error_code error = value.get_array().get(array);
    if (error == simdjson::INCORRECT_TYPE)
        return mismatch(value, typeName<std::vector<Element>>);
    if (error != simdjson::SUCCESS)
        return broken();
    list.clear();
    for (auto entry : array) {
        Value element;
        if (entry.get(element) != simdjson::SUCCESS)
            return broken();
        if (!decode(element, list.emplace_back())) {
            fault_.path.insert(0, "[" + std::to_string(list.size() - 1) + "]");
            return false;
        }
    }
    return true;
}

template <class Element>
bool RecordDecoder::decode(Value value, std::map<std::string, Element>& map) {
    Object object;
    const simdjson::error_code error = value.get_object().get(object);
    if (error == simdjson::INCORRECT_TYPE)
        return mismatch(value, typeName<std::map<std::string, Element>>);
    if (error != simdjson::SUCCESS)
        return broken();
    map.clear();
    KeyFaults faults;
    for (auto entry : object) {
        simdjson::ondemand::field field;
        std::string_view key;
        if (std::move(entry).get(field) != simdjson::SUCCESS ||
            field.unescaped_key().get(key) != simdjson::SUCCESS)
            return broken();
        Element element = {};
        if (decode(field.value(), element)) {
            faults.forget(key);
            map.insert_or_assign(map.end(), std::string(key), std::move(element));
        } else if (!postpone(key, "['" + std::string(key) + "']", faults)) {
            return false;
        }
    }
    return settle(faults);
}

template <class Content>
bool RecordDecoder::decode(Value value, std::optional<Content>& optional) {
    bool isNull = false;
    if (value.is_null().get(isNull) == simdjson::SUCCESS && isNull) {
        optional.reset();
        return true;
    }
    optional = Content();
    return decode(value, *optional);
}

}  // namespace kelmar::shared
