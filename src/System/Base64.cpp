#include "System/Base64.h"

#include <algorithm>
#include <glib.h>
#include <memory>

namespace kelmar::system {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// GLib's decoder skips whatever it does not know, so the form is settled before it is asked.
bool isWellFormed(std::string_view text) {
    if (text.size() % 4 != 0)
        return false;
    const std::size_t end = text.find_last_not_of('=');
    const std::size_t digits = end == std::string_view::npos ? 0 : end + 1;
    return text.size() - digits <= 2 &&
           text.substr(0, digits).find_first_not_of(alphabet) == std::string_view::npos;
}

}  // namespace

std::string encodeBase64(std::string_view bytes) {
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()), &g_free);
    return text.get();
}

std::optional<std::string> decodeBase64(std::string_view text) {
    if (!isWellFormed(text))
        return std::nullopt;
    std::string bytes(text);
    // GLib refuses the empty text as a mistake of its caller's.
    if (!bytes.empty()) {
        gsize size = 0;
        g_base64_decode_inplace(bytes.data(), &size);
        bytes.resize(size);
    }
    return bytes;
}

}  // namespace kelmar::system
