#include "Shared/RecordDecoder.h"

#include "Shared/JsonNumber.h"
#include "Shared/JsonSyntax.h"

namespace kelmar::shared {
namespace {

/// The text of a scalar, or the first character of a list or an object.
std::string_view tokenOf(RecordDecoder::Value& value) {
    const std::string_view token = value.raw_json_token();
    return token.substr(0, token.find_last_not_of(" \t\r\n") + 1);
}

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

}  // namespace

bool RecordDecoder::decode(Value value, std::string& text) {
    std::string_view view;
    const simdjson::error_code error = value.get_string().get(view);
    if (error == simdjson::INCORRECT_TYPE)
        return mismatch(value, typeName<std::string>);
    if (error != simdjson::SUCCESS)
        return broken();
    text = view;
    return true;
}

bool RecordDecoder::decode(Value value, bool& truth) {
    return value.get_bool().get(truth) == simdjson::SUCCESS || mismatch(value, typeName<bool>);
}

bool RecordDecoder::decode(Value value, double& number) {
    if (value.get_double().get(number) == simdjson::SUCCESS)
        return true;
    mismatch(value, typeName<double>);
    if (isNumber(tokenOf(value)))
        fault_.found += ", which is too large";
    return false;
}

bool RecordDecoder::decode(Value value, std::int64_t& number) {
    if (value.get_int64().get(number) == simdjson::SUCCESS)
        return true;
    const std::optional<std::int64_t> otherwiseWritten = parseJsonInteger(tokenOf(value));
    if (!otherwiseWritten)
        return mismatch(value, typeName<std::int64_t>);
    number = *otherwiseWritten;
    return true;
}

bool RecordDecoder::decode(Value value, system::Date& date) {
    double seconds = 0;
    if (!decode(value, seconds)) {
        fault_.expected = typeName<system::Date>;
        return false;
    }
    date = system::Date::since1970(seconds);
    return true;
}

bool RecordDecoder::ignore(Value value) {
    std::string_view json = value.raw_json_token();
    simdjson::error_code error = simdjson::SUCCESS;
    Object object;
    simdjson::ondemand::array array;
    if (json.starts_with('{') && (error = value.get_object().get(object)) == simdjson::SUCCESS)
        error = object.raw_json().get(json);
    if (json.starts_with('[') && (error = value.get_array().get(array)) == simdjson::SUCCESS)
        error = array.raw_json().get(json);
    return (error == simdjson::SUCCESS && !findSyntaxError(json)) || broken();
}

bool RecordDecoder::mismatch(Value value, std::string_view expected) {
    fault_ = {"", description(tokenOf(value)), std::string(expected)};
    return false;
}

bool RecordDecoder::missing(std::string_view key, std::string_view expected) {
    fault_ = {"." + std::string(key), "nothing", std::string(expected)};
    return false;
}

bool RecordDecoder::broken() {
    isBroken_ = true;
    return false;
}

bool RecordDecoder::postpone(std::string_view key, const std::string& step, KeyFaults& faults) {
    fault_.path.insert(0, step);
    faults.set(key, std::move(fault_));
    hasSkipped_ = true;
    return !isBroken_;
}

bool RecordDecoder::settle(const KeyFaults& faults) {
    if (!faults.empty())
        fault_ = faults.front();
    return faults.empty();
}

}  // namespace kelmar::shared
