#include "Kit/ArchiveValues.h"

#include "Kit/Archive.h"

namespace kelmar::kit {

using system::JsonWriter;

namespace {

IntentValue readIntentValue(const JsonValue& json) {
    if (json.isText()) {
        return json.text();
    }
    if (json.isBoolean()) {
        return json.boolean();
    }
    return json.integer();
}

}  // namespace

void writeValue(JsonWriter& json, const std::string& text) {
    json.string(text);
}
template <>
std::string readValue(const JsonValue& json) {
    return json.text();
}

void writeValue(JsonWriter& json, double number) {
    json.number(number);
}
template <>
double readValue(const JsonValue& json) {
    return json.number();
}

template <>
bool readValue(const JsonValue& json) {
    return json.boolean();
}

template <>
int readValue(const JsonValue& json) {
    const std::int64_t lines = json.integer();
    if (lines < 1 || lines > maximumNodes) {
        json.refuse("a number of lines");
    }
    return static_cast<int>(lines);
}

void writeValue(JsonWriter& json, system::Date date) {
    json.number(date.secondsSince1970());
}
template <>
system::Date readValue(const JsonValue& json) {
    return system::Date::since1970(json.number());
}

void writeValue(JsonWriter& json, const MaximumLength& length) {
    std::visit(Match{[&](double points) { json.number(points); },
                     [&](Infinity) { json.string(infinityName); }},
               length);
}
template <>
MaximumLength readValue(const JsonValue& json) {
    if (!json.isText()) {
        return json.number();
    }
    if (json.text() != infinityName) {
        json.refuse("a number or \"infinity\"");
    }
    return infinity;
}

void writeValue(JsonWriter& json, const IntentParameters& parameters) {
    json.beginObject();
    for (const auto& [name, value] : parameters) {
        json.key(name);
        std::visit(Match{[&](const std::string& text) { json.string(text); },
                         [&](bool truth) { json.boolean(truth); },
                         [&](std::int64_t number) { json.integer(number); }},
                   value);
    }
    json.endObject();
}

template <>
IntentParameters readValue(const JsonValue& json) {
    IntentParameters parameters;
    for (const JsonValue& parameter : json.members()) {
        parameters.emplace_back(parameter.key(), readIntentValue(parameter));
    }
    return parameters;
}

}  // namespace kelmar::kit
