#include "Shared/JsonInteger.h"

#include <charconv>
#include <limits>
#include <string>

namespace kelmar::shared {
namespace {

constexpr std::string_view digitCharacters = "0123456789";

/// Takes the digits off the front of `rest`.
std::string_view takeDigits(std::string_view& rest) {
    const std::size_t end = rest.find_first_not_of(digitCharacters);
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
std::int64_t exponentOf(std::string_view digits, bool isNegative) {
    constexpr std::int64_t beyondAllSense = std::numeric_limits<std::int32_t>::max();
    std::int64_t exponent = 0;
    for (const char digit : digits) {
        if (exponent < beyondAllSense)
            exponent = exponent * 10 + (digit - '0');
    }
    return isNegative ? -exponent : exponent;
}

/// `digits` times ten to the power of `exponent`.
std::optional<std::int64_t> scaled(bool isNegative, std::string digits, std::int64_t exponent) {
    digits.erase(0, digits.find_first_not_of('0'));
    if (digits.empty())
        return 0;
    for (; exponent < 0 && digits.back() == '0'; ++exponent)
        digits.pop_back();
    constexpr std::size_t mostDigits = std::numeric_limits<std::int64_t>::digits10 + 1;
    if (exponent < 0 || digits.size() > mostDigits ||
        exponent > static_cast<std::int64_t>(mostDigits - digits.size()))
        return std::nullopt;
    digits.append(static_cast<std::size_t>(exponent), '0');
    if (isNegative)
        digits.insert(digits.begin(), '-');
    std::int64_t value = 0;
    const char* const end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, value).ec != std::errc())
        return std::nullopt;
    return value;
}

}  // namespace

std::optional<std::int64_t> parseJsonInteger(std::string_view number) {
    const bool isNegative = takeOneOf(number, "-");
    const std::string_view whole = takeDigits(number);
    if (whole.empty() || (whole.size() > 1 && whole.front() == '0'))
        return std::nullopt;
    std::string_view fraction;
    if (takeOneOf(number, ".") && (fraction = takeDigits(number)).empty())
        return std::nullopt;
    std::int64_t exponent = 0;
    if (takeOneOf(number, "eE")) {
        const bool isSmall = !number.empty() && number.front() == '-';
        takeOneOf(number, "+-");
        const std::string_view digits = takeDigits(number);
        if (digits.empty())
            return std::nullopt;
        exponent = exponentOf(digits, isSmall);
    }
    if (!number.empty())
        return std::nullopt;
    return scaled(isNegative, std::string(whole).append(fraction),
                  exponent - static_cast<std::int64_t>(fraction.size()));
}

}  // namespace kelmar::shared
