#include "Host/BusAddress.h"

#include <charconv>

namespace kelmar::host {
namespace {

/// "%2f" stands for a byte.
std::optional<std::string> unescaped(std::string_view text) {
    constexpr std::size_t escapeLength = 3;
    constexpr int hexadecimal = 16;
    std::string bytes;
    while (!text.empty()) {
        if (text.front() != '%') {
            bytes += text.front();
            text.remove_prefix(1);
            continue;
        }
        const auto digits = text.substr(1, escapeLength - 1);
        unsigned char byte = 0;
        const auto* const end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, byte, hexadecimal);
        if (digits.size() < escapeLength - 1 || read.ec != std::errc() || read.ptr != end) {
            return std::nullopt;
        }
        bytes += static_cast<char>(byte);
        text.remove_prefix(escapeLength);
    }
    return bytes;
}

/// Takes what stands before the separator, and the separator, off the text.
std::string_view takeUntil(char separator, std::string_view& text) {
    const auto part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return part;
}

}  // namespace

std::optional<std::string> unixSocketOf(std::string_view address) {
    auto values = takeUntil(';', address);
    if (takeUntil(':', values) != "unix") {
        return std::nullopt;
    }
    while (!values.empty()) {
        auto value = takeUntil(',', values);
        const auto key = takeUntil('=', value);
        if (key == "path") {
            return unescaped(value);
        }
        if (key == "abstract") {
            const auto name = unescaped(value);
            return name ? std::optional(std::string(1, '\0') + *name) : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace kelmar::host
