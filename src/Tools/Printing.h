#pragma once

#include <string>

namespace kelmar::tools {

/// Prints an answer for programs, laid out so that a person can read it as well.
void printJson(const std::string& json);

}  // namespace kelmar::tools
