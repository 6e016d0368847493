#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelmar::host {

/// The Unix socket that the first part of a D-Bus server address names, as unix(7) has it: a path,
/// or a name that begins with a zero byte for one outside the file system. Nothing for another
/// transport, and for what makes no sense.
[[nodiscard]] std::optional<std::string> unixSocketOf(std::string_view address);

}  // namespace kelmar::host
