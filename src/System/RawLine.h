#pragma once

#include <initializer_list>
#include <string_view>

namespace kelmar::system {

/// Writes the pieces, eight at most, as one line to standard error behind the program's name, in
/// one call and without memory: for signal handlers and for when there is no memory left.
void writeRawLine(std::initializer_list<std::string_view> pieces) noexcept;

}  // namespace kelmar::system
