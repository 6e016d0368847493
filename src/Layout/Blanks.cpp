#include "Layout/Blanks.h"

#include <algorithm>
#include <array>

namespace kelmar::layout {
namespace {

// The feeds after which Unicode breaks a line; the longest first, so that it is found first.
constexpr std::array<std::string_view, 8> lineFeeds{"\r\n", "\n",     "\r",     "\v",
                                                    "\f",   "\u0085", "\u2028", "\u2029"};

constexpr std::array<std::string_view, 4> spaces{" ", "\t", "\u00A0", "\u3000"};

}  // namespace

std::size_t lineFeedLength(std::string_view text) {
    const auto* const found = std::ranges::find_if(
        lineFeeds, [&](std::string_view feed) { return text.starts_with(feed); });
    return found == lineFeeds.end() ? 0 : found->size();
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    const auto dropsOneOf = [&](const auto& blanks) {
        const auto* const found = std::ranges::find_if(
            blanks, [&](std::string_view blank) { return text.ends_with(blank); });
        if (found == blanks.end()) {
            return false;
        }
        text.remove_suffix(found->size());
        return true;
    };
    while (dropsOneOf(spaces) || dropsOneOf(lineFeeds)) {
    }
    return text;
}

std::string onOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    while (!text.empty()) {
        const std::size_t feed = lineFeedLength(text);
        line += feed > 0 ? ' ' : text.front();
        text.remove_prefix(std::max<std::size_t>(feed, 1));
    }
    return withoutTabs(line);
}

std::string withoutTabs(std::string_view text) {
    std::string result(text);
    std::ranges::replace(result, '\t', ' ');
    return result;
}

}  // namespace kelmar::layout
