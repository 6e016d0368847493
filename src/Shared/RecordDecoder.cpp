#include "Shared/RecordDecoder.h"

#include <cmath>
#include <cstring>

#include "Shared/JsonNumber.h"
#include "Shared/JsonSyntax.h"

namespace kelmar::shared {
namespace {

/// A token that is too long for a message, cut between two characters.
std::string shortened(std::string_view token) {
    constexpr std::size_t longest = 60;
    if (token.size() <= longest)
        return std::string(token);
    std::size_t end = longest;
    const auto continuesCharacter = [&] {
        return (static_cast<unsigned char>(token[end]) & 0xC0U) == 0x80U;
    };
    while (continuesCharacter())
        --end;
    return std::string(token.substr(0, end)) + "…";
}

bool isNumber(std::string_view token) {
    return token.find_first_of("-0123456789") == 0;
}

std::string description(std::string_view token) {
    if (token.starts_with('{'))
        return "an object";
    if (token.starts_with('['))
        return "a list";
    if (token.starts_with('"'))
        return "the text " + shortened(token);
    return (isNumber(token) ? "the number " : "") + shortened(token);
}

/// So many digits fit both an integer and, exactly, a number with a fraction.
constexpr std::ptrdiff_t mostPlainDigits = 15;

/// An integer as nearly all numbers are written: a few digits without a zero before them.
struct PlainInteger {
    std::int64_t value = 0;
    const char* end = nullptr;  ///< Nothing when the number is written otherwise.
};

PlainInteger readPlainInteger(const char* text) {
    PlainInteger integer;
    const char* at = text;
    for (; *at >= '0' && *at <= '9' && at - text <= mostPlainDigits; ++at)
        integer.value = integer.value * 10 + (*at - '0');
    const std::ptrdiff_t length = at - text;
    const bool isPlain = length > 0 && length <= mostPlainDigits && (*text != '0' || length == 1);
    integer.end = isPlain ? at : nullptr;
    return integer;
}

}  // namespace

bool RecordDecoder::endsAt(Place value, const char* end) const {
    const std::string_view region = tokens_.region(value);
    const char* const next = region.data() + region.size();
    return end == next || std::string_view(end, static_cast<std::size_t>(next - end))
                                  .find_first_not_of(" \t\r\n") == std::string_view::npos;
}

RecordDecoder::Place RecordDecoder::decode(Place value, std::string& text) {
    if (tokens_.front(value) != '"')
        return mismatch(value, typeName<std::string>);
    const std::string_view quoted = tokens_.quoted(value);
    if (!tokens_.hasEscapes(quoted))
        text = std::string(quoted);
    else if (!tokens_.unescape(quoted, text))
        return nullptr;
    return value + 1;
}

RecordDecoder::Place RecordDecoder::decode(Place value, bool& truth) {
    const char* const text = tokens_.address(value);
    truth = std::memcmp(text, "true", 4) == 0;
    const bool isBool = truth || std::memcmp(text, "false", 5) == 0;
    if (!isBool || !endsAt(value, text + (truth ? 4 : 5)))
        return mismatch(value, typeName<bool>);
    return value + 1;
}

RecordDecoder::Place RecordDecoder::decode(Place value, double& number) {
    const PlainInteger integer = readPlainInteger(tokens_.address(value));
    if (integer.end == nullptr || !endsAt(value, integer.end))
        return decodeUnusualNumber(value, number);
    number = static_cast<double>(integer.value);
    return value + 1;
}

RecordDecoder::Place RecordDecoder::decode(Place value, std::int64_t& number) {
    const PlainInteger integer = readPlainInteger(tokens_.address(value));
    if (integer.end == nullptr || !endsAt(value, integer.end))
        return decodeUnusualNumber(value, number);
    number = integer.value;
    return value + 1;
}

RecordDecoder::Place RecordDecoder::decode(Place value, system::Date& date) {
    double seconds = 0;
    const Place next = decode(value, seconds);
    if (next == nullptr)
        fault_.expected = typeName<system::Date>;
    else
        date = system::Date::since1970(seconds);
    return next;
}

RecordDecoder::Place RecordDecoder::decodeUnusualNumber(Place value, double& number) {
    const std::optional<double> nearest = parseJsonDouble(tokens_.token(value));
    if (!nearest)
        return mismatch(value, typeName<double>);
    if (!std::isfinite(*nearest)) {
        mismatch(value, typeName<double>);
        fault_.found += ", which is too large";
        return nullptr;
    }
    number = *nearest;
    return value + 1;
}

RecordDecoder::Place RecordDecoder::decodeUnusualNumber(Place value, std::int64_t& number) {
    const std::optional<std::int64_t> integer = parseJsonInteger(tokens_.token(value));
    if (!integer)
        return mismatch(value, typeName<std::int64_t>);
    number = *integer;
    return value + 1;
}

RecordDecoder::Place RecordDecoder::ignore(Place value) {
    return findSyntaxError(tokens_.value(value)) ? nullptr : tokens_.behind(value);
}

std::nullptr_t RecordDecoder::mismatch(Place value, std::string_view expected) {
    fault_ = {"", description(tokens_.token(value)), std::string(expected)};
    return nullptr;
}

bool RecordDecoder::missing(std::string_view key, std::string_view expected) {
    fault_ = {"." + std::string(key), "nothing", std::string(expected)};
    return false;
}

RecordDecoder::Place RecordDecoder::postpone(Place value, std::string_view key,
                                             const std::string& step, KeyFaults& faults) {
    fault_.path.insert(0, step);
    faults.set(key, std::move(fault_));
    hasSkipped_ = true;
    return tokens_.behind(value);
}

bool RecordDecoder::settle(const KeyFaults& faults) {
    if (!faults.empty())
        fault_ = faults.front();
    return faults.empty();
}

}  // namespace kelmar::shared
