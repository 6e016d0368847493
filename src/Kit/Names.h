#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace kelmar::kit {

/// The texts that stand for an enumeration's values in JSON and on the command line, each once.
template <class Enum, std::size_t count>
using NameTable = std::array<std::pair<Enum, std::string_view>, count>;

template <class Enum, std::size_t count>
[[nodiscard]] constexpr std::string_view nameIn(const NameTable<Enum, count>& table, Enum value) {
    for (const auto& [candidate, name] : table) {
        if (candidate == value) {
            return name;
        }
    }
    return {};
}

template <class Enum, std::size_t count>
[[nodiscard]] constexpr std::optional<Enum> valueIn(const NameTable<Enum, count>& table,
                                                    std::string_view name) {
    for (const auto& [value, candidate] : table) {
        if (candidate == name) {
            return value;
        }
    }
    return std::nullopt;
}

}  // namespace kelmar::kit
