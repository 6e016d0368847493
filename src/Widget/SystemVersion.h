#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar::widget {

/// The version of a host's system: numbers with dots between them, compared number by number; what
/// is missing at the end counts as 0. The numbers may be of any length.
class SystemVersion {
public:
    /// Nothing for a text that is anything else, be it empty or a number with a suffix.
    [[nodiscard]] static std::optional<SystemVersion> parse(std::string_view text);

    friend bool operator==(const SystemVersion&, const SystemVersion&) = default;
    friend std::strong_ordering operator<=>(const SystemVersion& first,
                                            const SystemVersion& second);

private:
    explicit SystemVersion(std::vector<std::string> numbers);

    std::vector<std::string> numbers_;  ///< Without leading zeros, and without zeros at the end.
};

}  // namespace kelmar::widget
