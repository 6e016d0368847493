#include "Shared/JsonTokens.h"

#include <cstring>

#include "Shared/JsonSyntax.h"

namespace kelmar::shared {
namespace {

std::string_view withoutSpaceBehind(std::string_view text) {
    return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

}  // namespace

bool JsonTokens::find(std::string& json) {
    // The second stage, which would need depth, is not used.
    constexpr std::size_t depth = 1;
    json.reserve(json.size() + simdjson::SIMDJSON_PADDING);
    const bool hasRoom =
        parser_ ? parser_->capacity() >= json.size() ||
                      parser_->set_capacity(json.size()) == simdjson::SUCCESS
                : simdjson::get_active_implementation()->create_dom_parser_implementation(
                      json.size(), depth, parser_) == simdjson::SUCCESS;
    if (!hasRoom)
        return false;
    text_ = json.data();
    textEnd_ = text_ + json.size();
    findBackslash(text_);
    return parser_->stage1(reinterpret_cast<const std::uint8_t*>(text_), json.size(),
                           simdjson::stage1_mode::regular) == simdjson::SUCCESS;
}

std::string_view JsonTokens::token(Place token) const {
    return withoutSpaceBehind(region(token));
}

std::string_view JsonTokens::quotedBeforeSpace(Place token) const {
    std::string_view text = this->token(token);
    text.remove_prefix(1);
    text.remove_suffix(1);
    return text;
}

std::string_view JsonTokens::value(Place first) const {
    const Place last = behind(first) - 1;
    return withoutSpaceBehind({text_ + *first, last[1] - first[0]});
}

JsonTokens::Place JsonTokens::behind(Place first) const {
    std::size_t depth = 0;
    for (Place token = first; token < end(); ++token) {
        const char character = front(token);
        if (character == '{' || character == '[')
            ++depth;
        else if ((character == '}' || character == ']') && depth > 0)
            --depth;
        if (depth == 0)
            return token + 1;
    }
    return end();
}

bool JsonTokens::unescape(std::string_view quoted, std::string& text) const {
    const std::string_view withMarks(quoted.data() - 1, quoted.size() + 2);
    if (findSyntaxError(withMarks))
        return false;
    text.resize(quoted.size() + simdjson::SIMDJSON_PADDING);
    auto* const start = reinterpret_cast<std::uint8_t*>(text.data());
    const std::uint8_t* const end =
        parser_->parse_string(reinterpret_cast<const std::uint8_t*>(quoted.data()), start);
    if (end == nullptr)
        return false;
    text.resize(static_cast<std::size_t>(end - start));
    return true;
}

void JsonTokens::findBackslash(const char* from) {
    const void* const found = std::memchr(from, '\\', static_cast<std::size_t>(textEnd_ - from));
    nextBackslash_ = found == nullptr ? textEnd_ : static_cast<const char*>(found);
}

}  // namespace kelmar::shared
