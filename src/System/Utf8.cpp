#include "System/Utf8.h"

#include <glib.h>

namespace kelmar::system {

std::optional<std::size_t> findInvalidUtf8(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    const char* const end = text.data() + text.size();
    const char* next = text.data();
    while (g_utf8_validate_len(next, static_cast<gsize>(end - next), &next) == FALSE) {
        // GLib takes a zero byte for the end of a text, but it is a character like others.
        if (*next != '\0')
            return static_cast<std::size_t>(next - text.data());
        ++next;
    }
    return std::nullopt;
}

}  // namespace kelmar::system
