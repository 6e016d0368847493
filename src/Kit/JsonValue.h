#pragma once

#include <cstdint>
#include <optional>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar::kit {

/// Thrown by JsonValue where JSON is not what it has to be, and caught where decoding began:
/// decoders of nested values stay free of checks after every step.
struct MalformedJson {
    std::string reason;  ///< "content.children[2].font.size: expected a number"
};

/// A value inside parsed JSON that knows where it stands. Values refer to the one that they were
/// taken from, which therefore must have a name and outlive them: a temporary is refused.
class JsonValue {
public:
    explicit JsonValue(simdjson::dom::element root) : element_(root) {}

    /// A member of an object; malformed when this is no object or lacks it.
    [[nodiscard]] JsonValue operator[](std::string_view key) const&;
    JsonValue operator[](std::string_view key) const&& = delete;
    /// A member that may be missing.
    [[nodiscard]] std::optional<JsonValue> member(std::string_view key) const&;
    [[nodiscard]] std::optional<JsonValue> member(std::string_view key) const&& = delete;
    [[nodiscard]] std::vector<JsonValue> elements() const;
    /// The members of an object in their order.
    [[nodiscard]] std::vector<JsonValue> members() const;
    [[nodiscard]] std::string_view key() const { return key_; }

    [[nodiscard]] std::string text() const;
    [[nodiscard]] double number() const;
    [[nodiscard]] std::int64_t integer() const;
    [[nodiscard]] bool boolean() const;

    [[nodiscard]] bool isText() const { return element_.is_string(); }
    [[nodiscard]] bool isNull() const { return element_.is_null(); }
    [[nodiscard]] bool isBoolean() const { return element_.is_bool(); }
    /// The value as JSON.
    [[nodiscard]] std::string json() const { return simdjson::to_string(element_); }

    /// Gives decoding up: what was expected here.
    [[noreturn]] void refuse(std::string_view expected) const;

private:
    JsonValue(simdjson::dom::element element, const JsonValue& parent, std::string_view key)
        : element_(element), parent_(&parent), key_(key) {}
    JsonValue(simdjson::dom::element element, const JsonValue& parent, std::size_t index)
        : element_(element), parent_(&parent), index_(index) {}

    [[nodiscard]] std::string path() const;

    simdjson::dom::element element_;
    const JsonValue* parent_ = nullptr;
    std::string_view key_;
    std::size_t index_ = 0;
};

}  // namespace kelmar::kit
