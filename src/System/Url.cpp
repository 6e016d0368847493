#include "System/Url.h"

#include <glib.h>
#include <memory>

namespace kelmar::system {
namespace {

using GText = std::unique_ptr<char, decltype(&g_free)>;

constexpr std::string_view subDelimiters = "!$&'()*+,;=";

bool isUnreserved(char character) {
    return g_ascii_isalnum(character) ||
           std::string_view("-._~").find(character) != std::string_view::npos;
}

/// Whether the text consists of unreserved characters, sub-delimiters, percent-encoded bytes and
/// `others` (RFC 3986, appendix A).
bool consistsOf(std::string_view text, std::string_view others) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            if (text.size() - i < 3 || !g_ascii_isxdigit(text[i + 1]) ||
                !g_ascii_isxdigit(text[i + 2]))
                return false;
            i += 2;
        } else if (!isUnreserved(text[i]) &&
                   subDelimiters.find(text[i]) == std::string_view::npos &&
                   others.find(text[i]) == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

/// Cuts `text` at the first of `marks` and gives what stands from there on, the mark included.
std::string_view cutFrom(std::string_view& text, std::string_view marks) {
    const std::size_t at = text.find_first_of(marks);
    if (at == std::string_view::npos)
        return {};
    const std::string_view rest = text.substr(at);
    text = text.substr(0, at);
    return rest;
}

/// GLib judges the scheme, the host and the port, but lets characters pass in the other parts
/// that the grammar does not know.
bool hasOnlyUrlCharacters(std::string_view url) {
    const std::string_view fragment = cutFrom(url, "#");
    const std::string_view query = cutFrom(url, "?");
    std::string_view path = url.substr(url.find(':') + 1);
    std::string_view authority;
    if (path.starts_with("//")) {
        authority = path.substr(2);
        path = cutFrom(authority, "/");
    }
    return (fragment.empty() || consistsOf(fragment.substr(1), ":@/?")) &&
           consistsOf(query, ":@/?") && consistsOf(path, ":@/") && consistsOf(authority, ":@[]");
}

}  // namespace

std::string encodeUrlPath(std::string_view text, Slash slash) {
    // By hand, because GLib's encoder lets zero bytes pass.
    constexpr const char* digits = "0123456789ABCDEF";
    const std::string_view kept = slash == Slash::kept ? "!$&'()*+,=:@/" : "!$&'()*+,=:@";
    std::string result;
    for (const char character : text) {
        if (isUnreserved(character) || kept.find(character) != std::string_view::npos) {
            result += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            result += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
        }
    }
    return result;
}

bool isValidUrl(std::string_view text) {
    const std::string url(text);
    return url.find('\0') == std::string::npos && !urlScheme(url).empty() &&
           hasOnlyUrlCharacters(url) &&
           // Encoded bytes need not be UTF-8, so they are not decoded.
           g_uri_is_valid(url.c_str(), G_URI_FLAGS_ENCODED, nullptr) != FALSE;
}

std::string urlScheme(std::string_view url) {
    const GText scheme(g_uri_parse_scheme(std::string(url).c_str()), &g_free);
    if (!scheme)
        return {};
    const GText lowerCase(g_ascii_strdown(scheme.get(), -1), &g_free);
    return lowerCase.get();
}

}  // namespace kelmar::system
