#include "Kit/JsonValue.h"

#include <fmt/format.h>

namespace kelmar::kit {

JsonValue JsonValue::operator[](std::string_view key) const& {
    std::optional<JsonValue> value = member(key);
    if (!value) {
        refuse(fmt::format("an object with \"{}\"", key));
    }
    return *value;
}

std::optional<JsonValue> JsonValue::member(std::string_view key) const& {
    simdjson::dom::object object;
    if (element_.get(object) != simdjson::SUCCESS) {
        refuse("an object");
    }
    std::optional<JsonValue> found;
    for (const auto& field : object) {  // to the end: of doubled keys the last wins
        if (field.key == key) {
            found = JsonValue(field.value, *this, field.key);
        }
    }
    return found;
}

std::vector<JsonValue> JsonValue::elements() const {
    simdjson::dom::array array;
    if (element_.get(array) != simdjson::SUCCESS) {
        refuse("an array");
    }
    std::vector<JsonValue> values;
    values.reserve(array.size());
    for (const simdjson::dom::element element : array) {
        values.push_back(JsonValue(element, *this, values.size()));
    }
    return values;
}

std::vector<JsonValue> JsonValue::members() const {
    simdjson::dom::object object;
    if (element_.get(object) != simdjson::SUCCESS) {
        refuse("an object");
    }
    std::vector<JsonValue> values;
    for (const auto& field : object) {
        values.push_back(JsonValue(field.value, *this, field.key));
    }
    return values;
}

std::string JsonValue::text() const {
    std::string_view text;
    if (element_.get(text) != simdjson::SUCCESS) {
        refuse("a text");
    }
    return std::string(text);
}

double JsonValue::number() const {
    double number = 0;
    if (element_.get(number) != simdjson::SUCCESS) {
        refuse("a number");
    }
    return number;
}

std::int64_t JsonValue::integer() const {
    std::int64_t integer = 0;
    if (element_.get(integer) != simdjson::SUCCESS) {
        refuse("a whole number of 64 bits");
    }
    return integer;
}

bool JsonValue::boolean() const {
    bool truth = false;
    if (element_.get(truth) != simdjson::SUCCESS) {
        refuse("true or false");
    }
    return truth;
}

void JsonValue::refuse(std::string_view expected) const {
    throw MalformedJson{fmt::format("{}: expected {}", path(), expected)};
}

std::string JsonValue::path() const {
    if (parent_ == nullptr) {
        return "$";
    }
    if (key_.data() != nullptr) {
        return fmt::format("{}.{}", parent_->path(), key_);
    }
    return fmt::format("{}[{}]", parent_->path(), index_);
}

}  // namespace kelmar::kit
