#pragma once

#include <concepts>
#include <optional>
#include <string>

#include "Kit/ArchiveNames.h"
#include "Kit/Intent.h"
#include "Kit/JsonValue.h"
#include "Kit/View.h"
#include "System/Date.h"
#include "System/JsonWriter.h"

/// The values that the members of views have, each type written and read by a pair of functions.
/// What decides how a view looks is in LookValues.h.
namespace kelmar::kit {

void writeValue(system::JsonWriter& json, const std::string& text);
void writeValue(system::JsonWriter& json, double number);
/// Takes nothing but a truth value, lest a pointer or a number become one.
void writeValue(system::JsonWriter& json, std::same_as<bool> auto truth) {
    json.boolean(truth);
}
/// A number of lines: views have no other whole numbers.
void writeValue(system::JsonWriter& json, std::same_as<int> auto lines) {
    json.integer(lines);
}
void writeValue(system::JsonWriter& json, system::Date date);
void writeValue(system::JsonWriter& json, const MaximumLength& length);
void writeValue(system::JsonWriter& json, const IntentParameters& parameters);
/// The views in a view (see Archive.h).
void writeValue(system::JsonWriter& json, const View& view);
void writeValue(system::JsonWriter& json, const Child& child);
void writeValue(system::JsonWriter& json, const Children& views);
template <Named Word>
void writeValue(system::JsonWriter& json, Word word) {
    json.string(nameIn(namesOf(word), word));
}

/// Throws MalformedJson where the JSON is no such value. Views are read by whoever counts them (see
/// ArchiveReading.h).
template <class Value>
[[nodiscard]] Value readValue(const JsonValue& json) = delete;
template <>
[[nodiscard]] std::string readValue(const JsonValue& json);
template <>
[[nodiscard]] double readValue(const JsonValue& json);
template <>
[[nodiscard]] bool readValue(const JsonValue& json);
template <>
[[nodiscard]] int readValue(const JsonValue& json);
template <>
[[nodiscard]] system::Date readValue(const JsonValue& json);
template <>
[[nodiscard]] MaximumLength readValue(const JsonValue& json);
template <>
[[nodiscard]] IntentParameters readValue(const JsonValue& json);
template <Named Word>
[[nodiscard]] Word readValue(const JsonValue& json) {
    const std::optional<Word> word = valueIn(namesOf(Word{}), json.text());
    if (!word) {
        json.refuse("another word");
    }
    return *word;
}

}  // namespace kelmar::kit
