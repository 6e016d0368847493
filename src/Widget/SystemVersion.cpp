#include "Widget/SystemVersion.h"

#include <algorithm>

namespace kelmar::widget {

namespace {

bool isNumber(std::string_view text) {
    return !text.empty() &&
           std::ranges::all_of(text, [](char letter) { return letter >= '0' && letter <= '9'; });
}

/// Digits without zeros before them, so that the longer number is the greater one; 0 is empty.
std::string withoutLeadingZeros(std::string_view digits) {
    return std::string(digits.substr(std::min(digits.find_first_not_of('0'), digits.size())));
}

}  // namespace

SystemVersion::SystemVersion(std::vector<std::string> numbers) : numbers_(std::move(numbers)) {
    while (!numbers_.empty() && numbers_.back().empty()) {
        numbers_.pop_back();
    }
}

std::optional<SystemVersion> SystemVersion::parse(std::string_view text) {
    std::vector<std::string> numbers;
    for (bool isLast = false; !isLast;) {
        const std::size_t dot = text.find('.');
        const std::string_view number = text.substr(0, dot);
        if (!isNumber(number)) {
            return std::nullopt;
        }
        numbers.push_back(withoutLeadingZeros(number));
        isLast = dot == std::string_view::npos;
        text.remove_prefix(isLast ? text.size() : dot + 1);
    }
    return SystemVersion(std::move(numbers));
}

std::strong_ordering operator<=>(const SystemVersion& first, const SystemVersion& second) {
    return std::lexicographical_compare_three_way(
        first.numbers_.begin(), first.numbers_.end(), second.numbers_.begin(),
        second.numbers_.end(), [](const std::string& one, const std::string& other) {
            const auto bySize = one.size() <=> other.size();
            return std::is_neq(bySize) ? bySize : one <=> other;
        });
}

}  // namespace kelmar::widget
