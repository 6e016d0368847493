#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kelmar::kit {

using IntentValue = std::variant<std::string, bool, std::int64_t>;

using IntentParameters = std::vector<std::pair<std::string, IntentValue>>;

/// An action by name, with its parameters in the order in which the action declares them. It is
/// only a description: the extension that put it into a view knows how to run it.
struct Intent {
    std::string name;
    IntentParameters parameters;

    friend bool operator==(const Intent&, const Intent&) = default;
};

}  // namespace kelmar::kit
