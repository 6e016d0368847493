#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelmar::system {

/// The offset of the first byte that belongs to no well-formed UTF-8 character (RFC 3629); nothing
/// when there is none.
[[nodiscard]] std::optional<std::size_t> findInvalidUtf8(std::string_view text);

}  // namespace kelmar::system
