#pragma once

#include <map>
#include <optional>
#include <string>

namespace kelmar::host {

/// Variables of the environment that an application is to have otherwise than this process, by
/// their names; without a value, those that it is not to have at all.
using ApplicationVariables = std::map<std::string, std::optional<std::string>>;

}  // namespace kelmar::host
