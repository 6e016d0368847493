#include "Widget/HexString.h"

#include <charconv>
#include <cstdint>
#include <string>

namespace kelmar::widget {

namespace {

constexpr std::string_view blanks = " \t";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string doubled(std::string_view digits) {
    std::string all;
    for (const char digit : digits) {
        all.append(2, digit);
    }
    return all;
}

/// A whole text as a number in base 16; a leading "+" is a sign and as good as none.
std::optional<std::uint32_t> hexNumber(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value, 16);
    if (error != std::errc() || stopped != end) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::optional<kit::Color> hexString(std::optional<std::string_view> text) {
    if (!text) {
        return std::nullopt;
    }
    std::string_view rest = trimmed(*text);
    if (rest.starts_with('#')) {
        rest.remove_prefix(1);
    }
    const std::string digits = rest.size() == 3 ? doubled(rest) : std::string(rest);
    if (digits.size() != 6) {
        return std::nullopt;
    }
    const auto value = hexNumber(digits);
    if (!value) {
        return std::nullopt;
    }
    const auto component = [&](int shift) {
        return static_cast<double>((*value >> shift) & 255U) / 255;
    };
    return kit::Color::rgb(component(16), component(8), component(0));
}

}  // namespace kelmar::widget
