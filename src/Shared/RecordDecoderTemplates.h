#pragma once

// The part of RecordDecoder that depends on the record; included by RecordDecoder.h only.

#include <cstring>
#include <type_traits>

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

/// A bit for each field that must be there.
template <Recorded Record>
constexpr std::uint32_t requiredFields() {
    static_assert(fieldCount<Record> <= 32);
    std::uint32_t required = 0;
    holdsForAllFields<Record>([&]<std::size_t place>(FieldPlace<place>) {
        using Value = typename std::remove_cvref_t<decltype(fieldAt<Record, place>)>::Value;
        required |= isOptional<Value> ? 0U : 1U << place;
        return true;
    });
    return required;
}

template <class DecodeValue>
RecordDecoder::Place RecordDecoder::decodeEntries(Place object, DecodeValue decodeValue) {
    Place at = object + 1;
    if (tokens_.front(at) == '}')
        return at + 1;
    std::string unescapedKey;
    for (;; ++at) {
        if (tokens_.front(at) != '"' || tokens_.front(at + 1) != ':')
            return nullptr;
        std::string_view key = tokens_.quoted(at);
        if (tokens_.hasEscapes(key)) {
            if (!tokens_.unescape(key, unescapedKey))
                return nullptr;
            key = unescapedKey;
        }
        at = decodeValue(key, at + 2);
        if (at == nullptr)
            return nullptr;
        if (tokens_.front(at) != ',')
            return tokens_.front(at) == '}' ? at + 1 : nullptr;
    }
}

template <Recorded Record>
RecordDecoder::Place RecordDecoder::decode(Place object, Record& record) {
    if (tokens_.front(object) != '{')
        return mismatch(object, typeName<Record>);
    KeyFaults faults;
    std::uint32_t seen = 0;
    const auto decodeField = [&](std::string_view key, Place value) {
        Place next = nullptr;
        const auto isOther = [&]<std::size_t place>(FieldPlace<place>) {
            constexpr const auto& field = fieldAt<Record, place>;
            // The length being known, no function has to be called to compare so few characters.
            if (key.size() != field.name.size() ||
                std::memcmp(key.data(), field.name.data(), field.name.size()) != 0)
                return true;
            seen |= 1U << place;
            next = decode(value, record.*field.member);
            if (next == nullptr)
                next = postpone(value, field.name, "." + std::string(field.name), faults);
            else
                faults.forget(field.name);
            return false;
        };
        return holdsForAllFields<Record>(isOther) ? ignore(value) : next;
    };
    const Place behind = decodeEntries(object, decodeField);
    const bool isWhole = behind != nullptr && settle(faults) && hasFields<Record>(seen);
    return isWhole ? behind : nullptr;
}

template <Recorded Record>
bool RecordDecoder::hasFields(std::uint32_t seen) {
    constexpr std::uint32_t required = requiredFields<Record>();
    return (seen & required) == required ||
           holdsForAllFields<Record>([&]<std::size_t place>(FieldPlace<place>) {
               constexpr const auto& field = fieldAt<Record, place>;
               using Value = typename std::remove_cvref_t<decltype(field)>::Value;
               return ((seen | ~required) >> place & 1U) != 0 ||
                      missing(field.name, typeName<Value>);
           });
}

template <class Element>
RecordDecoder::Place RecordDecoder::decode(Place value, std::vector<Element>& list) {
    if (tokens_.front(value) != '[')
        return mismatch(value, typeName<std::vector<Element>>);
    list.clear();
    Place at = value + 1;
    if (tokens_.front(at) == ']')
        return at + 1;
    for (;; ++at) {
        Element element = {};
        at = decode(at, element);
        if (at == nullptr) {
            fault_.path.insert(0, "[" + std::to_string(list.size()) + "]");
            return nullptr;
        }
        list.push_back(std::move(element));
        if (tokens_.front(at) != ',')
            return tokens_.front(at) == ']' ? at + 1 : nullptr;
    }
}

template <class Element>
RecordDecoder::Place RecordDecoder::decode(Place value, std::map<std::string, Element>& map) {
    if (tokens_.front(value) != '{')
        return mismatch(value, typeName<std::map<std::string, Element>>);
    map.clear();
    KeyFaults faults;
    const Place behind = decodeEntries(value, [&](std::string_view key, Place entry) {
        Element element = {};
        const Place next = decode(entry, element);
        if (next == nullptr)
            return postpone(entry, key, "['" + std::string(key) + "']", faults);
        faults.forget(key);
        map.insert_or_assign(map.end(), std::string(key), std::move(element));
        return next;
    });
    return behind != nullptr && settle(faults) ? behind : nullptr;
}

template <class Content>
RecordDecoder::Place RecordDecoder::decode(Place value, std::optional<Content>& optional) {
    if (tokens_.front(value) == 'n' && tokens_.token(value) == "null") {
        optional.reset();
        return value + 1;
    }
    optional = Content();
    return decode(value, *optional);
}

}  // namespace kelmar::shared
