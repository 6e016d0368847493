#include "Shared/JsonNumber.h"

#include <charconv>
#include <limits>
#include <string>

namespace kelmar::shared {
namespace {

std::string_view takeDigits(std::string_view& rest) {
    const std::size_t end = rest.find_first_not_of("0123456789");
    const std::string_view digits = rest.substr(0, end);
    rest.remove_prefix(digits.size());
    return digits;
}

bool takeOneOf(std::string_view& rest, std::string_view characters) {
    if (rest.empty() || characters.find(rest.front()) == std::string_view::npos)
        return false;
    rest.remove_prefix(1);
    return true;
}

/// An exponent of any length; beyond all sense it is as large as can be.
std::int64_t exponentOf(const JsonNumber& number) {
    constexpr std::int64_t beyondAllSense = std::numeric_limits<std::int32_t>::max();
    std::int64_t exponent = 0;
    for (const char digit : number.exponent) {
        if (exponent < beyondAllSense)
            exponent = exponent * 10 + (digit - '0');
    }
    return number.isExponentNegative ? -exponent : exponent;
}

/// Whether a number other than zero is less than one, by the place of its first digit.
bool isBelowOne(const JsonNumber& number) {
    const std::string digits = std::string(number.whole).append(number.fraction);
    const auto first = static_cast<std::int64_t>(digits.find_first_not_of('0'));
    return static_cast<std::int64_t>(number.whole.size()) - first + exponentOf(number) <= 0;
}

std::optional<std::int64_t> integerOf(const std::string& text) {
    std::int64_t value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        return std::nullopt;
    return value;
}

}  // namespace

std::optional<JsonNumber> takeJsonNumber(std::string_view& rest) {
    std::string_view text = rest;
    JsonNumber number;
    number.isNegative = takeOneOf(text, "-");
    const bool startsWithZero = text.starts_with('0');
    number.whole = takeDigits(text);
    if (number.whole.empty() || (startsWithZero && number.whole.size() > 1))
        return std::nullopt;
    if (takeOneOf(text, ".") && (number.fraction = takeDigits(text)).empty())
        return std::nullopt;
    if (takeOneOf(text, "eE")) {
        number.isExponentNegative = text.starts_with('-');
        takeOneOf(text, "+-");
        number.exponent = takeDigits(text);
        if (number.exponent.empty())
            return std::nullopt;
    }
    rest = text;
    return number;
}

std::optional<double> parseJsonDouble(std::string_view text) {
    std::string_view rest = text;
    const std::optional<JsonNumber> number = takeJsonNumber(rest);
    if (!number || !rest.empty())
        return std::nullopt;
    double value = 0;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    value = isBelowOne(*number) ? 0 : std::numeric_limits<double>::infinity();
    return number->isNegative ? -value : value;
}

std::optional<std::int64_t> parseJsonInteger(std::string_view text) {
    const std::optional<JsonNumber> number = takeJsonNumber(text);
    if (!number || !text.empty())
        return std::nullopt;
    // All digits as one integer, times a power of ten.
    std::string digits = std::string(number->whole).append(number->fraction);
    std::int64_t power = exponentOf(*number) - static_cast<std::int64_t>(number->fraction.size());
    digits.erase(0, digits.find_first_not_of('0'));
    if (digits.empty())
        return 0;
    for (; power < 0 && digits.back() == '0'; ++power)
        digits.pop_back();
    constexpr std::int64_t mostDigits = std::numeric_limits<std::int64_t>::digits10 + 1;
    if (power < 0 || power > mostDigits - static_cast<std::int64_t>(digits.size()))
        return std::nullopt;
    digits.append(static_cast<std::size_t>(power), '0');
    return integerOf(number->isNegative ? "-" + digits : digits);
}

}  // namespace kelmar::shared
