#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelmar::system {

/// Standard Base64 with padding (RFC 4648, section 4).
[[nodiscard]] std::string encodeBase64(std::string_view bytes);

/// The bytes of a padded standard Base64 text; nothing when it holds a character outside the
/// alphabet, white space included, is padded wrongly, or is no multiple of four characters long.
[[nodiscard]] std::optional<std::string> decodeBase64(std::string_view text);

}  // namespace kelmar::system
