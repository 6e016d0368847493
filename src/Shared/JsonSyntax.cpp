#include "Shared/JsonSyntax.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <simdjson.h>

namespace kelmar::shared {
namespace {

/// Lets everything pass except a text that its escapes have made invalid: the parser takes the
/// second half of a surrogate pair for a character.
struct TextChecker : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, TextChecker> {
    static bool String(const char* text, rapidjson::SizeType size, bool /*copy*/) {
        return simdjson::validate_utf8(text, size);
    }
    static bool Key(const char* text, rapidjson::SizeType size, bool copy) {
        return String(text, size, copy);
    }
    /// Numbers come as texts so that their size does not matter.
    static bool RawNumber(const char* /*text*/, rapidjson::SizeType /*size*/, bool /*copy*/) {
        return true;
    }
};

std::string reasonOf(rapidjson::ParseErrorCode code) {
    if (code == rapidjson::kParseErrorTermination)
        return "Half of a surrogate pair in string";
    std::string reason = rapidjson::GetParseError_En(code);
    while (reason.ends_with('.') || reason.ends_with(' '))
        reason.pop_back();
    return reason;
}

}  // namespace

std::optional<SyntaxError> findSyntaxError(std::string_view json) {
    constexpr unsigned flags = rapidjson::kParseIterativeFlag |
                               rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseNumbersAsStringsFlag;
    rapidjson::MemoryStream stream(json.data(), json.size());
    rapidjson::Reader reader;
    TextChecker checker;
    if (!reader.Parse<flags>(stream, checker).IsError())
        return std::nullopt;
    return SyntaxError{reader.GetErrorOffset(), reasonOf(reader.GetParseErrorCode())};
}

}  // namespace kelmar::shared
