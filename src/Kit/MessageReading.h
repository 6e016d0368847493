#pragma once

#include <concepts>
#include <string>
#include <vector>

#include "Kit/ArchiveReading.h"
#include "Kit/FieldReading.h"
#include "Kit/ProtocolFields.h"

/// Reading of what messages carry. All of it throws MalformedJson.
namespace kelmar::kit {

/// Reads parameters and results, which hold lists, archives and intents.
class MessageReader {
public:
    template <class Value>
    [[nodiscard]] Value read(const JsonValue& json) {
        if constexpr (std::same_as<Value, DrawnEntry>) {
            return readDrawnEntry(json);
        } else if constexpr (std::same_as<Value, Intent>) {
            return readIntent(json);
        } else if constexpr (requires { typename Value::value_type; } &&
                             !std::same_as<Value, std::string>) {
            return readList<typename Value::value_type>(json);
        } else if constexpr (Described<Value>) {
            return readMembers<Value>(json, *this);
        } else {
            return readValue<Value>(json);
        }
    }

private:
    template <class Item>
    [[nodiscard]] std::vector<Item> readList(const JsonValue& json) {
        const std::vector<JsonValue> elements = json.elements();
        std::vector<Item> items;
        items.reserve(elements.size());
        for (const JsonValue& element : elements) {
            items.push_back(read<Item>(element));
        }
        return items;
    }
};

template <class Value>
[[nodiscard]] Value readAs(const JsonValue& json) {
    return MessageReader().read<Value>(json);
}

}  // namespace kelmar::kit
