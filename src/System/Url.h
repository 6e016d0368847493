#pragma once

#include <string>
#include <string_view>

namespace kelmar::system {

/// Which characters stay as they are besides RFC 3986's path characters without ";".
enum class Slash { kept, encoded };

/// Percent-encodes UTF-8 text for a URL's path (RFC 3986, section 3.3). "/" stays, adding a path
/// level, or becomes "%2F".
[[nodiscard]] std::string encodeUrlPath(std::string_view text, Slash slash);

/// Whether the text is an absolute URL by RFC 3986's grammar.
[[nodiscard]] bool isValidUrl(std::string_view text);

/// The scheme of a URL in lower case, or the empty text when it has none.
[[nodiscard]] std::string urlScheme(std::string_view url);

}  // namespace kelmar::system
